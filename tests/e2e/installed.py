"""The installed game, started by its launcher in an empty home."""
import os

from game import Game


class Installed(Game):
    FILES = {".local", ".local/share", ".local/share/brumble", ".local/share/brumble/autoexec.txt",
             ".local/share/brumble/data", ".local/share/brumble/log.txt"}  # all that it writes

    def __init__(self, screen, launcher):
        super().__init__(screen)
        self.launcher = launcher

    def _start(self):
        self.home = self.folder / "home"
        self.home.mkdir()
        self.runtime = self.home / ".local/share/brumble"
        return self._run([self.launcher], self.home, {
            "PATH": os.environ["PATH"], "HOME": str(self.home), "DISPLAY": self.screen.name,
            "SDL_AUDIODRIVER": "dummy"})

    # Everything in the home, but for what a graphics driver keeps.
    def written(self):
        return {str(path.relative_to(self.home)) for path in self.home.rglob("*")
                if not path.is_relative_to(self.home / ".cache")}
