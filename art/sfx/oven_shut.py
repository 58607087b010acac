"""The oven's door comes down in a second: the chain runs out, faster and lower, and iron falls on iron."""
import sys

import numpy as np

from instruments import ring
from synth import *  # noqa: F401,F403


def link(i):
    t = seconds(0.05)
    return ring(t, 1150 - 30 * i, ((1, 0.5, 70), (1.83, 0.4, 90))) + band(noise(0.05, 90 + i), 1800, 8000) * np.exp(-t * 110)


chain = mix(*[(0.92 * (i / 18.0) ** 0.75, link(i)) for i in range(18)])
t = seconds(0.5)
slam = ring(t, 172, ((1, 1, 6), (1.62, 0.9, 7), (2.41, 0.8, 8), (3.87, 0.6, 10), (5.93, 0.45, 13), (8.4, 0.3, 18)))
slam = np.tanh(1.3 * slam * np.minimum(1, t / 0.001) + 1.5 * band(noise(0.5, 99), 150, 3000) * np.exp(-t * 45))
save(sys.argv[1], mix((0, 0.35 * level(chain)), (0.95, slam)), -19.2)
