"""A small synthesiser: what the sound scripts beside this file share.

Everything is a numpy array of samples at RATE; the noise is seeded, so a script
always makes the same sound.
"""
import wave

import numpy as np

import loudness

RATE = 44100
CEILING = loudness.factor(-11.5)  # of an effect: what is heard at a time adds up


def seconds(length):
    return np.arange(int(round(length * RATE))) / float(RATE)


def curve(points, length):
    """Straight lines through (time, value) points."""
    times, values = zip(*points)
    return np.interp(seconds(length), times, values)


def phase(frequency):
    return 2 * np.pi * np.cumsum(frequency) / RATE


def noise(length, seed):
    return np.random.RandomState(seed).uniform(-1, 1, int(round(length * RATE)))


def level(signal):
    """The signal with a peak of 1."""
    return signal / np.max(np.abs(signal))


def smooth(signal, length):
    """The mean over a length in seconds."""
    samples = max(1, int(round(length * RATE)))
    return np.convolve(signal, np.ones(samples) / samples, mode="same")


def band(signal, low, high, steep=4):
    """What lies between two frequencies in Hz; beyond them it falls off."""
    size = 1 << int(2 * len(signal)).bit_length()
    f = np.maximum(np.fft.rfftfreq(size, 1.0 / RATE), 1e-3)
    gain = 1 / np.sqrt((1 + (low / f) ** steep) * (1 + (f / high) ** steep))
    return np.fft.irfft(np.fft.rfft(signal, size) * gain, size)[:len(signal)]


def resonate(signal, centre, width):
    """Two-pole band filter; centre and width in Hz, numbers or arrays."""
    r = np.exp(-np.pi * np.broadcast_to(width, signal.shape) / RATE)
    a1 = (2 * r * np.cos(2 * np.pi * np.broadcast_to(centre, signal.shape) / RATE)).tolist()
    a2 = (-r * r).tolist()
    y1 = y2 = 0.0
    out = []
    for x, near, far in zip(((1 - r * r) * 0.5 * signal).tolist(), a1, a2):
        y1, y2 = x + near * y1 + far * y2, y1
        out.append(y1)
    return np.array(out)


def voice(pitch, brightness=1.2, rough=0.0, seed=1):
    """A throat: harmonics that fall off with `brightness`, below half the sample rate.

    Their phases are spread (as the square of the number), since in phase they would add up to sharp peaks."""
    shake = smooth(noise(len(pitch) / float(RATE), seed), 0.0027)
    angle = phase(pitch * (1 + rough * shake))
    out = np.zeros(len(pitch))
    for n in range(1, 28):
        out += np.sin(angle * n + np.pi * n * n / 27) / n ** brightness * np.clip((15000.0 - pitch * n) / 4000.0, 0, 1)
    return out


def mew(length, pitch, mouth, loud, brightness=1.0, rough=0.02, breath=0.06, seed=1):
    """A cat's call: a voice through a mouth that opens and shuts; pitch, mouth and loud as (time, value) points."""
    throat = voice(curve(pitch, length), brightness, rough, seed) + breath * band(noise(length, seed + 50), 1500, 9000)
    opening = curve(mouth, length)
    sound = resonate(throat, opening, 240) + 0.7 * resonate(throat, opening * 2.1, 420) + 0.3 * resonate(throat, 4300, 900)
    return (sound + throat * 0.1) * curve(loud, length)


def mix(*parts):
    """Adds (start, signal) pairs."""
    total = max(int(start * RATE) + len(signal) for start, signal in parts)
    out = np.zeros(total)
    for start, signal in parts:
        i = int(start * RATE)
        out[i:i + len(signal)] += signal
    return out


def edges(signal, rise=0.002, fall=0.02):
    """Begins and ends at nothing, so that nothing clicks."""
    ramp = np.ones(len(signal))
    up, down = int(rise * RATE), int(fall * RATE)
    ramp[:up] = 0.5 - 0.5 * np.cos(np.pi * np.arange(up) / up)
    ramp[-down:] = 0.5 + 0.5 * np.cos(np.pi * (np.arange(down) + 1) / down)
    return signal * (ramp if signal.ndim == 1 else ramp[:, None])


def write(path, signal):
    """Writes 16-bit PCM: one channel for a plain array, two for a pair of columns."""
    with wave.open(path, "wb") as f:
        f.setnchannels(1 if signal.ndim == 1 else 2)
        f.setsampwidth(2)
        f.setframerate(RATE)
        f.writeframes(np.round(signal * 32767).astype("<i2").tobytes())


def save(path, signal, loud):
    """Writes an effect whose loudest 400 ms have the loudness `loud`, in LUFS."""
    signal = edges(band(np.asarray(signal, dtype=float), 30, 17000))
    write(path, loudness.brought_to(signal, loud, loudness.loudest, CEILING, RATE))
