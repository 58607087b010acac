"""What the end-to-end tests share."""
import functools
import itertools
import unittest

from display import Display
from game import Game

BUILDS = ("release", "asan")


class GameTest(unittest.TestCase):
    # A display and a game of their own; those that an earlier call started end.
    def start(self, build="release", kind=Game, **how):
        self.doCleanups()
        self.screen = self.enterContext(Display())
        self.game = self.enterContext(kind(self.screen, build, **how))
        return self.screen, self.game


# Runs the test for each combination of the choices: lists, or functions that return one.
def for_each(**choices):
    def decorate(test):
        @functools.wraps(test)
        def run(self):
            lists = (choice() if callable(choice) else choice for choice in choices.values())
            for values in itertools.product(*lists):
                how = dict(zip(choices, values))
                with self.subTest(**how):
                    test(self, **how)
        return run
    return decorate
