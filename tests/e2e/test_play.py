"""Two whole games in one run, played with a real pointer, and with a clock that waits for it."""
import numpy

from case import GameTest
from game import WHOLE_GAME, Digits, Stepper, fire_burns, fit, load_picture
from pilot import Pilot, pointer_for

GAME_SECONDS = 120  # of play


# What a player notices in one game.
class Watch:
    def __init__(self):
        self.digits = Digits()
        self.lefts, self.stakes, self.scores = [10], [0], [0]

    def look(self, picture):
        for history, place in ((self.lefts, Digits.LEFT), (self.stakes, Digits.STAKE),
                               (self.scores, Digits.SCORE)):
            value = self.digits.read(picture, place)
            if value is not None and value != history[-1]:
                history.append(value)


class Play(GameTest):
    def test_two_games(self):
        # Kittens come as they like, and one run in twenty scores nothing.
        self.assertTrue(any(self.play_two_games() for _ in range(3)), "no score in three runs")

    def play_two_games(self):
        screen, game = self.start(kind=Stepper)
        game.start_playing()
        empty = game.picture()
        self.watch = Watch()
        self.assert_monster_follows()
        if not self.score_once():
            return False
        self.burn_the_rest(empty)
        self.assertGreaterEqual(self.watch.scores[-1], 500)
        self.assertTrue(screen.cursor_is_visible(), "game over shows the cursor")
        game.click_at(400, 450)
        self.watch = Watch()
        read = self.watch.digits.read
        for place, numbers in ((Digits.SCORE, (0,)), (Digits.LEFT, (9, 10))):
            game.wait_for(lambda: read(game.picture(), place) in numbers, "the boards")
        self.assertFalse(screen.cursor_is_visible(), "the second game hides the cursor")
        self.burn_the_rest(empty)
        self.assertEqual(game.log().count("Gameover"), 2)
        return True

    def assert_monster_follows(self):
        places, pictures = ((300, 400), (550, 250)), []
        for place in places:
            self.game.point_at(*pointer_for(place))
            self.game.let_pass(1.0)
            pictures.append(self.game.picture().astype(int))
        moved = numpy.abs(pictures[1] - pictures[0]).max(axis=2) > 40
        for x, y in places:
            self.assertGreater(moved[y - 15:y + 15, x - 15:x + 15].mean(), 0.5, (x, y))

    def score_once(self):
        game, watch = self.game, self.watch
        pilot = Pilot(game)
        end = game.now() + GAME_SECONDS
        while "brum_touch_count" not in game.log():
            if game.now() > end or "Gameover" in game.log():
                return False
            watch.look(pilot.step())
        game.wait_for(self.sign_is_shown, "the sign of a grilled kitten")
        self.assertGreater(max(watch.stakes), 0, "hits and spins raise the stake")
        game.wait_for(lambda: watch.look(game.picture()) or watch.scores[-1] >= 500, "a score")
        return True

    # It comes down over the middle, below one that came just before it.
    def sign_is_shown(self):
        sign, picture = load_picture("b_grilled_kitten"), self.game.picture()
        x = 400 - sign.shape[1] // 2
        self.watch.look(picture)
        # A thinned picture is looked through fast enough.
        return any(fit(picture[y::3, x::3], sign[::3, ::3]) > 0.6 for y in range(600))

    def burn_the_rest(self, empty):
        game, watch = self.game, self.watch
        game.point_at(5, 5)
        games = game.log().count("Gameover")
        game.let_pass(1.0)  # the monster leaves the bottom
        fires = []

        def has_ended():
            picture = game.picture()
            watch.look(picture)
            fires.append(fire_burns(picture, empty))
            return game.log().count("Gameover") > games
        game.wait_for(has_ended, "the end of the game", WHOLE_GAME)
        self.assertTrue(any(fires), "a kitten that falls burns")
        game.wait_for_sprite("gameover")
        self.assertEqual(watch.lefts, sorted(watch.lefts, reverse=True))
        self.assertEqual(watch.lefts[-1], 0)
        self.assertGreaterEqual(len(watch.lefts), 10, watch.lefts)
        self.assertEqual(watch.stakes[-1], 0, "the last stake is lost or banked")
