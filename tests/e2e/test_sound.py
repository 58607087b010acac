"""What the program sends to the sound device: SDL's disk driver writes it to a file."""
import re
import wave

import numpy

from case import GameTest
from display import wait_for
from game import ROOT, WHOLE_GAME, fire_burns

CHANNELS = 2
RATE = 44100


def without_music(runtime):
    script = runtime / "autoexec.txt"
    script.write_text(re.sub(r"(?m)^game_music.*$", "", script.read_text()))


def effect(name):
    with wave.open(str(ROOT / "runtime/data/sfx" / f"{name}.wav")) as file:
        samples = numpy.frombuffer(file.readframes(file.getnframes()), numpy.int16)
        return samples[::file.getnchannels()].astype(float)


# How well the sound fits where it fits best: 1 is the sound itself.
def fit_of_sound(heard, sound):
    if len(heard) < len(sound):
        return 0.0
    size = 1 << int(numpy.ceil(numpy.log2(len(heard) + len(sound))))
    match = numpy.fft.irfft(numpy.fft.rfft(heard, size) * numpy.conj(numpy.fft.rfft(sound, size)))
    energy = numpy.concatenate(([0.0], numpy.cumsum(heard ** 2)))
    windows = energy[len(sound):] - energy[:-len(sound)]
    return (match[:len(windows)] / numpy.sqrt(numpy.maximum(windows, 1.0) * (sound ** 2).sum())).max()


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
    def test_a_fire_that_is_seen_is_heard(self):
        _, game = self.start(prepare=without_music, environment=Recorder.ENVIRONMENT)
        game.start_playing()
        game.point_at(5, 5)
        recorder, empty, sound = Recorder(game), game.picture(), effect("kitten_burn")
        game.wait_for(lambda: fire_burns(game.picture(), empty), "the fire")
        wait_for(lambda: fit_of_sound(recorder.heard(), sound) > 0.6, "its sound")  # beside that of the flames

    def test_who_silences_the_music_has_silence_on_every_screen(self):
        unnamed = "\n".join(f"game_music_{tune} =" for tune in ("title", "play", "last"))
        for lines, is_heard in (("", True), ("Audio::StopMusic", False), (unnamed, False)):
            with self.subTest(lines):
                _, game = self.start(environment=Recorder.ENVIRONMENT, prepare=lambda runtime: (
                    runtime / "user.txt").write_text(f"audio_effect_volume = 0\n{lines}\n"))
                game.start_playing()
                recorder = Recorder(game)
                size = len(recorder.heard()) + 2 * RATE  # the tunes begin with a rest
                wait_for(lambda: len(recorder.heard()) > size, "two seconds of play")
                self.assertEqual(recorder.heard().any(), is_heard)

    def test_without_a_device_the_game_plays_on(self):
        _, game = self.start(environment={"SDL_AUDIODRIVER": "none"})
        game.start_playing()
        game.wait_for_log("Error description: ")
        game.point_at(5, 5)
        game.wait_for_log("Gameover", seconds=WHOLE_GAME)
