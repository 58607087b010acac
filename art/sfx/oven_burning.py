"""Done to a turn: the oven's timer goes "ding!", and the roast sizzles.

The bell is the C of the bonuses' chord, since they ring with it.
"""
import sys

import numpy as np

from instruments import ring
from synth import *  # noqa: F401,F403

t = seconds(1.3)
ding = ring(t, 2093.0, ((1, 1, 3.2), (1.003, 0.4, 3.2), (2, 0.3, 7), (2.756, 0.3, 14), (0.5, 0.25, 6)))
ding = ding * np.minimum(1, t / 0.001) + 0.3 * band(noise(1.3, 46), 3000, 9000) * np.exp(-t * 160)
length = 1.25
spits = (np.random.RandomState(47).uniform(0, 1, int(length * RATE)) > 0.9992).astype(float)
spits = np.minimum(1, np.convolve(spits, np.exp(-np.arange(700) / 170.0))[:len(spits)])
sizzle = level(band(noise(length, 48), 3500, 12000)) * (0.35 + 0.65 * spits) * curve(((0, 0), (0.08, 1), (0.6, 0.7), (length, 0)), length)
save(sys.argv[1], mix((0, level(ding)), (0.05, 0.4 * sizzle)), -19.3)
