"""The keys that the start-up script binds, typed on a real keyboard."""
import re
import textwrap
import time
import unittest

from console import Console
from display import Display, wait_for
from game import ROOT, Game, find_kitten
from library import libraries
from test_sound import RATE, Recorder


class Keys(unittest.TestCase):
    def test_full_screen_and_the_end(self):
        with Display() as screen, Game(screen) as game:
            game.wait_for_title()
            for keys in (["F11"], ["Alt_L", "Return"], ["Return", "Alt_R"]):
                self.type(screen, keys)
                game.wait_for_full_screen("title_screen")
                self.type(screen, keys)
                game.wait_for_picture("title_screen")
            self.type(screen, ["Escape"])
            self.assertEqual(game.wait_for_end(), 0, game.standard_error())

    def test_music_and_pause(self):
        with Display() as screen, Game(screen, environment=Recorder.ENVIRONMENT) as game:
            game.wait_for_title()
            recorder = Recorder(game)
            for is_heard in (True, False, True):
                self.wait_for_music(recorder, is_heard)
                self.type(screen, ["m"])
            self.wait_for_music(recorder, False)
            game.start_playing()
            game.point_at(5, 5)
            game.wait_for_kitten()
            self.type(screen, ["p"])
            wait_for(screen.cursor_is_visible, "the pointer of a pause")
            game.settle()
            place = find_kitten(game.picture())
            game.settle()
            self.assertEqual(find_kitten(game.picture()), place)
            game.wait_for_sprite("paused")
            wait_for(lambda: not recorder.heard()[-RATE:].any(), "the last M")
            self.type(screen, ["Pause"])
            wait_for(lambda: find_kitten(game.picture()) != place, "play after the pause")
            wait_for(lambda: not screen.cursor_is_visible(), "its hidden pointer")

    def test_own_lines(self):
        """What a player writes into user.txt adds to the script, as the page on the console shows."""
        page = (ROOT / "docs/console.md").read_text()
        lines = re.search(r"## Your own lines\n[^#]*?\n\n((?:    .*\n)+)", page).group(1)

        def prepare(runtime):
            (runtime / "user.txt").write_text(textwrap.dedent(lines))

        with Display() as screen, Game(screen, prepare=prepare) as game:
            game.wait_for_title()
            self.type(screen, ["q"])
            self.assertEqual(game.wait_for_end(), 0, game.standard_error())

    def wait_for_music(self, recorder, is_heard):
        """Before play nothing else is to be heard."""
        wait_for(lambda: recorder.heard()[-RATE:].any() == is_heard, f"music {is_heard}")

    def type(self, screen, keys):
        """Holds the keys together for a while."""
        for key in keys:
            screen.press_key(key)
        time.sleep(0.3)
        for key in reversed(keys):
            screen.release_key(key)
        time.sleep(0.1)  # SDL takes a press that follows at once for a repetition


class Layouts(unittest.TestCase):
    UNDER_ESCAPE, P, UKRAINIAN_YI = 49, 33, 35  # key codes: keys by their place

    def test_keys_with_other_names(self):
        for library in libraries():
            with self.subTest(library), Display() as screen, Game(
                    screen, script=lambda text: text + "\nkeyboard::bind(p, stoptask(mark))\n",
                    environment=library) as game:
                game.wait_for_title()
                console = Console(screen, game)
                for times, layout in enumerate(("ru", "ua", "fr"), 1):
                    screen.run("setxkbmap", layout)
                    screen.tap(self.UKRAINIAN_YI, self.P)
                    game.wait_for_log("a task mark that", times=times)
                    self.assertIsNone(console.rect(), "yi opens nothing")
                    screen.tap(self.UNDER_ESCAPE)
                    wait_for(console.rect, f"the console with the layout {layout}")
                    screen.tap(self.UNDER_ESCAPE)
                    console.wait_until_closed()
