"""What the program sends to the sound device: SDL's disk driver writes it to a file."""
import re
import wave

import numpy

from case import GameTest
from display import wait_for
from game import ROOT, WHOLE_GAME, find_kitten, fire_burns

CHANNELS = 2
RATE = 22050


def without_music(runtime):
    script = runtime / "autoexec.txt"
    script.write_text(re.sub(r"(?m)^Audio::PlayMusic.*$", "", script.read_text()))


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


# The growing file of SDL's disk driver. It runs faster than the clock, so that a moment is the
# number of frames written when something was seen.
class Recorder:
    ENVIRONMENT = {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIODELAY": "5",
                   "SDL_DISKAUDIOFILE": "sound.raw"}

    def __init__(self, game):
        self.path = game.runtime / "sound.raw"
        # The compatibility library opens a device of twice our rate, and converts.
        self.step = CHANNELS * (1 if game.has_classic_sdl() else 2)

    def moment(self):
        return self.path.stat().st_size // (2 * self.step)

    # Waits until something is seen; returns a moment at which it was not yet.
    def last_moment_before(self, is_seen, what):
        moments = [0, 0]

        def look():
            moments.append(self.moment())
            return is_seen()
        wait_for(look, what)
        return moments[-2]

    def heard(self, since=0):
        data = numpy.fromfile(self.path, numpy.int16, offset=2 * self.step * since)
        return data[:len(data) // self.step * self.step:self.step].astype(float)

    # Waits until the last second has some sound, or none.
    def wait_for_sound(self, is_heard):
        wait_for(lambda: self.heard()[-RATE:].any() == is_heard, f"sound {is_heard}")


class Sound(GameTest):
    def test_a_fire_is_heard_when_it_is_seen(self):
        _, game = self.start(prepare=without_music, environment=Recorder.ENVIRONMENT)
        game.start_playing()
        game.point_at(5, 5)
        recorder, empty = Recorder(game), game.picture()
        quiet = recorder.last_moment_before(lambda: find_kitten(game.picture()), "a kitten")
        self.assertFalse(recorder.heard()[:quiet].any(), "silence before any hit")
        dark = recorder.last_moment_before(lambda: fire_burns(game.picture(), empty), "the fire")
        seen = recorder.moment()
        wait_for(lambda: recorder.moment() > seen + 2 * RATE, "two seconds of sound")
        before = max(0, dark - 2 * RATE)  # its first flames are lost among those of the pit
        self.assertGreater(fit_of_sound(recorder.heard(before), effect("kitten_burn")), 0.9)

    def test_without_a_device_the_game_plays_on(self):
        _, game = self.start(environment={"SDL_AUDIODRIVER": "none"})
        game.start_playing()
        game.wait_for_log("Error description: ")
        game.point_at(5, 5)
        game.wait_for_log("Gameover", seconds=WHOLE_GAME)
