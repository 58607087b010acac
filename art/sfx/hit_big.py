"""A thump into a fat cushion, with a hollow note in it."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.44
t = seconds(length)
body = np.sin(phase(104 + 150 * np.exp(-t * 30))) * np.exp(-t * 3.5)
hollow = np.sin(phase(235 + 120 * np.exp(-t * 50))) * np.exp(-t * 8)
cloth = level(band(noise(length, 28), 250, 1800)) * np.exp(-t * 32)
save(sys.argv[1], np.tanh(1.3 * (edges(body, 0.002, 0.2) + 0.7 * hollow + 0.5 * cloth)), -19.5)
