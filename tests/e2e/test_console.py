"""The developer console over the running game, with a real pointer and a real keyboard."""
from case import GameTest
from console import Console

FIRED = "a task mark that doesn't exist"


class DeveloperConsole(GameTest):
    def start_console(self, lines=""):
        screen, game = self.start(lines=lines)
        game.start_playing()
        console = Console(screen, game)
        console.open()
        return screen, game, console

    def test_keys_go_to_the_console_once_its_line_has_the_focus(self):
        screen, game, console = self.start_console("keyboard::bind(k, stoptask(mark))")
        self.assertTrue(screen.cursor_is_visible())
        screen.tap("k")
        game.wait_for_log(FIRED)
        screen.tap("Escape")
        console.wait_for_rect(None)
        screen.tap("grave")
        console.click_input()
        screen.move_pointer(5, 5)
        console.enter("starttask(unittest, selftest)")
        game.wait_for_log("All tests OK")
        with screen.held("x"):
            console.wait_for_input(80)
        screen.type("_`k")
        screen.tap("KP_Enter")
        game.wait_for_log("xxxxxxxx_`k\n")
        screen.tap("F1")
        console.wait_for_rect(None)
        game.settle()
        self.assertIsNone(console.rect(), "it has not been opened again")
        self.assertEqual(game.log().count(FIRED), 1, "k has typed")
        screen.tap("k")
        game.wait_for_log(FIRED, times=2)

    def test_dragging_resizing_and_the_buttons_of_the_window(self):
        _, _, console = self.start_console()
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
        console.click(x + w - 15, y + 12)
        console.wait_for_rect(None)

    def test_a_click_on_it_does_not_reach_the_game(self):
        screen, game = self.start()
        game.wait_for_title()
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
