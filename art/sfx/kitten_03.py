"""A bonk on a hollow head, and a small echo of indignation."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.16
t = seconds(length)
angle = phase(curve(((0, 520), (0.04, 330), (0.16, 250)), length))
bonk = (np.sin(angle) + 0.5 * np.sin(2.76 * angle)) * np.exp(-t * 26) + 0.5 * noise(length, 7) * np.exp(-t * 180)
chirp = mew(0.2, pitch=((0, 900), (0.2, 1250)), mouth=((0, 1000), (0.2, 2200)), loudness=((0, 0), (0.04, 0.4), (0.2, 0)))
save(sys.argv[1], mix((0, bonk * 1.6), (0.1, chirp)))
