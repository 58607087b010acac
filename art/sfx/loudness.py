"""Loudness after ITU-R BS.1770-4, annex 1, in LUFS: how loud a sound is, and what brings it to a wanted loudness.

The K-weighting is that of the Recommendation's tables 1 and 2, which are for 48 kHz; the same two curves are taken
at the rate at hand.  A mono sound counts as the one channel that it is (so does ffmpeg's ebur128; a player that
sends it to both loudspeakers makes it 3 LU louder), of a stereo sound the two channels' powers are added.

Started as a program it prints what the WAV files named are: length, peak, loudest 400 ms, integrated.
"""
import sys
import wave

import numpy as np

TABLE_RATE = 48000.0
SHELF = ((1.53512485958697, -2.69169618940638, 1.19839281085285), (1.0, -1.69065929318241, 0.73248077421585))
HIGH_PASS = ((1.0, -2.0, 1.0), (1.0, -1.99004745483398, 0.99007225036621))
BLOCK, STEP = 0.4, 0.1     # seconds
SILENT, GATE = -70.0, -10.0
MOST_LIMITED = 900         # hundredths of a decibel: what needs more is to be made flatter


def analog(coefficients):
    """The polynomial in s = (1 - 1/z) / (1 + 1/z), highest power first."""
    c0, c1, c2 = coefficients
    return c0 - c1 + c2, 2 * (c0 - c2), c0 + c1 + c2


def response(section, frequencies, rate):
    """A filter section's response, its corner kept at the frequency that it has at the tables' rate."""
    above, below = analog(section[0]), analog(section[1])
    corner = np.sqrt(below[2] / below[0])
    s = 1j * np.tan(np.pi * frequencies / rate) * corner / np.tan(np.arctan(corner) * TABLE_RATE / rate)
    return np.polyval(above, s) / np.polyval(below, s)


def weighted(channel, rate):
    size = 1 << int(len(channel) + rate).bit_length()  # room for the filters to ring out
    f = np.fft.rfftfreq(size, 1.0 / rate)
    curve = response(SHELF, f, rate) * response(HIGH_PASS, f, rate)
    return np.fft.irfft(np.fft.rfft(channel, size) * curve, size)[:len(channel)]


def block_powers(signal, rate):
    """The weighted power of each 400 ms, every 100 ms; silence fills the last."""
    channels = np.atleast_2d(np.asarray(signal, dtype=float).T)
    block, step = int(BLOCK * rate), int(STEP * rate)
    count = max(1, -(-(channels.shape[1] - block) // step) + 1)
    padded = np.pad(channels, ((0, 0), (0, max(0, (count - 1) * step + block - channels.shape[1]))))
    power = sum(weighted(channel, rate) ** 2 for channel in padded)
    total = np.concatenate(([0.0], np.cumsum(power)))
    starts = np.arange(count) * step
    return (total[starts + block] - total[starts]) / block


def lufs(power):
    return -0.691 + 10 * np.log10(max(power, 1e-12))


def loudest(signal, rate):
    """The loudness of the loudest 400 ms."""
    return lufs(np.max(block_powers(signal, rate)))


def integrated(signal, rate):
    """The loudness of the whole, without its silent and its much quieter blocks."""
    powers = block_powers(signal, rate)
    for gate in (lambda kept: SILENT, lambda kept: lufs(np.mean(kept)) + GATE):
        limit = 10 ** ((gate(powers) + 0.691) / 10)
        powers = powers[powers > limit]
        if len(powers) == 0:
            return SILENT
    return lufs(np.mean(powers))


def decibels(value):
    return 20 * np.log10(max(value, 1e-6))


def factor(decibel):
    return 10 ** (decibel / 20.0)


def highest_within(level, window):
    """The maximum of each `window` neighbours."""
    width = 1
    while 2 * width <= window:
        level = np.maximum(level[:-width], level[width:])
        width *= 2
    return np.maximum(level[:len(level) - window + width], level[window - width:])


def limit(signal, ceiling, rate):
    """Turns the level down where a peak would exceed the ceiling: 3 ms ahead, and too slowly to crackle."""
    reach = int(0.003 * rate)
    level = np.abs(signal) if signal.ndim == 1 else np.max(np.abs(signal), axis=1)
    peaks = highest_within(np.pad(level, 2 * reach), 2 * reach + 1)
    window = np.hanning(2 * reach + 3)[1:-1]
    gain = np.convolve(np.minimum(1.0, ceiling / np.maximum(peaks, 1e-9)), window / window.sum(), mode="valid")
    return signal * (gain if signal.ndim == 1 else gain[:, None])


def brought_to(signal, wanted, measure, ceiling, rate):
    """The signal at the wanted loudness and below the ceiling.

    The gain is a whole number of hundredths of a decibel, so that no rounding of the measure shows in the result."""
    low = int(round(100 * (wanted - measure(signal, rate))))
    high = low + MOST_LIMITED
    while low <= high:
        middle = low if high == low + MOST_LIMITED else (low + high) // 2
        result = limit(signal * factor(middle / 100.0), ceiling, rate)
        missing = wanted - measure(result, rate)
        if abs(missing) <= 0.02:
            return result
        low, high = (middle + 1, high) if missing > 0 else (low, middle - 1)
    raise ValueError("%.1f LUFS cannot be had below a peak of %.1f dB" % (wanted, decibels(ceiling)))


def read(path):
    """The samples of a 16-bit WAV file, between -1 and 1, a column for each channel if there are two, and its rate."""
    with wave.open(path, "rb") as f:
        samples = np.frombuffer(f.readframes(f.getnframes()), "<i2") / 32768.0
        return (samples if f.getnchannels() == 1 else samples.reshape(-1, f.getnchannels())), f.getframerate()


def main(paths):
    for path in paths:
        signal, rate = read(path)
        print("%-24s %6.2f s  peak %6.2f dB  loudest %6.2f  integrated %6.2f LUFS" % (
            path.split("/")[-1], len(signal) / float(rate), decibels(np.max(np.abs(signal))), loudest(signal, rate),
            integrated(signal, rate)))


if __name__ == "__main__":
    main(sys.argv[1:])
