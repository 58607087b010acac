# How the program ends: with its window or display, or for want of one, of a script or of memory.

from case import GameTest
from display import Display, Scoped, run_beside, wait_for
from game import Game

LOST = "The connection to the display is lost"


# Every place that asks for memory lacks it once, each in a copy of the process.
class Starved(Game):
    PROGRAM = "brumble_starved"


# A Wayland compositor. Its one window on the screen shows its one client in full.
class Compositor(Scoped):
    def __init__(self, screen):
        self.screen = screen

    def _open(self, undo):
        self.environment = {"XDG_RUNTIME_DIR": str(self.folder), "WAYLAND_DISPLAY": "wayland-test"}
        self.process = run_beside(
            undo, ["weston", "--no-config", "--socket=wayland-test", "--shell=kiosk-shell.so",
                   "--backend=x11-backend.so", "--use-pixman", "--width=800", "--height=600"],
            env={**self.screen.environment, "XDG_RUNTIME_DIR": str(self.folder)})
        wait_for((self.folder / "wayland-test").exists, "Wayland")


class Ends(GameTest):
    def test_in_play_with_the_window_or_its_connection(self):
        for how, end in (("closed", Display.close_window), ("killed", Display.kill)):
            with self.subTest(how):
                screen, game = self.start()
                game.start_playing()
                game.wait_for_cursor(False)
                end(screen, game.window)
                game.wait_for_end(0 if how == "closed" else 1)
                self.assertIn("" if how == "closed" else LOST, game.standard_error())
                self.assertRegex(game.log(), r"(?s)New log created on.*\n\Z")
                self.assertNotIn("Gfx::FreeImage()", game.log())

    def test_without_a_display_a_line_tells_what_was_tried(self):
        for tried, display in (("x11", {}), ("wayland", {"WAYLAND_DISPLAY": "none"})):
            how = {"XDG_RUNTIME_DIR": "/", **display}
            with self.subTest(how), Game(build="asan", environment=how) as game:
                game.wait_for_end()
                reason = f"{tried} not available"
                if game.has_classic_sdl():
                    reason = "No available video device"
                line = f"There is no display to open the window on ({reason}); the program ends.\n"
                self.assertEqual(game.standard_error(), line)
                self.assertIn(line, game.log())

    # The classic library has no display there.
    def test_on_wayland_with_its_compositor(self):
        with Display() as screen, Compositor(screen) as compositor, \
                Game(environment=compositor.environment) as game:
            game.screen, game.TITLE = screen, None  # its window sets no title of the old kind
            if not (is_classic := game.has_classic_sdl()):
                game.wait_for_title()
                compositor.process.kill()
            game.wait_for_end()
            self.assertEqual("Using driver: wayland" in game.log(), not is_classic)
            self.assertEqual("<!>" in game.log(), is_classic)

    def test_without_memory_it_ends_in_order(self):
        with Starved(lines="quit", environment={"SDL_VIDEODRIVER": "dummy"}) as game:
            output = game.process.stdout.read().decode()
            game.wait_for_end()
            self.assertRegex(output, r"\A\d{3,} places, 0 faults\n\Z")
            print(output, end="")
            self.assertEqual(game.log().count("<!> There is no memory left; the program ends.\n"),
                             int(output.split()[0]))
