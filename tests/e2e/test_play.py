"""Two whole games in one run, played with a real pointer."""
import time
import unittest

import numpy

from display import Display, Other, wait_for
from game import Digits, Game, find_kitten, fire_burns, load_picture
from pilot import Pilot, pointer_for

GAME_SECONDS = 120


class Watch:
    """What a player notices over time."""

    def __init__(self, game):
        self.game = game
        self.digits = Digits()
        self.background = load_picture("background")[:, :, :3].astype(int)
        self.lefts, self.stakes, self.scores = [10], [0], [0]
        self.colours = set()

    def look(self, picture):
        for history, place in ((self.lefts, Digits.LEFT), (self.stakes, Digits.STAKE),
                               (self.scores, Digits.SCORE)):
            value = self.digits.read(picture, place)
            if value is not None and value != history[-1]:
                history.append(value)


class Play(unittest.TestCase):
    def test_two_games(self):
        # A loaded machine aims badly: a run without a score is repeated once before it counts.
        for attempt in (1, 2):
            try:
                self.play_two_games()
                return
            except NoScore:
                if attempt == 2:
                    self.fail("no kitten reached the oven in two runs")

    def play_two_games(self):
        with Display() as screen, Game(screen) as game:
            game.start_playing()
            watch = Watch(game)
            self.assert_monster_follows(game)
            self.score_once(game, watch)
            self.burn_the_rest(game, watch)
            self.assert_game(watch)
            self.assertTrue(screen.cursor_is_visible(), "game over shows the cursor")
            game.point_at(400, 450)
            game.click()
            second = Watch(game)
            wait_for(lambda: second.digits.read(game.picture(), Digits.SCORE) == 0, 5, "score 0")
            wait_for(lambda: second.digits.read(game.picture(), Digits.LEFT) in (9, 10), 5,
                     "ten kittens")
            self.assertFalse(screen.cursor_is_visible(), "the second game hides the cursor")
            self.burn_the_rest(game, second)
            self.assert_counts_down(second)
            self.assert_focus_starts_nothing(screen, game)
            self.assertEqual(game.log().count("Gameover"), 2)

    def assert_focus_starts_nothing(self, screen, game):
        shown = game.picture()
        with Other(screen) as other:
            other.take_focus()
            time.sleep(0.3)
            screen.run("xdotool", "windowfocus", "--sync", str(game.window.id))
            time.sleep(1.0)
        self.assertGreater((shown == game.picture()).mean(), 0.99, "game over stays as it is")

    def assert_monster_follows(self, game):
        game.point_at(*pointer_for((300, 400)))
        time.sleep(1.0)
        before = game.picture().astype(int)
        game.point_at(*pointer_for((550, 250)))
        time.sleep(1.0)
        moved = numpy.abs(game.picture() - before).max(axis=2) > 40
        for x, y in ((300, 400), (550, 250)):
            self.assertGreater(moved[y - 15:y + 15, x - 15:x + 15].mean(), 0.5,
                               f"the monster left or reached ({x}, {y})")

    def score_once(self, game, watch):
        pilot = Pilot(game)
        end = time.monotonic() + GAME_SECONDS
        while "brum_touch_count" not in game.log():
            if time.monotonic() > end or "Gameover" in game.log():
                raise NoScore
            watch.look(pilot.step())
        self.signs_drop_in(game, watch)
        self.assertGreater(max(watch.stakes), 0, "hits and spins raise the stake")
        wait_for(lambda: watch.look(game.picture()) or watch.scores[-1] >= 500, 10, "a score")

    def signs_drop_in(self, game, watch):
        """The sign of the grilled kitten comes down over the middle of the screen, below a sign that
        came shortly before it."""
        sign = load_picture("b_grilled_kitten")
        h, w = sign.shape[:2]
        rows, columns = (place[::9] for place in (sign[:, :, 3] == 255).nonzero())
        colours = sign[rows, columns, :3].astype(int)

        def shown():
            picture = game.picture()
            watch.look(picture)
            middle = picture[:, 400 - w // 2:400 - w // 2 + w].astype(int)
            return any((numpy.abs(middle[y + rows, columns] - colours).max(axis=1) <= 4).mean() > 0.6
                       for y in range(0, 600 - h))
        wait_for(shown, 3, "the sign of a grilled kitten")

    def burn_the_rest(self, game, watch):
        game.point_at(5, 5)
        games = game.log().count("Gameover")
        end = time.monotonic() + 90
        seen, burned, before = False, False, game.picture()
        while game.log().count("Gameover") == games:
            self.assertLess(time.monotonic(), end, "the game ends")
            picture = game.picture()
            watch.look(picture)
            seen = seen or find_kitten(picture) is not None
            burned = burned or fire_burns(picture, before)
            time.sleep(0.03)
        self.assertTrue(seen, "kittens appear")
        self.assertTrue(burned, "a kitten that falls burns")
        game.wait_for_log("Gameover", 5, games + 1)
        panel = load_picture("gameover")
        solid = panel[:, :, 3] == 255
        self.assertGreater(solid.sum(), 10000)

    def assert_game(self, watch):
        self.assert_counts_down(watch)
        self.assertGreaterEqual(watch.scores[-1], 500)

    def assert_counts_down(self, watch):
        self.assertEqual(watch.lefts, sorted(watch.lefts, reverse=True))
        self.assertEqual(watch.lefts[-1], 0)
        self.assertGreaterEqual(len(watch.lefts), 10, watch.lefts)
        self.assertEqual(watch.stakes[-1], 0, "the last stake is lost or banked")


class NoScore(Exception):
    pass
