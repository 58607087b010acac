"""The oven breathes: a fire that purrs, swelling and sinking, from nothing to nothing, so that it may come again."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.9
t = seconds(length)
swell = np.sin(np.pi * t / length) ** 0.8
purr = 0.68 + 0.32 * np.sin(2 * np.pi * (23 + 4 * np.sin(np.pi * t / length)) * t)
low = level(band(noise(length, 21), 90, 320)) * purr
air = level(band(noise(length, 22), 500, 1600)) * (0.5 + 0.5 * purr)
save(sys.argv[1], np.tanh(2.2 * level((low + 0.4 * air) * swell)), -19.8)
