"""From notes to music: the notation, the stage, and the mixing desk.

A line of notes is written "D5 1 E5 1 - 2": a note and its length in eighths; "-" rests.  Chords are written a bar
each, "Dm Gm/A7": two chords share a bar.  Every line goes to a stem of its own, and the stems are set by loudness.
"""
import numpy as np

import instruments
import loudness
from synth import RATE, edges, noise, write

REST = 0.4           # seconds of silence before and after the music: there a restart is not heard
LOUD = -24.0         # LUFS of the whole
CEILING = loudness.factor(-11.5)
NAMES = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
EVEN = {"plucked": 2.2, "marimba": 1.8}  # what rings away is played harder, to be as loud as what is held
QUALITIES = {"": (0, 4, 7), "m": (0, 3, 7), "7": (0, 4, 10), "dim": (0, 3, 6, 9)}


def tone(name):
    """The number of half tones of a name such as "C#4" or "Bb"; without an octave it lies in octave 2."""
    letter, rest = name[0], name[1:]
    octave = int(rest[-1]) if rest[-1:].isdigit() else 2
    return NAMES[letter] + {"#": 1, "b": -1}.get(rest[:1], 0) + 12 * (octave + 1)


def hertz(half_tones):
    return 440.0 * 2 ** ((half_tones - 69) / 12.0)


class Chord:
    def __init__(self, name, up=0):
        length = 2 if name[1:2] in ("#", "b") else 1
        root = (NAMES[name[0]] + {"#": 1, "b": -1}.get(name[1:length], 0) + up) % 12
        self.bass = 36 + (root if root >= 2 else root + 12)           # D2 to C#3
        steps = QUALITIES[name[length:]]
        fifth = 6 if name.endswith("dim") else 7
        self.fifth = self.bass + (fifth if self.bass < 43 else fifth - 12)
        self.notes = sorted(60 + (root + step) % 12 for step in steps)  # C4 to B4


