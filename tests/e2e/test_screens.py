"""The screens, the focus, and every way in which the program ends."""
import itertools
import time
import unittest

from display import Display, wait_for
from game import Game, load_picture, matches
from library import libraries


class Screens(unittest.TestCase):
    def run_screens(self, **how):
        with Display() as screen, Game(screen, **how) as game:
            game.wait_for_title()
            self.assertTrue(screen.cursor_is_visible(), "the title shows the cursor")
            game.click(3)
            game.settle()
            self.assertTrue(matches(game.picture(), load_picture("title_screen")),
                            "a right click changes nothing")
            game.click()
            game.wait_for_picture("help_screen")
            game.wait_for_sprite("help_bubbles")
            self.assertTrue(screen.cursor_is_visible(), "help shows the cursor")
            game.click()
            wait_for(lambda: not screen.cursor_is_visible(), "a hidden cursor in play")
            game.wait_for_picture("background")
            screen.close_window(game.window)
            self.assertEqual(game.wait_for_end(), 0)

    def test_title_help_play(self):
        for library in libraries():
            with self.subTest(**library):
                self.run_screens(environment=library)


class Focus(unittest.TestCase):
    def test_losing_the_focus_freezes_play_and_coming_back_starts_nothing(self):
        with Display() as screen, Game(screen) as game:
            game.wait_for_title()
            other = screen.open_other()
            screen.focus(other)
            game.settle()
            screen.focus(game.window)
            game.settle()
            self.assertTrue(matches(game.picture(), load_picture("title_screen"), 0.9))
            self.assertFalse(screen.cursor_is_visible(), "coming back hides the cursor anywhere")
            game.start_playing()
            # The cursor is part of the picture where it shows: keep it outside the window.
            screen.move_pointer(5, 5)
            game.wait_for_kitten()
            screen.focus(other)
            wait_for(screen.cursor_is_visible, "the cursor without focus")
            game.wait_for_sprite("paused")
            game.settle()
            first = self.world(game)
            screen.move_pointer(15, 5)
            game.settle()
            self.assertTrue((first == self.world(game)).all(), "the world stands still")
            screen.focus(game.window)
            game.point_at(20, 20)
            wait_for(lambda: not screen.cursor_is_visible(), "play again")
            above_sign = slice(0, 226)
            wait_for(lambda: not (first[above_sign] == self.world(game)[above_sign]).all(),
                     "a moving world")

    def world(self, game):
        return game.picture()


class Rest(unittest.TestCase):
    """A program that never rests takes a whole core. Neither bound depends on how fast or busy the
    machine is: a rest comes after the work of a frame at most, and lasts a millisecond."""

    def test_at_the_title_in_play_and_without_the_focus(self):
        with Display() as screen, Game(screen) as game:
            game.wait_for_title()
            self.assert_rests(game, "title")
            game.start_playing()
            game.point_at(300, 300)
            self.assert_rests(game, "play")
            screen.focus(screen.open_other())
            self.assert_rests(game, "without the focus")

    def assert_rests(self, game, where):
        used, rested, began = game.processor_seconds(), game.rests(), time.monotonic()
        game.let_pass(2)
        rests = game.rests() - rested
        self.assertLess((game.processor_seconds() - used) / rests, 0.001, f"{where}: work for a rest")
        self.assertLess(rests / (time.monotonic() - began), 2000, f"{where}: rests a second")


class Ends(unittest.TestCase):
    """Closing the window, "quit", with and without focus; in release and under the sanitizers."""

    def test_closing_the_window(self):
        for build, has_focus in itertools.product(("release", "asan"), (True, False)):
            with self.subTest(build=build, has_focus=has_focus), Display() as screen, \
                    Game(screen, build) as game:
                game.start_playing()
                game.point_at(30, 30)
                game.wait_for_kitten()
                if not has_focus:
                    screen.focus(screen.open_other())
                    game.settle()
                screen.close_window(game.window)
                self.assert_ends_in_order(game)

    def test_quit_from_the_script(self):
        for build in ("release", "asan"):
            with self.subTest(build=build), Display() as screen, \
                    Game(screen, build, lambda text: text + "\nquit\n") as game:
                self.assert_ends_in_order(game)

    def assert_ends_in_order(self, game):
        self.assertEqual(game.wait_for_end(), 0, game.standard_error())
        self.assertRegex(game.log(), r"(?s)New log created on.*\n\Z")
        self.assertNotIn("Gfx::FreeImage()", game.log())
        self.assertNotIn("LeakSanitizer", game.standard_error())
