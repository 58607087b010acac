"""Listens to the rendered sounds, as far as a program can: the limits of README.md, and a minute of play mixed.

Needs sox, and ffmpeg if the loudness is to be compared with that of its ebur128.  With a folder as its argument it
also draws each sound (level over time above its spectrum up to 16 kHz) and the minutes into it, to be looked at.
Prints a line a file and ends with status 1 if anything is amiss.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile

import numpy as np
from PIL import Image, ImageDraw

import loudness
from synth import RATE

DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "runtime", "data")
TUNES = ("title", "play", "last")
MUSIC, SPREAD = -24.0, 1.0           # LUFS of the whole
LOUDEST, PEAK = (-20.0, -15.0), -9.0  # of an effect: LUFS of 400 ms, dB
SHORTEST, REST = 60.0, 0.35           # of a tune, in seconds
AGREE = 0.3                           # LU between ffmpeg and loudness.py
CLIPPED = 1e-5                        # of the samples of play
MUSIC_BYTES = 1600000


def ffmpeg(path):
    """ebur128's loudest 400 ms and integrated loudness; None without ffmpeg."""
    if not shutil.which("ffmpeg"):
        return None
    told = subprocess.run(["ffmpeg", "-hide_banner", "-nostats", "-i", path, "-af", "apad=pad_dur=0.5,ebur128=framelog=info",
                           "-f", "null", "-"], stderr=subprocess.PIPE, check=True).stderr.decode()
    momentary = [float(number) for number in re.findall(r" M: *(-?[\d.]+)", told)]
    return max(momentary), float(re.findall(r"I: *(-?[\d.]+) LUFS", told)[-1])


def decoded(tune):
    with tempfile.TemporaryDirectory() as folder:
        wav = os.path.join(folder, "tune.wav")
        subprocess.run(["sox", os.path.join(DATA, "music", tune + ".ogg"), "-b", "16", wav], check=True)
        return loudness.read(wav)


class Report:
    def __init__(self):
        self.faults = 0

    def line(self, name, text, *rules):
        broken = [what for is_kept, what in rules if not is_kept]
        self.faults += len(broken)
        print("%-14s %s  %s" % (name, text, "; ".join(broken).upper()))


def starts_and_ends(signal):
    """The greatest of the first and last three samples, of full scale."""
    return np.max(np.abs(np.concatenate((signal[:3], signal[-3:]))))


def effect(report, name):
    path = os.path.join(DATA, "sfx", name + ".wav")
    signal, rate = loudness.read(path)
    loud, peak, other = loudness.loudest(signal, rate), loudness.decibels(np.max(np.abs(signal))), ffmpeg(path)
    mean = abs(np.mean(signal))
    report.line(name, "%5.2f s  peak %6.1f dB  loudest %6.2f LUFS (ffmpeg %s)  mean %.5f" % (
        len(signal) / float(rate), peak, loud, other and "%.1f" % other[0], mean),
        (rate == RATE and signal.ndim == 1, "not mono at %d Hz" % RATE), (peak <= PEAK, "too high"),
        (LOUDEST[0] <= loud <= LOUDEST[1], "loudness"), (mean < 0.001, "off zero"),
        (starts_and_ends(signal) < 0.002, "clicks"), (not other or abs(other[0] - loud) <= AGREE, "ffmpeg differs"))
    return signal


def tune(report, name):
    signal, rate = decoded(name)
    loud, other = loudness.integrated(signal, rate), ffmpeg(os.path.join(DATA, "music", name + ".ogg"))
    level = np.max(np.abs(signal), axis=1)
    first, last = (np.argmax(order > 0.001) / float(rate) for order in (level, level[::-1]))
    report.line(name, "%5.2f s  peak %6.1f dB  integrated %6.2f LUFS (ffmpeg %s)  rests %.2f and %.2f s" % (
        len(signal) / float(rate), loudness.decibels(level.max()), loud, other and "%.1f" % other[1], first, last),
        (rate == RATE and signal.ndim == 2, "not stereo at %d Hz" % RATE), (len(signal) > SHORTEST * rate, "too short"),
        (abs(loud - MUSIC) <= SPREAD, "loudness"), (first >= REST and last >= REST, "no rest"),
        (not other or abs(other[1] - loud) <= AGREE, "ffmpeg differs"))
    return signal


