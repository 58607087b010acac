"""A low, cross growl, the longest of the five."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.58
growl = mew(length, pitch=((0, 125), (0.16, 190), (0.36, 165), (0.58, 105)), mouth=((0, 420), (0.22, 900), (0.42, 700), (0.58, 400)),
            loud=((0, 0), (0.05, 0.8), (0.22, 1), (0.42, 0.8), (0.58, 0)), brightness=0.75, rough=0.3, breath=0.5, seed=3)
growl = level(growl * (1 - 0.45 * (0.5 + 0.5 * np.sin(2 * np.pi * 27 * seconds(length)))))
save(sys.argv[1], np.tanh(2.2 * growl), -18.8)
