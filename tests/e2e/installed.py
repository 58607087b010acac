"""The installed game, started by its launcher in an empty home."""
import os
import pathlib
import subprocess
import tempfile

from game import Game


class Installed(Game):
    """One run of that launcher."""

    def __init__(self, screen, launcher):
        super().__init__(screen)
        self.launcher = launcher

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="brumble-run-"))
        self.home = self.folder / "home"
        self.home.mkdir()
        self.runtime = self.home / ".local/share/brumble"
        self.errors = open(self.folder / "stderr", "w+")
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.home),
                       "DISPLAY": self.screen.name, "SDL_AUDIODRIVER": "dummy"}
        self.process = subprocess.Popen([self.launcher], cwd=self.home, env=environment, text=True,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=self.errors)
        return self

    def written(self):
        """Everything in the home, but for what a graphics driver keeps."""
        return {str(path.relative_to(self.home)) for path in self.home.rglob("*")
                if not path.is_relative_to(self.home / ".cache")}
