"""The keys that the start-up script binds, typed on a real keyboard."""
import re

from case import GameTest, for_each, libraries
from console import Console
from game import ROOT, find_kitten, fit, load_picture
from test_sound import Recorder


class Keys(GameTest):
    # Presses the last key while the others are held.
    def press(self, *keys):
        with self.screen.held(*keys[:-1]):
            self.screen.tap(keys[-1])

    # The key for the end is one that the player's own script binds, as the console page shows.
    def test_full_screen_and_own_lines(self):
        own = re.search(r"\n    (keyboard::bind\(q, .*)", (ROOT / "docs/console.md").read_text())[1]
        _, game = self.start(prepare=lambda runtime: (runtime / "user.txt").write_text(own))
        game.wait_for_title()
        title = load_picture("title_screen")
        for keys in (["F11"], ["Alt_L", "Return"], ["Return", "Alt_R"]):
            self.press(*keys)
            game.wait_for(lambda: fit(game.full_screen_picture(), title) > 0.8, "full screen")
            self.press(*keys)
            game.wait_for_picture("title_screen")
        self.press("q")
        game.wait_for_end()

    def test_music_and_pause(self):
        _, game = self.start(environment=Recorder.ENVIRONMENT)
        game.wait_for_title()
        recorder = Recorder(game)
        for is_heard in (True, False, True):
            recorder.wait_for_sound(is_heard)
            self.press("m")
        game.start_playing()
        game.point_at(5, 5)
        game.wait_for_kitten()
        self.press("p")
        game.wait_for_cursor(True)
        game.wait_for_sprite("paused")
        recorder.wait_for_sound(False)
        place = find_kitten(game.picture())
        self.press("Pause")
        game.wait_for(lambda: find_kitten(game.picture()) != place, "play after the pause")
        game.wait_for_cursor(False)


class Layouts(GameTest):
    UNDER_ESCAPE, P, UKRAINIAN_YI = 49, 33, 35  # key codes: keys by their place

    @for_each(library=libraries)
    def test_keys_with_other_names(self, library):
        screen, game = self.start(lines="keyboard::bind(p, stoptask(mark))", environment=library)
        game.wait_for_title()
        console = Console(screen, game)
        for times, layout in enumerate(("ru", "ua", "fr"), 1):
            screen.run("setxkbmap", layout)
            screen.tap(self.UKRAINIAN_YI, self.P)
            game.wait_for_log("a task mark that", times=times)
            self.assertIsNone(console.place(), "yi opens nothing")
            screen.tap(self.UNDER_ESCAPE)
            console.wait_for_place((10, 10))
            screen.tap(self.UNDER_ESCAPE)
            console.wait_for_place(None)
