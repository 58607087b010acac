# The developer console over the running game, with a real pointer and a real keyboard.

import subprocess

from case import GameTest
from game import fit, load_picture

FIRED = "a task mark that doesn't exist"


class Console:
    CLOSE_X, CLOSE_Y = 385, 12  # of its close button, where it opens

    def __init__(self, game):
        self.game = game
        self.close_picture = load_picture("close", "gui/{}.gif")

    def is_open(self):
        return fit(self.game.picture()[self.CLOSE_Y:, self.CLOSE_X:], self.close_picture) == 1

    def wait_until_open(self, is_open=True):
        self.game.wait_for(lambda: self.is_open() == is_open, f"a console that is open: {is_open}")

    def click(self, x, y):
        self.game.point_at(x + 5, y)  # a pointer that does not move reports no place
        self.game.click_at(x, y)
        self.game.settle()
        self.game.let_pass(0.35)  # so that the next one makes no double click


class DeveloperConsole(GameTest):
    UNDER_ESCAPE, P, UKRAINIAN_YI = 49, 33, 35  # key codes: keys by their place

    def test_keys_go_to_the_console_once_its_line_has_the_focus(self):
        screen, game = self.start(lines="keyboard::bind(k, stoptask(mark))")
        game.start_playing()
        console = Console(game)
        screen.tap("F1")
        console.wait_until_open()
        self.assertTrue(screen.cursor_is_visible())
        screen.tap("k")
        game.wait_for_log(FIRED)
        console.click(console.CLOSE_X + 10, console.CLOSE_Y + 10)
        console.wait_until_open(False)
        game.wait_for_cursor(False)
        screen.tap("grave")
        console.wait_until_open()
        console.click(100, 200)
        with screen.held("Shift_L"):
            screen.tap("minus")
        screen.tap("grave", "k", "KP_Enter")
        game.wait_for_log("( ) _`k\n")
        screen.tap("F1")
        console.wait_until_open(False)
        self.assertEqual(game.log().count(FIRED), 1, "k has typed")
        screen.tap("k")
        game.wait_for_log(FIRED, times=2)

    def test_the_key_under_escape_opens_it_in_any_layout(self):
        screen, game = self.start(lines="keyboard::bind(p, stoptask(mark))")
        game.wait_for_title()
        console = Console(game)
        for times, layout in enumerate(("ru", "ua", "fr"), 1):
            subprocess.run(["setxkbmap", layout], env=screen.environment, check=True)
            screen.tap(self.UKRAINIAN_YI, self.P)
            game.wait_for_log(FIRED, times=times)
            self.assertFalse(console.is_open(), "yi opens nothing")
            screen.tap(self.UNDER_ESCAPE)
            console.wait_until_open()
            screen.tap(self.UNDER_ESCAPE)
            console.wait_until_open(False)
