"""How the program ends: with its window or display, or for want of one, of a script or of memory."""
from case import GameTest, for_each, libraries
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
    @for_each(library=libraries, end=(("close_window", 0, ""), ("kill_window", 1, LOST),
                                      ("kill_server", 1, LOST)))
    def test_in_play_with_the_window_or_the_server(self, library, end):
        how, status, error = end
        _, game = self.start(environment=library)
        game.start_playing()
        game.wait_for_cursor(False)
        getattr(self, how)()
        game.wait_for_end(status)
        self.assertIn(error, game.standard_error())
        self.assertRegex(game.log(), r"(?s)New log created on.*\n\Z")
        self.assertNotIn("Gfx::FreeImage()", game.log())

    def close_window(self):
        self.screen.close_window(self.game.window)

    def kill_window(self):
        self.game.window.kill_client()
        self.screen.sync()

    def kill_server(self):
        self.screen.server.kill()

    @for_each(library=libraries, tried=("x11", "wayland"))
    def test_without_a_display_a_line_tells_what_was_tried(self, library, tried):
        display = {"WAYLAND_DISPLAY": "none"} if tried == "wayland" else {}
        with Game(build="asan", environment={"XDG_RUNTIME_DIR": "/", **display, **library}) as game:
            game.wait_for_end()
            reason = "No available video device" if game.has_classic_sdl() else f"{tried} not available"
            line = f"There is no display to open the window on ({reason}); the program ends.\n"
            self.assertEqual(game.standard_error(), line)
            self.assertIn(line, game.log())

    # The last library is the one over SDL 2; the classic one has no display there.
    def test_on_wayland_with_its_compositor(self):
        with Display() as screen, Compositor(screen) as compositor, \
                Game(environment={**compositor.environment, **libraries()[-1]}) as game:
            game.screen, game.TITLE = screen, None  # its window sets no title of the old kind
            game.wait_for_title()
            compositor.process.kill()
            game.wait_for_end()
            self.assertIn("Using driver: wayland", game.log())
            self.assertNotIn("<!>", game.log())

    def test_without_a_script_it_does_so_at_once(self):
        with Game(build="asan", prepare=lambda r: (r / "autoexec.txt").unlink()) as game:
            game.wait_for_end()
            self.assertIn("New log created on", game.log())
            self.assertEqual(game.standard_error(), "")

    def test_hostile_lines_do_not_hinder_it(self):
        _, game = self.start(build="asan", lines="load(autoexec.txt)\nnobody::nothing(1, 2)\n(((((\n"
                             + "a=" * 500_000 + "1\n" + "x" * 1_000_000 + "\nquit")
        game.wait_for_end()
        self.assertIn("nobody", game.log())

    def test_without_memory_it_does_so_in_order(self):
        with Starved(lines="quit", environment={"SDL_VIDEODRIVER": "dummy"}) as game:
            output = game.process.stdout.read().decode()
            game.wait_for_end()
            self.assertRegex(output, r"\A\d{3,} places, 0 faults\n\Z")
            print(output, end="")
            self.assertEqual(game.log().count("<!> There is no memory left; the program ends.\n"),
                             int(output.split()[0]))
