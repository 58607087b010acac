"""On which display the window opens, and what happens to the program when that dies."""
from case import GameTest
from display import Compositor, Display
from game import Game
from library import libraries


class X11(GameTest):
    def test_the_program_ends_at_once_with_its_window_or_its_server(self):
        def kill_window():
            self.screen.run("xdotool", "windowkill", str(self.game.window.id))

        def kill_server():
            self.screen.server.kill()

        for library in libraries():
            for kill in (kill_window, kill_server):
                with self.subTest(**library, kill=kill.__name__):
                    _, game = self.start(environment=library)
                    game.start_playing()
                    kill()
                    game.wait_for_end(status=1)
                    self.assertIn("The connection to the display is lost", game.standard_error())


class Wayland(GameTest):
    """With no DISPLAY but WAYLAND_DISPLAY: a game over SDL 2, an error message on classic SDL."""

    def test_it_plays_or_says_why_not(self):
        for library in libraries():
            with self.subTest(**library), Display() as screen, Compositor(screen) as compositor, \
                    Game(environment={**compositor.environment, **library}) as game:
                if game.has_classic_sdl():
                    game.wait_for_end()
                    self.assertRegex(game.standard_error(), r"\AThere is no display .*\n\Z")
                else:
                    self.play(screen, compositor, game)

    def play(self, screen, compositor, game):
        game.screen, game.title = screen, compositor.TITLE
        game.wait_for_title()
        game.click()
        game.wait_for_picture("help_screen")
        compositor.process.kill()
        game.wait_for_end()
        self.assertIn("Using driver: wayland", game.log())
        self.assertNotIn("<!>", game.log())
