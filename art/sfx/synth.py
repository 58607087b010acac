"""A small synthesiser: what the sound scripts beside this file share.

Everything is a numpy array of samples at RATE; the noise is seeded, so a script
always makes the same sound.
"""
import wave

import numpy as np

RATE = 22050
PEAK = 10 ** (-3 / 20.0)  # -3 dB


def seconds(length):
    return np.arange(int(length * RATE)) / float(RATE)


def curve(points, length):
    """Straight lines through (time, value) points."""
    times, values = zip(*points)
    return np.interp(seconds(length), times, values)


def phase(frequency):
    return 2 * np.pi * np.cumsum(frequency) / RATE


def noise(length, seed):
    return np.random.RandomState(seed).uniform(-1, 1, int(length * RATE))


def resonate(signal, centre, width):
    """Two-pole band filter; centre and width in Hz, numbers or arrays."""
    centre = np.broadcast_to(centre, signal.shape)
    width = np.broadcast_to(width, signal.shape)
    r = np.exp(-np.pi * width / RATE)
    a1 = 2 * r * np.cos(2 * np.pi * centre / RATE)
    a2 = -r * r
    gain = (1 - r * r) * 0.5
    out = np.zeros(len(signal))
    y1 = y2 = 0.0
    for i in range(len(signal)):
        y = gain[i] * signal[i] + a1[i] * y1 + a2[i] * y2
        y2, y1 = y1, y
        out[i] = y
    return out


def voice(pitch, brightness=1.2, rough=0.0, seed=1):
    """A throat: harmonics that fall off with `brightness`, below half the sample rate."""
    angle = phase(pitch * (1 + rough * smooth(noise(len(pitch) / float(RATE), seed)[:len(pitch)], 60)))
    out = np.zeros(len(pitch))
    for n in range(1, 16):
        out += np.sin(angle * n) / n ** brightness * np.clip((RATE * 0.45 - pitch * n) / 2500.0, 0, 1)
    return out


def smooth(signal, samples):
    return np.convolve(signal, np.ones(samples) / samples, mode="same")


def mew(length, pitch, mouth, loudness, brightness=1.0, rough=0.02, seed=1):
    """A cat's call: a voice through a mouth that opens and shuts; all arguments as (time, value) points."""
    throat = voice(curve(pitch, length), brightness, rough, seed)
    opening = curve(mouth, length)
    sound = resonate(throat, opening, 260) * 1.0 + resonate(throat, opening * 2.1, 420) * 0.6 + throat * 0.12
    return sound * curve(loudness, length)


def mix(*parts):
    """Adds (start, signal) pairs."""
    total = max(int(start * RATE) + len(signal) for start, signal in parts)
    out = np.zeros(total)
    for start, signal in parts:
        i = int(start * RATE)
        out[i:i + len(signal)] += signal
    return out


def save(path, signal, peak=PEAK):
    """Writes 16-bit PCM: one channel for a plain array, two for a pair of columns."""
    signal = np.asarray(signal, dtype=float)
    fade = min(len(signal) // 4, 220)
    ramp = np.ones(len(signal))
    ramp[:40] = np.linspace(0, 1, 40)
    ramp[-fade:] = np.linspace(1, 0, fade)
    signal = signal * (ramp if signal.ndim == 1 else ramp[:, None])
    signal = signal * (peak / np.max(np.abs(signal)))
    with wave.open(path, "wb") as f:
        f.setnchannels(1 if signal.ndim == 1 else 2)
        f.setsampwidth(2)
        f.setframerate(RATE)
        f.writeframes(np.round(signal * 32767).astype("<i2").tobytes())
