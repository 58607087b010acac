"""The screens, the focus, and every way in which the program ends."""
import re
import subprocess
import time
import unittest

from display import Display, Other, wait_for
from game import Game, load_picture, matches, program


class Screens(unittest.TestCase):
    def run_screens(self, **how):
        with Display() as screen, Game(screen, **how) as game:
            game.wait_for_window()
            game.point_at(400, 300)
            game.wait_for_picture("title_screen")
            self.assertTrue(screen.cursor_is_visible(), "the title shows the cursor")
            game.click(3)
            time.sleep(0.4)
            self.assertTrue(matches(game.picture(), load_picture("title_screen")),
                            "a right click changes nothing")
            game.click()
            game.wait_for_picture("help_screen")
            self.assert_shows_bubbles(game)
            self.assertTrue(screen.cursor_is_visible(), "help shows the cursor")
            game.click()
            wait_for(lambda: not screen.cursor_is_visible(), 5, "a hidden cursor in play")
            game.wait_for_picture("background")
            screen.close_window(game.window)
            self.assertEqual(game.wait_for_end(), 0)

    def assert_shows_bubbles(self, game):
        bubbles = load_picture("help_bubbles")
        solid = bubbles[:, :, 3] == 255
        self.assertGreater(solid.sum(), 1000)
        text = (game.runtime / "data/gfx/help_bubbles.xml").read_text()
        x, y = (int(re.search(rf'ImageRect[^>]*\b{axis}="(-?\d+)"', text).group(1)) for axis in "xy")

        def shown():
            part = game.picture()[y:y + bubbles.shape[0], x:x + bubbles.shape[1]]
            return (abs(part.astype(int) - bubbles[:, :, :3]).max(axis=2)[solid] <= 4).mean() > 0.9
        wait_for(shown, 5, "the help bubbles")

    def test_title_help_play(self):
        self.run_screens()

    def test_title_help_play_on_the_compatibility_library(self):
        folder = compatibility_library()
        self.run_screens(environment={"LD_LIBRARY_PATH": folder})


class Focus(unittest.TestCase):
    def test_losing_the_focus_freezes_play(self):
        with Display() as screen, Game(screen) as game, Other(screen) as other:
            game.start_playing()
            # The cursor is part of the picture where it shows: keep it outside the window.
            screen.move_pointer(5, 5)
            game.wait_for_kitten()
            other.take_focus()
            wait_for(screen.cursor_is_visible, 5, "the cursor without focus")
            time.sleep(0.3)
            first = self.world(game)
            screen.move_pointer(15, 5)
            time.sleep(1.0)
            self.assertTrue((first == self.world(game)).all(), "the world stands still")
            screen.run("xdotool", "windowfocus", "--sync", str(game.window.id))
            game.point_at(20, 20)
            wait_for(lambda: not screen.cursor_is_visible(), 5, "play again")
            wait_for(lambda: not (first == self.world(game)).all(), 5, "a moving world")

    def world(self, game):
        return game.picture()[:560]  # the frame rate below it changes also while play stands still

    def test_the_title_starts_nothing_when_the_focus_comes_back(self):
        with Display() as screen, Game(screen) as game, Other(screen) as other:
            game.wait_for_window()
            game.point_at(400, 300)
            game.wait_for_picture("title_screen")
            other.take_focus()
            time.sleep(0.5)
            screen.run("xdotool", "windowfocus", "--sync", str(game.window.id))
            time.sleep(1.0)
            self.assertTrue(matches(game.picture(), load_picture("title_screen"), 0.9))
            self.assertFalse(screen.cursor_is_visible(), "coming back hides the cursor anywhere")


class Ends(unittest.TestCase):
    """Closing the window, "quit", with and without the focus; in release and under the sanitizers."""

    def test_closing_the_window(self):
        for build in ("release", "asan"):
            for focus in ("with", "without"):
                with self.subTest(build=build, focus=focus):
                    self.close_in_play(build, focus)

    def close_in_play(self, build, focus):
        with Display() as screen, Game(screen, build=build) as game, Other(screen) as other:
            game.start_playing()
            game.point_at(30, 30)
            game.wait_for_kitten()
            if focus == "without":
                other.take_focus()
                time.sleep(0.3)
            screen.close_window(game.window)
            self.assertEqual(game.wait_for_end(30), 0, game.standard_error())
            self.assert_log_is_whole(game)

    def assert_log_is_whole(self, game):
        log = game.log()
        self.assertIn("New log created on", log)
        self.assertTrue(log.endswith("\n"))
        self.assertNotIn("Gfx::FreeImage()", log)
        self.assertNotIn("LeakSanitizer", game.standard_error())

    def test_quit_from_the_script(self):
        for build in ("release", "asan"):
            with self.subTest(build=build), Display() as screen, \
                    Game(screen, build=build, script=lambda text: text + "\nquit\n") as game:
                self.assertEqual(game.wait_for_end(30), 0, game.standard_error())
                self.assert_log_is_whole(game)


def compatibility_library():
    """The folder of Debian's SDL 1.2 over SDL 2, unpacked beside the build, never installed."""
    from game import ROOT
    folder = ROOT / "build" / "sdl12-compat"
    found = list(folder.rglob("libSDL-1.2.so.0"))
    if not found:
        folder.mkdir(parents=True, exist_ok=True)
        subprocess.run(["apt-get", "download", "-qq", "libsdl1.2-compat"], cwd=folder, check=True)
        for package in folder.glob("*.deb"):
            subprocess.run(["dpkg", "-x", package, folder], check=True)
        found = list(folder.rglob("libSDL-1.2.so.0"))
    return str(found[0].parent)
