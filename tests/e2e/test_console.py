"""The developer console over the running game, with a real pointer and a real keyboard."""
import time

import numpy

from case import GameTest
from console import Console
from display import wait_for
from game import Game, fit, load_picture

# Bound keys leave a mark in the log; the frames of a second show.
BINDINGS = """
debug_show_fps = 1
keyboard::bind(k, stoptask(mark))
keyboard::bind(left_ctrl j, stoptask(marks))"""
FIRED = "a task mark that doesn't exist"
FIRED_TOGETHER = "a task marks that doesn't exist"


class DeveloperConsole(GameTest):
    def start_console(self, lines=BINDINGS):
        screen, game = self.start(lines=lines)
        game.start_playing()
        self.console = Console(screen, game)
        self.console.open()
        return screen, game, self.console

    def test_keys_go_to_the_console_once_its_line_has_the_focus(self):
        screen, game, console = self.start_console()
        self.assertTrue(screen.cursor_is_visible())
        self.assert_keys_fire(times=1)
        screen.tap("Escape")
        console.wait_for_rect(None)
        screen.tap("grave")
        console.click_input()
        shown = console.view()
        for line, result in (("nothing_at_all", "nothing_at_all"),
                             ("kernel_frame_sleep = 2", "2"),
                             ("stoptask(nobody)", "a task nobody that doesn't exist")):
            console.enter(line)
            game.wait_for_log(f"{line}\n")
            wait_for(lambda: result in game.log().split(line + "\n", 1)[-1], result)
        console.wait_for_change(shown)
        console.enter("starttask(unittest, selftest)")
        game.wait_for_log("All tests OK")
        self.assertEqual(game.log().count(FIRED), 1, "k has typed")
        self.assert_held_key_repeats()
        screen.type("` is typed")
        screen.tap("KP_Enter")
        game.wait_for_log("( ) ` is typed\n")
        screen.tap("F1")
        console.wait_for_rect(None)
        game.settle()
        self.assertIsNone(console.rect(), "it has not been opened again")
        self.assert_keys_fire(times=2)
        game.close_window()

    def assert_keys_fire(self, times):
        self.screen.tap("k")
        self.game.wait_for_log(FIRED, times=times)
        with self.screen.held("Control_L"):
            self.screen.tap("j")
        self.game.wait_for_log(FIRED_TOGETHER, times=times)

    def assert_held_key_repeats(self):
        self.console.enter("x_once")
        self.game.wait_for_log("( ) x_once\n")
        with self.screen.held("x"):
            self.console.wait_for_input(80)
        self.console.enter("_end")
        self.game.wait_for_log("xxxxxxxx_end\n")

    def test_dragging_resizing_and_the_buttons_of_the_window(self):
        _, game, console = self.start_console()
        for start, end, rect in (((150, 22), (250, 122), (110, 110, 400, 200)),
                                 ((509, 200), (609, 200), (110, 110, 500, 200)),
                                 ((609, 309), (579, 359), (110, 110, 470, 250))):
            console.drag(start, end)
            console.wait_for_rect(rect)
        x, y, w, _ = rect
        console.click(x + w - 40, y + 12)
        console.wait_for_rect((0, 0, 800, 600))
        console.click(800 - 40, 12)
        console.wait_for_rect(rect)
        self.assert_no_button_sticks(rect)
        console.click(x + w - 15, y + 12)
        console.wait_for_rect(None)
        game.close_window()

    # A window that is dragged while the focus goes is not dragged on afterwards.
    def assert_no_button_sticks(self, rect):
        screen, game = self.screen, self.game
        game.point_at(rect[0] + 100, rect[1] + 12)
        screen.press(1)
        screen.focus(screen.open_other())
        screen.move_pointer(1200, 900)
        screen.release(1)
        screen.focus(game.window)
        game.point_at(100, 250)
        game.settle()
        game.point_at(150, 300)
        game.settle()
        self.assertEqual(self.console.rect(), rect)

    def test_the_view_scrolls(self):
        screen, game, console = self.start_console()
        screen.tap("p")  # a game that goes on has something to log at any time
        console.click_input()
        screen.move_pointer(5, 5)
        game.settle()
        end = console.view()
        screen.tap("Prior")
        scrolled = console.wait_for_change(end)
        console.enter("more_lines")
        game.wait_for_log("more_lines\n")
        game.settle()
        self.assertTrue(console.view_is(scrolled), "it does not jump to the new line")
        screen.tap("Next")
        end = console.wait_for_change(scrolled)
        console.turn_wheel(4)
        console.wait_for_change(end)
        console.turn_wheel(5)
        wait_for(lambda: console.view_is(end), "and back")

    def test_the_figure_can_be_dragged(self):
        _, _, console = self.start_console()
        place, moved = (714, 10), (509, 300)
        wait_for(lambda: self.label_at(place).sum() > 30, "a label in white")
        label = self.label_at(place)
        console.drag((place[0] + 10, place[1] + 10), (moved[0] + 10, moved[1] + 10))
        wait_for(lambda: numpy.array_equal(self.label_at(moved), label), "the moved label")
        self.assertEqual(self.label_at(place).sum(), 0)

    # The white pixels of "Fps:" there.
    def label_at(self, place):
        x, y = place
        return (self.game.picture()[y:y + 14, x:x + 24] == 255).all(axis=2)

    def test_a_click_on_it_does_not_reach_the_game(self):
        screen, game = self.start()
        game.wait_for_title()
        corner = load_picture("title_screen")[:40, 700:]
        self.assertEqual(fit(game.picture()[:40, 700:], corner), 1, "no frames of a second")
        console = Console(screen, game)
        console.open()
        for name in ("title_screen", "help_screen"):
            game.wait_for_picture(name)
            console.click(200, 100)
            self.assertTrue(game.shows(name), name)
            console.click(600, 450)
        game.settle()
        self.assertFalse(game.shows("help_screen"))
        self.assertTrue(screen.cursor_is_visible(), "the game has tried to hide it")
        screen.tap("Escape")
        game.wait_for_cursor(False)
        game.close_window()

    def test_a_recording_plays_back_the_same_events(self):
        screen, game = self.start(lines="debug::RecordInput(game.rec)")
        game.start_playing()
        for step in range(120):
            game.point_at(100 + step * 5, 250 + step * 37 % 200)
            time.sleep(0.02)
        game.close_window()
        recorded = (game.runtime / "game.rec").read_text()
        self.assertGreater(recorded.count("mm"), 60)
        self.assertEqual(recorded.count("md"), 2)
        screen.move_pointer(1275, 955)
        lines = ("debug::PlaybackInput(game.rec)\nstarttask(debug, recorder, 61)\n"
                 "recorder::RecordInput(copy.rec)")
        with Game(screen, lines=lines,
                  prepare=lambda runtime: (runtime / "game.rec").write_text(recorded)) as game:
            copy = game.runtime / "copy.rec"
            events = recorded.split("\n")[1:]  # after the seed
            wait_for(lambda: copy.exists() and copy.read_text().split("\n")[1:] == events,
                     "the same record")
