"""Two whole games in one run, played with a real pointer, and with a clock that waits for it."""
import numpy

from case import GameTest
from game import WHOLE_GAME, Digits, Stepper, find_kitten


class Play(GameTest):
    def test_two_games(self):
        screen, game = self.start(kind=Stepper)
        game.start_playing()
        self.assert_monster_follows()
        self.hit_a_kitten()
        self.burn_the_rest()
        self.assertTrue(screen.cursor_is_visible(), "game over shows the cursor")
        game.click_at(400, 450)
        game.wait_for(lambda: self.read(Digits.LEFT) in (9, 10), "the boards")
        self.assertFalse(screen.cursor_is_visible(), "the second game hides the cursor")
        self.burn_the_rest()
        self.assertEqual(game.log().count("Gameover"), 2)

    def read(self, place):
        return Digits().read(self.game.picture(), place)

    def assert_monster_follows(self):
        places, pictures = ((300, 400), (550, 250)), []
        for place in places:
            self.game.steer(*place)
            self.game.let_pass(1.0)
            pictures.append(self.game.picture().astype(int))
        moved = numpy.abs(pictures[1] - pictures[0]).max(axis=2) > 40
        for x, y in places:
            self.assertGreater(moved[y - 15:y + 15, x - 15:x + 15].mean(), 0.5, (x, y))

    # Pushes whatever kitten is there, until that is worth something.
    def hit_a_kitten(self):
        def has_stake():
            if place := find_kitten(self.game.picture()):
                self.game.steer(*place)
            return self.read(Digits.STAKE)
        self.game.wait_for(has_stake, "a stake")

    def burn_the_rest(self):
        game, lefts = self.game, []
        game.point_at(5, 5)
        game.let_pass(1.0)  # the monster leaves the bottom
        games = game.log().count("Gameover")

        def has_ended():
            lefts.append(self.read(Digits.LEFT))
            return game.log().count("Gameover") > games
        game.wait_for(has_ended, "the end of the game", WHOLE_GAME)
        game.wait_for_sprite("gameover")
        lefts = [*dict.fromkeys(left for left in lefts if left is not None)]
        self.assertEqual(lefts, [*range(lefts[0], -1, -1)])
        self.assertEqual(self.read(Digits.STAKE), 0, "the last stake is lost or banked")