def happenings(hand):
    """A minute as busy as play can be, with ten kittens in it: (second, effect).

    A hit shows an effect and often cries with it or within a tenth of a second; a cry comes 350 ms after another.
    When a kitten is gone, it is 600 ms to the next one, which has to fall before it is hit."""
    for end in range(6, 61, 6):
        at = cried = end - 5.3
        while at < end - 0.5:
            yield at, ("lose_hair", "lose_hair", "hit_small", "hit_big")[hand.randint(4)]
            if at > cried + 0.35 and hand.uniform() < 0.8:
                cried = at + hand.choice((0.0, hand.uniform(0, 0.1)))
                yield cried, "kitten_0%d" % (1 + hand.randint(5))
            if hand.uniform() < 0.06:
                yield at, "bonus_%d" % (1 + hand.randint(3))
            at += hand.uniform(0.05, 0.4)
        yield end - 3.5, "oven_open"
        for breath in range(3):
            yield end - 2.6 + 0.9 * breath, "oven_breath"
        yield end - 0.5, "kitten_burn"
        if hand.uniform() < 0.4:
            yield end - 0.5, "hellfire"
            continue
        yield end - 0.5, "oven_burning"
        yield end - 0.4, "oven_shut"
        for sign in range(hand.randint(1, 6)):
            yield end - 0.5 + 0.15 * sign, "bonus_%d" % (1 + hand.randint(3))


def minute(music, effects, channels, seed):
    """A minute as a mixer makes it: an effect that finds all channels busy is not played."""
    size = 60 * RATE
    mixed = music[:size].copy()
    free = np.zeros(channels)
    for at, name in sorted(happenings(np.random.RandomState(seed))):
        start, sound = int(at * RATE), effects[name]
        channel = np.argmin(free)
        if free[channel] > start or start >= size:
            continue
        free[channel] = start + len(sound)
        mixed[start:start + len(sound)] += sound[:size - start, None]
    return np.clip(mixed, -1, 32767 / 32768.0)


def picture(signal, path):
    """Level over time above a spectrum of 60 dB and 16 kHz."""
    mono = signal if signal.ndim == 1 else signal.mean(axis=1)
    width, high, low = 1000, 300, 120
    window = 1024
    starts = np.linspace(0, max(1, len(mono) - window), width).astype(int)
    padded = np.pad(mono, (0, window))
    frames = np.abs(np.fft.rfft([padded[i:i + window] * np.hanning(window) for i in starts], axis=1))
    rows = (np.linspace(1, 0, high) ** 1.7 * 16000 * window / RATE).astype(int)  # more room for low tones
    shade = np.clip((20 * np.log10(np.maximum(frames[:, rows].T, 1e-6)) + 40) / 75, 0, 1)
    spectrum = np.stack([255 * np.clip(shade * 1.6, 0, 1), 255 * np.clip(shade * 1.8 - 0.7, 0, 1), 255 * np.clip(shade * 0.6, 0, 1)], axis=-1)
    image = Image.new("RGB", (width, low + high), "#101018")
    image.paste(Image.fromarray(spectrum.astype("uint8")), (0, low))
    draw = ImageDraw.Draw(image)
    for x, part in enumerate(np.array_split(mono, width)):
        if len(part):
            draw.line((x, low / 2 * (1 - part.max()), x, low / 2 * (1 - part.min())), fill="#16c8d8")
    draw.text((4, 2), "%s  %.2f s" % (os.path.basename(path), len(mono) / float(RATE)), fill="#ffffff")
    image.save(path)


def main(folder=None):
    report = Report()
    names = sorted(name[:-4] for name in os.listdir(os.path.join(DATA, "sfx")))
    effects = {name: effect(report, name) for name in names}
    tunes = {name: tune(report, name) for name in TUNES}
    size = sum(os.path.getsize(os.path.join(DATA, "music", name + ".ogg")) for name in TUNES)
    report.line("music", "%d bytes" % size, (size <= MUSIC_BYTES, "too large"))
    minutes = {}
    for name in TUNES:
        for channels in (8, 16):
            mixed = [minute(tunes[name], effects, channels, seed) for seed in range(5)]
            clipped = np.mean([np.abs(one) >= 32767 / 32768.0 for one in mixed])
            minutes["minute_%s_%d" % (name, channels)] = mixed[0]
            report.line("play to " + name, "%d channels: %.2g of the samples of 5 minutes at full scale, peak of 999 in 1000 %.1f dB" % (
                channels, clipped, loudness.decibels(np.quantile(np.abs(mixed), 0.999))), (clipped < CLIPPED, "clips"))
    if folder:
        os.makedirs(folder, exist_ok=True)
        for name, signal in list(effects.items()) + list(tunes.items()) + list(minutes.items()):
            picture(signal, os.path.join(folder, name + ".png"))
    sys.exit(1 if report.faults else 0)


if __name__ == "__main__":
    main(*sys.argv[1:])
