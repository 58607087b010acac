"""A spring: boing, with a yelp on top."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.34
t = seconds(length)
pitch = 240 + 120 * np.exp(-t * 5) * np.sin(2 * np.pi * (9 + 22 * t) * t) + 200 * t
angle = phase(pitch)
boing = (np.sin(angle) + 0.6 * np.sin(2 * angle) + 0.4 * np.sin(3 * angle)) * np.exp(-t * 7)
yelp = mew(0.16, pitch=((0, 1000), (0.05, 1400), (0.16, 900)), mouth=((0, 1200), (0.06, 2400), (0.16, 1300)),
           loudness=((0, 0), (0.02, 0.9), (0.16, 0)))
save(sys.argv[1], mix((0, boing), (0.02, yelp)))
