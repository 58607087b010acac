"""Two whole games in one run, played with a real pointer, and with a clock that waits for it."""
import unittest

import numpy

from display import Display
from game import WHOLE_GAME, Digits, Stepper, find_kitten, fire_burns, fit, load_picture
from pilot import Pilot, pointer_for

GAME_SECONDS = 120  # of play


class Watch:
    """What a player notices over time."""

    def __init__(self, game):
        self.game = game
        self.digits = Digits()
        self.lefts, self.stakes, self.scores = [10], [0], [0]

    def look(self, picture):
        for history, place in ((self.lefts, Digits.LEFT), (self.stakes, Digits.STAKE),
                               (self.scores, Digits.SCORE)):
            value = self.digits.read(picture, place)
            if value is not None and value != history[-1]:
                history.append(value)


class Play(unittest.TestCase):
    def test_two_games(self):
        # Kittens come as they like, and one run in twenty scores nothing.
        self.assertTrue(any(self.play_two_games() for _ in range(3)), "no score in three runs")

    def play_two_games(self):
        with Display() as screen, Stepper(screen) as game:
            game.start_playing()
            watch, empty = Watch(game), game.picture()
            self.assert_monster_follows(game)
            if not self.score_once(game, watch):
                return False
            self.burn_the_rest(game, watch, empty)
            self.assert_counts_down(watch)
            self.assertGreaterEqual(watch.scores[-1], 500)
            self.assertTrue(screen.cursor_is_visible(), "game over shows the cursor")
            game.point_at(400, 450)
            game.click()
            second = Watch(game)
            for place, numbers in ((Digits.SCORE, (0,)), (Digits.LEFT, (9, 10))):
                game.wait_for(lambda: second.digits.read(game.picture(), place) in numbers,
                              "the boards")
            self.assertFalse(screen.cursor_is_visible(), "the second game hides the cursor")
            self.burn_the_rest(game, second, empty)
            self.assert_counts_down(second)
            self.assert_focus_starts_nothing(screen, game)
            self.assertEqual(game.log().count("Gameover"), 2)
        return True

    def assert_focus_starts_nothing(self, screen, game):
        game.let_pass(5.0)  # the last fire goes out
        shown = game.picture()
        screen.focus(screen.open_other())
        game.settle()
        screen.focus(game.window)
        game.settle()
        game.let_pass(1.0)
        self.assertGreater((shown == game.picture()).mean(), 0.99, "game over stays as it is")

    def assert_monster_follows(self, game):
        game.point_at(*pointer_for((300, 400)))
        game.let_pass(1.0)
        before = game.picture().astype(int)
        game.point_at(*pointer_for((550, 250)))
        game.let_pass(1.0)
        moved = numpy.abs(game.picture() - before).max(axis=2) > 40
        for x, y in ((300, 400), (550, 250)):
            self.assertGreater(moved[y - 15:y + 15, x - 15:x + 15].mean(), 0.5,
                               f"the monster left or reached ({x}, {y})")

    def score_once(self, game, watch):
        pilot = Pilot(game)
        end = game.now() + GAME_SECONDS
        while "brum_touch_count" not in game.log():
            if game.now() > end or "Gameover" in game.log():
                return False
            watch.look(pilot.step())
        self.signs_drop_in(game, watch)
        self.assertGreater(max(watch.stakes), 0, "hits and spins raise the stake")
        game.wait_for(lambda: watch.look(game.picture()) or watch.scores[-1] >= 500, "a score")
        return True

    def signs_drop_in(self, game, watch):
        """The grilled kitten's comes down over the middle, below one that came just before it."""
        sign = load_picture("b_grilled_kitten")
        x = 400 - sign.shape[1] // 2

        def shown():
            picture = game.picture()
            watch.look(picture)
            # A thinned picture is looked through fast enough.
            return any(fit(picture[y::3, x::3], sign[::3, ::3]) > 0.6 for y in range(600))
        game.wait_for(shown, "the sign of a grilled kitten")

    def burn_the_rest(self, game, watch, empty):
        game.point_at(5, 5)
        games = game.log().count("Gameover")
        game.let_pass(1.0)  # the monster leaves the bottom
        seen, burned = False, False

        def has_ended():
            nonlocal seen, burned
            picture = game.picture()
            watch.look(picture)
            seen = seen or find_kitten(picture) is not None
            burned = burned or fire_burns(picture, empty)
            return game.log().count("Gameover") > games
        game.wait_for(has_ended, "the end of the game", WHOLE_GAME)
        self.assertTrue(seen, "kittens appear")
        self.assertTrue(burned, "a kitten that falls burns")
        game.wait_for_sprite("gameover")

    def assert_counts_down(self, watch):
        self.assertEqual(watch.lefts, sorted(watch.lefts, reverse=True))
        self.assertEqual(watch.lefts[-1], 0)
        self.assertGreaterEqual(len(watch.lefts), 10, watch.lefts)
        self.assertEqual(watch.stakes[-1], 0, "the last stake is lost or banked")
