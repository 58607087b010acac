"""The tune: a sneaking polka in D minor, 24 bars that lead back to their beginning.

Played by a tuba, a squeezebox, a marimba, a whistle and two kitchen drums.
"""
import sys

import numpy as np

from synth import RATE, phase, save, seconds

BEAT = 60.0 / 138          # seconds
NAMES = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}

# one entry a bar: bass note, fifth in the bass, chord notes
CHORDS = {
    "Dm": ("D2", "A2", ("D4", "F4", "A4")), "Gm": ("G2", "D3", ("D4", "G4", "Bb4")),
    "A7": ("A2", "E2", ("C#4", "G4", "A4")), "Bb": ("Bb2", "F2", ("D4", "F4", "Bb4")),
    "F": ("F2", "C3", ("C4", "F4", "A4")), "C7": ("C3", "G2", ("C4", "E4", "Bb4")),
    "E7": ("E2", "B2", ("D4", "E4", "G#4")),
}
BARS = ("Dm Dm A7 A7 A7 A7 Dm Dm " "F C7 F A7 Dm Gm E7 A7 " "Dm Dm A7 A7 Gm Dm A7 A7").split()

# the melody: note and length in eighths; "-" rests
PART_A = ("D5 1 E5 1 F5 1 - 1 A5 1 - 1 F5 2  G#5 1 A5 1 G#5 1 A5 1 F5 2 D5 2  "
          "C#5 1 D5 1 E5 1 - 1 G5 1 - 1 E5 2  F#5 1 G5 1 F#5 1 G5 1 E5 2 C#5 2  "
          "A4 1 C#5 1 E5 1 G5 1 Bb5 2 A5 2  G5 1 F5 1 E5 1 D5 1 C#5 2 E5 2  "
          "D5 1 - 1 A4 1 - 1 F5 1 E5 1 D5 1 C#5 1  D5 2 - 2 D6 1 - 3")
PART_B = ("C6 3 A5 1 F5 2 A5 2  Bb5 3 G5 1 E5 2 G5 2  A5 1 Bb5 1 A5 1 G5 1 F5 2 C5 2  C#5 1 E5 1 A5 1 G5 1 E5 4  "
          "F5 3 E5 1 D5 2 F5 2  G5 3 F5 1 D5 2 Bb5 2  B5 1 A5 1 G#5 1 F5 1 E5 2 D5 2  C#5 2 E5 2 A5 1 - 3")
PART_C = ("D5 1 E5 1 F5 1 - 1 A5 1 - 1 F5 2  G#5 1 A5 1 G#5 1 A5 1 F5 2 D5 2  "
          "C#5 1 D5 1 E5 1 - 1 G5 1 - 1 E5 2  F#5 1 G5 1 F#5 1 G5 1 E5 2 C#5 2  "
          "Bb5 1 A5 1 G5 1 F5 1 G5 2 Bb5 2  A5 1 G5 1 F5 1 E5 1 F5 2 A5 2  "
          "G5 1 E5 1 C#5 1 A4 1 Bb4 1 B4 1 C5 1 C#5 1  E5 1 - 1 E5 1 - 1 A4 1 B4 1 C#5 2")


def hertz(name):
    step = NAMES[name[0]] + {"#": 1, "b": -1}.get(name[1:-1], 0) + 12 * (int(name[-1]) + 1)
    return 440.0 * 2 ** ((step - 69) / 12.0)


def envelope(length, attack, release):
    t = seconds(length)
    return np.minimum(1, t / attack) * np.minimum(1, np.maximum(0, (length - t) / release))


def tuba(f, length):
    t = seconds(length)
    a = phase(np.full(len(t), f) * (1 + 0.02 * np.exp(-t * 30)))
    tone = sum(np.sin(a * n) / n ** 1.5 for n in range(1, 8))
    return tone * envelope(length, 0.018, 0.07) * np.exp(-t * 2.5)


