"""The developer console over the running game, with a real pointer and a real keyboard."""
import contextlib
import time
import unittest

import numpy

from console import Console
from display import Display, wait_for
from game import Game, fit, load_picture, matches

# Bound keys leave a mark in the log; the frames of a second show.
BINDINGS = """
debug_show_fps = 1
keyboard::bind(k, stoptask(mark))
keyboard::bind(left_ctrl j, stoptask(marks))
"""
FIRED = "a task mark that doesn't exist"
FIRED_TOGETHER = "a task marks that doesn't exist"


@contextlib.contextmanager
def playing(build="release", **how):
    with Display() as screen, Game(screen, build, lambda text: text + BINDINGS, **how) as game:
        game.start_playing()
        yield screen, game, Console(screen, game)


class DeveloperConsole(unittest.TestCase):
    def test_typing(self):
        with playing() as (screen, game, console):
            screen.tap("F1")
            console.wait_for_rect((10, 10, 400, 200))
            self.assertTrue(screen.cursor_is_visible())
            self.assert_keys_fire(screen, game, times=1)
            screen.tap("Escape")
            console.wait_until_closed()
            screen.tap("grave")
            console.click_input()
            shown = console.log_picture()
            for line, answer in (("nothing_at_all", "nothing_at_all"),
                                 ("kernel_frame_sleep = 2", "2"),
                                 ("stoptask(nobody)", "a task nobody that doesn't exist")):
                console.enter(line)
                game.wait_for_log(f"{line}\n")
                wait_for(lambda: answer in game.log().split(line + "\n", 1)[-1], answer)
            console.wait_for_change(shown)
            console.enter("starttask(unittest, selftest)")
            game.wait_for_log("All tests OK")
            self.assertEqual(game.log().count(FIRED), 1, "k has typed")
            self.assert_held_key_repeats(screen, game, console)
            console.type("` is typed")
            screen.tap("KP_Enter")
            game.wait_for_log("( ) ` is typed\n")
            screen.tap("F1")
            console.wait_until_closed()
            game.settle()
            self.assertIsNone(console.rect(), "it has not been opened again")
            self.assert_keys_fire(screen, game, times=2)
            self.assertEqual(game.end_in_order(), 0, game.standard_error())

    def assert_keys_fire(self, screen, game, times):
        screen.tap("k")
        game.wait_for_log(FIRED, times=times)
        screen.press_key("Control_L")
        screen.tap("j")
        screen.release_key("Control_L")
        game.wait_for_log(FIRED_TOGETHER, times=times)

    def assert_held_key_repeats(self, screen, game, console):
        console.enter("x_once")
        game.wait_for_log("( ) x_once\n")
        screen.press_key("x")
        console.wait_for_input(80)
        screen.release_key("x")
        console.enter("_end")
        game.wait_for_log("xxxxxxxx_end\n")

    def test_the_window(self):
        with playing() as (screen, game, console):
            screen.tap("F1")
            console.wait_for_rect((10, 10, 400, 200))
            for start, end, rect in (((150, 22), (250, 122), (110, 110, 400, 200)),
                                     ((509, 200), (609, 200), (110, 110, 500, 200)),
                                     ((609, 309), (579, 359), (110, 110, 470, 250))):
                console.drag(start, end)
                console.wait_for_rect(rect)
            x, y, w, _ = rect
            console.click(x + w - 40, y + 12)
            console.wait_for_rect((0, 0, 800, 600))
            console.click(800 - 40, 12)
            console.wait_for_rect((110, 110, 470, 250))
            console.click(x + w - 15, y + 12)
            console.wait_until_closed()
            self.assert_the_view_scrolls(screen, game, console)
            self.assert_the_figure_can_be_dragged(game, console)
            self.assert_no_button_sticks(screen, game, console)
            self.assertEqual(game.end_in_order(), 0, game.standard_error())

    def assert_the_view_scrolls(self, screen, game, console):
        screen.tap("p")  # a game that goes on has something to log at any time
        screen.tap("F1")
        console.click_input()
        screen.move_pointer(5, 5)
        game.settle()
        end = console.log_picture()
        screen.tap("Prior")
        scrolled = console.wait_for_change(end)
        console.enter("more_lines")
        game.wait_for_log("more_lines\n")
        game.settle()
        self.assertTrue(numpy.array_equal(console.log_picture(), scrolled), "it stays in its place")
        screen.tap("Next")
        end = console.wait_for_change(scrolled)
        console.turn_wheel(4)
        console.wait_for_change(end)
        console.turn_wheel(5)
        wait_for(lambda: numpy.array_equal(console.log_picture(), end), "and back")
        console.click(600, 450)

    def assert_the_figure_can_be_dragged(self, game, console):
        place, moved = (714, 10), (509, 300)
        label = self.label_at(game, place)
        self.assertGreater(label.sum(), 30, "a label in white")
        console.drag((place[0] + 10, place[1] + 10), (moved[0] + 10, moved[1] + 10))
        wait_for(lambda: numpy.array_equal(self.label_at(game, moved), label), "the moved label")
        self.assertEqual(self.label_at(game, place).sum(), 0)

    def label_at(self, game, place):
        """The white pixels of "Fps:" there."""
        x, y = place
        return (game.picture()[y:y + 14, x:x + 24] == 255).all(axis=2)

    def assert_no_button_sticks(self, screen, game, console):
        """A window that is dragged while the focus goes is not dragged on afterwards."""
        x, y, _, _ = console.rect()
        game.point_at(x + 100, y + 12)
        screen.press(1)
        screen.focus(screen.open_other())
        screen.move_pointer(1200, 900)
        screen.release(1)
        screen.focus(game.window)
        game.point_at(100, 250)
        game.settle()
        rect = console.rect()
        game.point_at(150, 300)
        game.settle()
        self.assertEqual(console.rect(), rect)

    def test_a_click_on_it_leaves_the_screen_behind_it(self):
        with Display() as screen, Game(screen) as game:
            game.wait_for_title()
            self.assertEqual(fit(game.picture()[:40, 700:], load_picture("title_screen")[:40, 700:]),
                             1, "no frames of a second")
            console = Console(screen, game)
            screen.tap("F1")
            console.wait_for_rect((10, 10, 400, 200))
            for name in ("title_screen", "help_screen"):
                game.wait_for_picture(name)
                console.click(200, 100)
                self.assertTrue(matches(game.picture(), load_picture(name)), name)
                console.click(600, 450)
            game.settle()
            self.assertFalse(matches(game.picture(), load_picture("help_screen")))
            self.assertTrue(screen.cursor_is_visible(), "the game has asked to hide it")
            screen.tap("Escape")
            game.wait_for(lambda: not screen.cursor_is_visible(), "the hidden pointer of play")
            self.assertEqual(game.end_in_order(), 0, game.standard_error())

    def test_recording_and_playback(self):
        with Display() as screen:
            script = "\ndebug::RecordInput(game.rec)\n"
            with Game(screen, script=lambda text: text + script) as game:
                game.start_playing()
                for step in range(120):
                    game.point_at(100 + step * 5, 250 + step * 37 % 200)
                    time.sleep(0.02)
                game.end_in_order()
                recorded = (game.runtime / "game.rec").read_text()
            self.assertGreater(recorded.count("mm"), 60)
            self.assertEqual(recorded.count("md"), 2)
            screen.move_pointer(1275, 955)
            script = ("\ndebug::PlaybackInput(game.rec)\nstarttask(debug, recorder, 61)\n"
                      "recorder::RecordInput(copy.rec)\n")
            with Game(screen, script=lambda text: text + script,
                      prepare=lambda folder: (folder / "game.rec").write_text(recorded)) as game:
                copy = game.runtime / "copy.rec"
                events = recorded.split("\n")[1:]  # behind the seed
                wait_for(lambda: copy.exists() and copy.read_text().split("\n")[1:] == events,
                         "the same record")
