"""The band: each player answers a note of a frequency in Hz and a length in seconds, as an array of samples.

Those that ring (marimba, plucked string, bells, drums) may answer more than the length.
"""
import numpy as np

from synth import RATE, band, noise, phase, seconds

SPREAD = np.pi / 12  # of the harmonics' phases, without which they add up to sharp peaks


def envelope(length, attack, release):
    t = seconds(length)
    return np.minimum(1, t / attack) * np.minimum(1, np.maximum(0, (length - t) / release))


def ring(t, f, parts):
    """Struck things: (ratio, strength, decay a second) for each partial."""
    return sum(strength * np.sin(2 * np.pi * f * ratio * t) * np.exp(-t * decay)
               for ratio, strength, decay in parts if f * ratio < 16000)


def tuba(f, length):
    t = seconds(length)
    a = phase(f * (1 - 0.03 * np.exp(-t * 40)))
    tone = sum(np.sin(a * n + SPREAD * n * n) / n ** 1.25 * np.exp(-t * (0.8 + 1.1 * n)) for n in range(1, 11))
    return tone * envelope(length, 0.02, 0.06)


def bassoon(f, length):
    """A reed with a nose: strong around 500 and 1200 Hz."""
    t = seconds(length)
    a = phase(f * (1 + 0.004 * np.sin(2 * np.pi * 5.1 * t) * np.minimum(1, t / 0.25)))
    tone = np.zeros(len(t))
    for n in range(1, 18):
        nose = 0.25 + np.exp(-((f * n - 500) / 260.0) ** 2) + 0.45 * np.exp(-((f * n - 1200) / 380.0) ** 2)
        tone += np.sin(a * n + SPREAD * n * n) * nose / n ** 0.5 * (f * n < 7000)
    return tone * envelope(length, 0.025, 0.05) * (0.75 + 0.25 * np.exp(-t * 9))


def clarinet(f, length):
    t = seconds(length)
    a = phase(f * (1 + 0.005 * np.sin(2 * np.pi * 4.8 * t) * np.minimum(1, t / 0.3)))
    tone = sum(np.sin(a * n) / n ** 1.35 for n in (1, 3, 5, 7, 9)) + 0.1 * np.sin(2 * a) + 0.06 * np.sin(4 * a)
    return tone * envelope(length, 0.022, 0.045)


def squeezebox(f, length):
    """Two reeds that are a little out of tune with each other."""
    t = seconds(length)
    tone = np.zeros(len(t))
    for detune in (0.9975, 1.0035):
        a = 2 * np.pi * f * detune * t
        tone += sum(np.sin(a * n + SPREAD * n * n) / n ** 1.15 for n in range(1, 14) if f * n < 9000)
    return tone * envelope(length, 0.015, 0.05)


def marimba(f, length):
    t = seconds(max(length, 0.45))
    knock = band(noise(0.02, 31), 800, 5000) * np.linspace(1, 0, int(round(0.02 * RATE))) ** 2
    tone = ring(t, f, ((1, 1, 6.5), (3.93, 0.3, 20), (9.2, 0.1, 55))) * envelope(len(t) / float(RATE), 0.0015, 0.1)
    tone[:len(knock)] += 0.2 * knock
    return tone


def plucked(f, length):
    """A short-strung bass or fiddle, plucked near its end."""
    t = seconds(max(length, 0.5))
    tone = sum(np.sin(np.pi * n * 0.17) / n * np.sin(2 * np.pi * f * n * t) * np.exp(-t * (4.5 + 2.2 * n))
               for n in range(1, 16) if f * n < 9000)
    return tone * envelope(len(t) / float(RATE), 0.002, 0.1)


def whistle(f, length):
    t = seconds(length)
    a = phase(f * (1 + 0.007 * np.sin(2 * np.pi * 5.6 * t) * np.minimum(1, t / 0.2)))
    air = band(noise(length, 32), 0.7 * f, 2.5 * f)
    return (np.sin(a) + 0.14 * np.sin(2 * a) + 0.03 * np.sin(3 * a) + 0.12 * air) * envelope(length, 0.03, 0.05)


def bell(f, length):
    t = seconds(max(length, 0.9))
    return ring(t, f, ((1, 1, 3), (2, 0.25, 5), (2.756, 0.28, 12), (5.404, 0.12, 26))) * envelope(len(t) / float(RATE), 0.0015, 0.2)


def slide(f, length):
    """A muted trombone that starts a third too low and slips up to its note."""
    t = seconds(length)
    a = phase(f * 2 ** (-0.3 * np.exp(-t * 11)) * (1 + 0.006 * np.sin(2 * np.pi * 5.3 * t) * np.minimum(1, t / 0.3)))
    tone = sum(np.sin(a * n + SPREAD * n * n) / n ** 0.8 * np.exp(-((f * n - 900) / 900.0) ** 2) for n in range(1, 12))
    return tone * envelope(length, 0.03, 0.08)


def thump():
    t = seconds(0.2)
    return np.sin(phase(52 + 120 * np.exp(-t * 42))) * np.exp(-t * 17) * envelope(0.2, 0.001, 0.03)


def spoon(f=1700.0):
    """Wood on wood."""
    t = seconds(0.08)
    return ring(t, f, ((1, 1, 75), (1.53, 0.6, 95), (2.9, 0.25, 140))) * envelope(0.08, 0.0006, 0.01)


def brush(seed, length=0.07):
    t = seconds(length)
    return band(noise(length, seed), 3500, 11000) * np.exp(-t * 60) * envelope(length, 0.002, 0.01)


def lid(length=0.5):
    """The lid of a pan."""
    t = seconds(length)
    return ring(t, 620, ((1, 0.6, 9), (2.11, 1, 8), (3.43, 0.8, 11), (5.6, 0.5, 14), (7.9, 0.35, 19))) * envelope(length, 0.001, 0.08)


def kettle(f, length=0.6):
    """A kettle drum."""
    t = seconds(length)
    a = phase(f * (1 + 0.06 * np.exp(-t * 30)))
    skin = band(noise(length, 33), 100, 1200) * np.exp(-t * 45)
    return (np.sin(a) + 0.5 * np.sin(1.5 * a) * np.exp(-t * 3) + 0.3 * np.sin(1.99 * a) * np.exp(-t * 5)) * np.exp(-t * 6) * envelope(length, 0.002, 0.1) + 0.5 * skin
