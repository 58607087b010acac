"""What the end-to-end tests share."""
import unittest

from display import Display
from game import Game

BUILDS = ("release", "asan")


class GameTest(unittest.TestCase):
    def start(self, build="release", kind=Game, **how):
        """A display and a game of their own; those that an earlier call started end."""
        self.doCleanups()
        self.screen = self.enterContext(Display())
        self.game = self.enterContext(kind(self.screen, build, **how))
        return self.screen, self.game
