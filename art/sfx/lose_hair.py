"""A tuft is torn out: a rip whose threads go ever faster, and a "pff" of fluff.

A kitten that spins loses hair four times a second, so it is short and the softest of all.
"""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.11
t = seconds(length)
threads = np.mod(phase(curve(((0, 75), (0.11, 190)), length)) / (2 * np.pi), 1.0)
rip = level(band(noise(length, 25), 1600, 6500)) * np.exp(-threads * 3) * curve(((0, 0.3), (0.07, 1), (0.11, 0)), length)
puff = resonate(noise(0.26, 26), curve(((0, 2100), (0.26, 700)), 0.26), 900) * curve(((0, 0), (0.015, 1), (0.12, 0.65), (0.26, 0)), 0.26)
save(sys.argv[1], np.tanh(2.2 * mix((0, rip), (0.09, 0.9 * level(puff)))), -19.8)