def squeezebox(f, length):
    t = seconds(length)
    tone = np.zeros(len(t))
    for detune in (0.997, 1.004):
        a = 2 * np.pi * f * detune * t
        tone += sum(np.sin(a * n) / n ** 1.1 for n in (1, 2, 3, 5, 7) if f * n < 9000)
    return tone * envelope(length, 0.012, 0.05)


def marimba(f, length):
    t = seconds(max(length, 0.35))
    a = 2 * np.pi * f * t
    return np.sin(a) * np.exp(-t * 7) + 0.35 * np.sin(3.93 * a) * np.exp(-t * 22) + 0.12 * np.sin(9.2 * a) * np.exp(-t * 60)


def whistle(f, length):
    t = seconds(length)
    a = phase(f * (1 + 0.008 * np.sin(2 * np.pi * 5.6 * t) * np.minimum(1, t / 0.15)))
    return (np.sin(a) + 0.12 * np.sin(2 * a)) * envelope(length, 0.03, 0.05)


def tick(seed):
    n = np.random.RandomState(seed).uniform(-1, 1, int(0.05 * RATE))
    return np.diff(n, prepend=0) * np.exp(-np.arange(len(n)) / (0.008 * RATE))


def thump():
    t = seconds(0.18)
    return np.sin(phase(50 + 110 * np.exp(-t * 40))) * np.exp(-t * 18)


def pan_lid():
    t = seconds(0.25)
    return sum(np.sin(2 * np.pi * f * t) for f in (1310, 2130, 3470)) * np.exp(-t * 16) / 3


class Band:
    """Two channels of a loop: what rings past the end comes back at the start."""

    def __init__(self, length):
        self.size = int(length * RATE)
        self.sound = np.zeros((self.size, 2))

    def add(self, start, signal, loud, side=0.0):
        i = (int(round(start * RATE)) + np.arange(len(signal))) % self.size
        self.sound[i, 0] += signal * loud * (1 - max(0.0, side))
        self.sound[i, 1] += signal * loud * (1 + min(0.0, side))


def melody(band, start, notes, loud_marimba, loud_whistle):
    words = notes.split()
    at = start
    for name, eighths in zip(words[::2], words[1::2]):
        length = int(eighths) * BEAT / 2
        if name != "-":
            band.add(at, marimba(hertz(name), length), loud_marimba, -0.25)
            if loud_whistle:
                band.add(at, whistle(hertz(name), length * 0.92), loud_whistle, 0.3)
        at += length
    return at


def main(path):
    bar = 4 * BEAT
    band = Band(bar * len(BARS))
    lid, drum = pan_lid(), thump()
    for i, name in enumerate(BARS):
        low, fifth, chord = CHORDS[name]
        for beat in range(4):
            at = i * bar + beat * BEAT
            if beat % 2 == 0:
                band.add(at, tuba(hertz(low if beat == 0 else fifth), BEAT * 0.8), 0.42)
                band.add(at, drum, 0.5)
            else:
                for note in chord:
                    band.add(at, squeezebox(hertz(note), BEAT * 0.42), 0.045, 0.35)
                band.add(at, tick(i * 8 + beat), 0.16, -0.4)
            band.add(at + BEAT / 2, tick(i * 8 + beat + 4), 0.09, 0.4)
        if i % 8 == 7:
            band.add(i * bar + 3 * BEAT, lid, 0.28, 0.2)
    ends = [melody(band, 0, PART_A, 0.42, 0), melody(band, 8 * bar, PART_B, 0.26, 0.16), melody(band, 16 * bar, PART_C, 0.4, 0.07)]
    for n, end in enumerate(ends):
        assert abs(end - (n + 1) * 8 * bar) < 1e-6, "part %d does not fill eight bars" % n
    # a little room: one echo from each side
    dry = band.sound
    wet = dry + 0.16 * np.roll(dry[:, ::-1], int(0.11 * RATE), axis=0) + 0.08 * np.roll(dry, int(0.23 * RATE), axis=0)
    save(path, wet, peak=0.45)  # the effects are to be heard over it


if __name__ == "__main__":
    main(sys.argv[1])
