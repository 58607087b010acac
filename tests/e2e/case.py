# What the end-to-end tests share.

import functools
import subprocess
import unittest

from display import LIMIT, Display
from game import ROOT, Game


class GameTest(unittest.TestCase):
    # A display and a game of their own; those that an earlier call started end.
    def start(self, kind=Game, **how):
        self.doCleanups()
        self.screen = self.enterContext(Display())
        self.game = self.enterContext(kind(self.screen, **how))
        return self.screen, self.game


# The environments that run the program on each SDL 1.2 that there is: the classic library, and the
# one over SDL 2.
@functools.cache
def libraries():
    with Game() as game:
        game.wait_for_end()
        if not game.has_classic_sdl():
            return [{}]
    # Debian's SDL 1.2 over SDL 2, unpacked beside the build, never installed.
    folder = ROOT / "build/sdl12-compat"
    if not list(folder.rglob("libSDL-1.2.so.0")):
        folder.mkdir(parents=True, exist_ok=True)
        how = {"cwd": folder, "check": True, "timeout": 10 * LIMIT}
        subprocess.run(["apt-get", "download", "-qq", "libsdl1.2-compat"], **how)
        subprocess.run(["dpkg", "-x", next(folder.glob("*.deb")), "."], **how)
    return [{}, {"LD_LIBRARY_PATH": str(next(folder.rglob("libSDL-1.2.so.0")).parent)}]
