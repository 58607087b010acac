"""The developer console over the running game, with a real pointer and a real keyboard."""
from case import GameTest
from console import Console

FIRED = "a task mark that doesn't exist"


class DeveloperConsole(GameTest):
    def test_keys_go_to_the_console_once_its_line_has_the_focus(self):
        screen, game = self.start(lines="keyboard::bind(k, stoptask(mark))")
        game.start_playing()
        console = Console(screen, game)
        console.open()
        self.assertTrue(screen.cursor_is_visible())
        screen.tap("k")
        game.wait_for_log(FIRED)
        console.click(395, 22)
        console.wait_for_place(None)
        game.wait_for_cursor(False)
        screen.tap("grave")
        console.wait_for_place((10, 10))
        console.click(100, 200)
        console.enter("starttask(unittest, selftest)", "All tests OK")
        console.enter("_`k", "_`k", end="KP_Enter")
        screen.tap("F1")
        console.wait_for_place(None)
        self.assertEqual(game.log().count(FIRED), 1, "k has typed")
        screen.tap("k")
        game.wait_for_log(FIRED, times=2)
