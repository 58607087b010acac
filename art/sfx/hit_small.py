"""A pat on a cushion: it lies under the cries and is heard very often, so it is dull and short."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.3
t = seconds(length)
pat = np.sin(phase(150 + 130 * np.exp(-t * 38))) * np.exp(-t * 4)
cloth = level(band(noise(length, 27), 250, 1200)) * np.exp(-t * 25)
save(sys.argv[1], np.tanh(1.5 * (edges(pat, 0.002, 0.16) + 0.6 * cloth)), -19.8)
