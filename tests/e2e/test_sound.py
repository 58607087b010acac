"""What the program sends to the sound device: SDL's disk driver writes it to a file."""
import numpy

from case import GameTest
from display import wait_for
from game import WHOLE_GAME

RATE, CHANNELS = 44100, 2


# The growing file of SDL's disk driver.
class Recorder:
    ENVIRONMENT = {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIODELAY": "5",
                   "SDL_DISKAUDIOFILE": "sound.raw"}

    def __init__(self, game):
        self.path = game.runtime / "sound.raw"
        # The compatibility library opens a device of twice our rate, and converts.
        self.step = CHANNELS * (1 if game.has_classic_sdl() else 2)

    def heard(self):
        data = numpy.fromfile(self.path, numpy.int16)
        return data[:len(data) // self.step * self.step:self.step].astype(float)

    # Waits until the last second has some sound, or none.
    def wait_for_sound(self, is_heard):
        wait_for(lambda: self.heard()[-RATE:].any() == is_heard, f"sound {is_heard}")


class Sound(GameTest):
    def test_without_music_and_effects_play_is_silent(self):
        _, game = self.start(environment=Recorder.ENVIRONMENT,
                             lines="audio_effect_volume = 0\nAudio::StopMusic")
        game.start_playing()
        recorder = Recorder(game)
        size = len(recorder.heard()) + 2 * RATE  # the tunes begin with a rest
        wait_for(lambda: len(recorder.heard()) > size, "two seconds of play")
        self.assertFalse(recorder.heard().any())

    def test_effects_are_heard_without_music(self):
        _, game = self.start(environment=Recorder.ENVIRONMENT, lines="Audio::StopMusic")
        game.start_playing()
        Recorder(game).wait_for_sound(True)

    def test_without_a_device_the_game_plays_on(self):
        _, game = self.start(environment={"SDL_AUDIODRIVER": "none"})
        game.start_playing()
        game.wait_for_log("Error description: ")
        game.point_at(5, 5)
        game.wait_for_log("Gameover", seconds=WHOLE_GAME)
