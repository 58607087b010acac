# What the end-to-end tests share.

import unittest

from display import Display
from game import Game


class GameTest(unittest.TestCase):
    # A display and a game of their own; those that an earlier call started end.
    def start(self, kind=Game, **how):
        self.doCleanups()
        self.screen = self.enterContext(Display())
        self.game = self.enterContext(kind(self.screen, **how))
        return self.screen, self.game
