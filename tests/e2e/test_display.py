"""On which display the window opens, and what happens to the program when that dies."""
from case import GameTest, for_each
from display import Compositor, Display
from game import Game
from library import libraries


def kill_window(screen, game):
    screen.run("xdotool", "windowkill", str(game.window.id))


def kill_server(screen, _):
    screen.server.kill()


class X11(GameTest):
    @for_each(library=libraries, kill=(kill_window, kill_server))
    def test_the_program_ends_at_once_with_its_window_or_its_server(self, library, kill):
        screen, game = self.start(environment=library)
        game.start_playing()
        kill(screen, game)
        game.wait_for_end(status=1)
        self.assertIn("The connection to the display is lost", game.standard_error())


# With no DISPLAY but WAYLAND_DISPLAY: a game over SDL 2, an error message on classic SDL.
class Wayland(GameTest):
    @for_each(library=libraries)
    def test_it_plays_or_says_why_not(self, library):
        with Display() as screen, Compositor(screen) as compositor, \
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
