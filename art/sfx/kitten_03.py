"""A bonk on a hollow head, and a small trill of indignation."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.24
t = seconds(length)
angle = phase(curve(((0, 620), (0.02, 420), (0.24, 350)), length))
bonk = np.sin(angle) * np.exp(-t * 9) + 0.4 * np.sin(2.76 * angle + 1) * np.exp(-t * 22) + 0.25 * band(noise(length, 7), 400, 3000) * np.exp(-t * 120)
trill = mew(0.24, pitch=((0, 820), (0.24, 1480)), mouth=((0, 900), (0.24, 2000)), loud=((0, 0), (0.03, 1), (0.18, 0.9), (0.24, 0)))
trill = level(trill) * (0.6 + 0.4 * np.sin(2 * np.pi * 33 * seconds(0.24)))
save(sys.argv[1], mix((0, np.tanh(1.8 * level(edges(bonk, 0.001, 0.06)))), (0.15, 0.9 * trill)), -18.6)