class Piece:
    """Events in beats from the first bar on; four beats make a bar.  Swing delays the second eighth of each beat."""

    def __init__(self, tempo, swing=0.0):
        self.beat, self.swing = 60.0 / tempo, swing
        self.stems, self.made, self.end = {}, {}, 0.0
        self.hand = np.random.RandomState(int(tempo))  # nobody plays like a clock

    def when(self, beats):
        """Seconds from the start of the music."""
        whole = np.floor(beats)
        part = beats - whole
        middle = 0.5 + self.swing
        part = part * 2 * middle if part < 0.5 else middle + (part - 0.5) * 2 * (1 - middle)
        return (whole + part) * self.beat

    def put(self, stem, beats, sound, strength=1.0, side=0.0, exact=False):
        """A sound at a beat; side is -1 for left to 1 for right."""
        at = self.when(beats) + (0 if exact else 0.004 * self.hand.uniform(-1, 1))
        strength = strength * (1 + 0.1 * self.hand.uniform(-1, 1))
        angle = (side + 1) * np.pi / 4
        self.stems.setdefault(stem, []).append((at, sound, strength * np.cos(angle), strength * np.sin(angle)))

    def note(self, stem, player, beats, half_tones, length, strength=1.0, side=0.0):
        """A note whose length is in beats."""
        seconds = round(self.when(beats + length) - self.when(beats), 4)
        key = player, half_tones, seconds
        if key not in self.made:
            self.made[key] = getattr(instruments, player)(hertz(half_tones), seconds)
        self.put(stem, beats, self.made[key], strength * EVEN.get(player, 1.0), side)

    def line(self, stem, player, bar, bars, notes, up=0, side=0.0, strength=1.0, legato=0.92):
        """A melody that fills so many bars."""
        words = notes.split()
        at = bar * 4.0
        for name, eighths in zip(words[::2], words[1::2]):
            length = float(eighths) / 2
            if name != "-":
                accent = 1.0 if at % 2 == 0 else 0.88
                self.note(stem, player, at, tone(name) + up, length * legato, strength * accent, side)
            at += length
        if abs(at - 4.0 * (bar + bars)) > 1e-6:
            raise ValueError("a line from bar %d fills %.2f bars instead of %d" % (bar, at / 4 - bar, bars))

    @staticmethod
    def beats_of(chords, bar, up=0):
        """The chord at each beat, from a bar on."""
        for i, name in enumerate(chords.split()):
            both = name.split("/")
            for beat in range(4):
                yield 4 * (bar + i) + beat, beat, Chord(both[beat * len(both) // 4], up)

    def oompah(self, bar, chords, up=0, bass="tuba", chord="squeezebox"):
        """Bass on the strong beats, the chord on the weak ones."""
        for at, beat, harmony in self.beats_of(chords, bar, up):
            if beat % 2 == 0:
                self.note("bass", bass, at, harmony.bass if beat == 0 else harmony.fifth, 0.8)
            else:
                for i, half_tones in enumerate(harmony.notes):
                    self.note("chords", chord, at, half_tones, 0.42, 1.3 if chord == "marimba" else 1.0, 0.25 + 0.12 * i)

    def drums(self, bar, bars, pattern, strength=1.0):
        """A pattern of a bar in eighths: k kettle-deep thump, s spoon, b brush, l lid; a blank rests."""
        for i in range(bars * 8):
            at, hit = bar * 4 + i / 2.0, pattern[i % len(pattern)]
            if hit == "k":
                self.put("drums", at, instruments.thump(), 1.3 * strength)
            elif hit == "s":
                self.put("drums", at, instruments.spoon(), 0.5 * strength, 0.3)
            elif hit == "b":
                self.put("drums", at, instruments.brush(400 + i % 16), 0.5 * strength, -0.35)
            elif hit == "l":
                self.put("drums", at, instruments.lid(), 0.35 * strength, 0.15)

    def stem(self, name, size):
        sound = np.zeros((size, 2))
        for at, signal, left, right in self.stems[name]:
            start = int(round((REST + max(0.0, at)) * RATE))
            signal = signal[:size - start]
            sound[start:start + len(signal), 0] += signal * left
            sound[start:start + len(signal), 1] += signal * right
        return sound

    def save(self, path, levels, beats):
        """Mixes the stems, each at its loudness against the whole, and ends after so many beats and the rest."""
        music = int(round((REST + beats * self.beat) * RATE))
        size = music + int(REST * RATE)
        if set(levels) != set(self.stems):
            raise ValueError("levels and stems differ: %s" % (set(levels) ^ set(self.stems)))
        dry = np.zeros((size, 2))
        for name in sorted(levels):
            stem = self.stem(name, size)
            dry += stem * loudness.factor(round(LOUD + levels[name] - loudness.integrated(stem, RATE), 2))
        wet = room(dry)[:music]
        wet[int(REST * RATE):] = edges(wet[int(REST * RATE):], 0.001, 0.25)
        wet[:int(REST * RATE)] = 0
        sound = np.pad(wet, ((0, size - music), (0, 0)))
        write(path, loudness.brought_to(sound, LOUD, loudness.integrated, CEILING, RATE))


def room(dry):
    """A kitchen: a short reverberation that is different at each ear, without rumble and hiss; and 4 dB more
    above 2 kHz, for crispness."""
    size = 1 << int(len(dry) + RATE).bit_length()
    length = 0.55
    t = np.arange(int(length * RATE)) / float(RATE)
    f = np.fft.rfftfreq(size, 1.0 / RATE)
    colour = 1 / np.sqrt((1 + (220 / np.maximum(f, 1)) ** 4) * (1 + (f / 4200) ** 4))
    crisp = np.sqrt((1 + 2.5 * (f / 2000) ** 2) / (1 + (f / 2000) ** 2))
    ears = [np.fft.rfft(dry[:, ear], size) for ear in (0, 1)]
    wet = np.zeros(dry.shape)
    for ear in (0, 1):
        echo = noise(length, 70 + ear) * np.exp(-t * 11) * np.minimum(1, t / 0.012)
        echo *= 0.22 / np.sqrt(np.sum(echo ** 2))
        heard = 0.8 * ears[ear] + 0.2 * ears[1 - ear]
        wet[:, ear] = np.fft.irfft((ears[ear] + heard * colour * np.fft.rfft(echo, size)) * crisp, size)[:len(dry)]
    return wet
