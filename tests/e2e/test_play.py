# Play with a real pointer, and with a clock that waits for it.

import itertools

from case import GameTest
from game import Stepper, fit, load_picture


class Play(GameTest):
    # Before the first kitten, which might cover either place.
    def test_the_monster_follows_the_pointer(self):
        _, game = self.start(kind=Stepper)
        game.start_playing()
        for there, elsewhere in itertools.permutations(((300, 300), (500, 420))):
            game.steer(*there)
            game.let_pass(0.2)
            self.assertFalse(self.is_bare(*there), there)
            self.assertTrue(self.is_bare(*elsewhere), elsewhere)

    # Whether the background shows around that place.
    def is_bare(self, x, y):
        part = load_picture("background")[y - 10:y + 10, x - 10:x + 10]
        return fit(self.game.picture()[y - 10:, x - 10:], part) == 1
