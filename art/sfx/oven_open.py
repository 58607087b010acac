"""The oven's door goes up in a second: a latch, a chain over its cogs, faster and higher, and a knock at the top."""
import sys

import numpy as np

from instruments import ring
from synth import *  # noqa: F401,F403

IRON = ((1, 1, 26), (1.71, 0.8, 32), (2.83, 0.7, 45), (4.3, 0.45, 60))


def clack(f, seed):
    t = seconds(0.16)
    return ring(t, f, IRON) * np.minimum(1, t / 0.0008) + 0.8 * band(noise(0.16, seed), 1200, 7000) * np.exp(-t * 110)


cogs = [(0.1 + 0.84 * (1 - (1 - i / 15.0) ** 1.4), 0.75 * clack(640 + 35 * i, 60 + i)) for i in range(15)]
length = 0.8
hinge = voice(curve(((0, 240), (0.5, 330), (0.8, 430)), length) * (1 + 0.03 * smooth(noise(length, 41), 0.006)), 0.8, 0.1)
hinge = resonate(hinge, 1500, 300) * curve(((0, 0), (0.12, 1), (0.7, 0.7), (0.8, 0)), length)
save(sys.argv[1], mix((0, clack(430, 59)), *cogs, (0.12, 0.5 * level(hinge)), (0.97, clack(330, 80))), -19.4)
