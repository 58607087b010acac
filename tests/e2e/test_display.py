"""On which display the window opens, and what becomes of the program when that dies."""
import unittest

from display import Compositor, Display
from game import Game
from library import libraries


class X11(unittest.TestCase):
    def test_the_program_ends_at_once_with_its_window_or_its_server(self):
        def kill_window(screen, game):
            screen.run("xdotool", "windowkill", str(game.window.id))

        def kill_server(screen, _):
            screen.server.kill()

        for library in libraries():
            for kill in (kill_window, kill_server):
                with self.subTest(**library, kill=kill.__name__), Display() as screen, \
                        Game(screen, environment=library) as game:
                    game.start_playing()
                    kill(screen, game)
                    self.assertEqual(game.wait_for_end(), 1)
                    self.assertIn("The connection to the display is lost", game.standard_error())


class Wayland(unittest.TestCase):
    """With no DISPLAY but WAYLAND_DISPLAY: a game over SDL 2, an orderly refusal on classic SDL."""

    def test_it_plays_or_is_refused(self):
        for library in libraries():
            with self.subTest(**library), Display() as screen, Compositor(screen) as compositor, \
                    Game(environment={**compositor.environment, **library}) as game:
                if game.has_classic_sdl():
                    self.assertEqual(game.wait_for_end(), 0)
                    self.assertRegex(game.standard_error(), r"\AThere is no display .*\n\Z")
                else:
                    self.play(screen, compositor, game)

    def play(self, screen, compositor, game):
        game.screen, game.title = screen, compositor.TITLE
        game.wait_for_window()
        game.wait_for_picture("title_screen")
        game.point_at(400, 300)
        game.click()
        game.wait_for_picture("help_screen")
        compositor.process.kill()
        self.assertEqual(game.wait_for_end(), 0, game.standard_error())
        self.assertIn("Using driver: wayland", game.log())
        self.assertNotIn("<!>", game.log())
