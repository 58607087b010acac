"""A squeak, as of a rubber toy that is stepped on: up, and a shorter one as the air comes back."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403


def squeak(length, pitch, seed):
    tone = phase(curve(pitch, length) * (1 + 0.02 * np.sin(2 * np.pi * 62 * seconds(length))))
    air = band(noise(length, seed), 3000, 10000)
    return (np.sin(tone) + 0.3 * np.sin(2 * tone) + 0.12 * air) * curve(((0, 0), (0.008, 1), (length * 0.7, 0.9), (length, 0)), length)


save(sys.argv[1], mix((0, squeak(0.11, ((0, 1700), (0.03, 2600), (0.11, 3150)), 4)),
                      (0.125, 0.6 * squeak(0.06, ((0, 2900), (0.06, 1900)), 5))), -18.6)
