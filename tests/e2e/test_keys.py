# The keys that the start-up script binds, typed on a real keyboard.

import re

import numpy

from case import GameTest
from display import wait_for
from game import ROOT, fit, load_picture


# The growing file of SDL's disk driver.
class Recorder:
    ENVIRONMENT = {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIODELAY": "5",
                   "SDL_DISKAUDIOFILE": "sound.raw"}

    def __init__(self, game):
        self.path = game.runtime / "sound.raw"
        # Two channels; the compatibility library opens a device of twice our rate, and converts.
        self.second = 44100 * 2 * (1 if game.has_classic_sdl() else 2)

    # Waits until the last second has some sound, or none.
    def wait_for_sound(self, is_heard):
        wait_for(lambda: numpy.fromfile(self.path, numpy.int16)[-self.second:].any() == is_heard,
                 f"sound {is_heard}")


class Keys(GameTest):
    # Presses the last key while the others are held.
    def press(self, *keys):
        with self.screen.held(*keys[:-1]):
            self.screen.tap(keys[-1])

    # The key for the end is one that the player's own script binds, as the console page shows.
    def test_full_screen_comes_back_and_own_lines_bind_keys(self):
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

    def test_m_stops_the_music_and_p_the_play(self):
        _, game = self.start(environment=Recorder.ENVIRONMENT)
        game.wait_for_title()
        recorder = Recorder(game)
        for is_heard in (True, False, True):
            recorder.wait_for_sound(is_heard)
            self.press("m")
        game.start_playing()
        game.point_at(5, 5)
        recorder.wait_for_sound(True)
        self.press("p")
        game.wait_for_cursor(True)
        game.wait_for_sprite("paused")
        recorder.wait_for_sound(False)
        self.press("Pause")
        game.wait_for_cursor(False)
