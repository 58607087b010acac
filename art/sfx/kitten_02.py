"""A squeak, as of a rubber toy."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.2
pitch = curve(((0, 1500), (0.05, 2500), (0.11, 2100), (0.2, 2900)), length)
pitch = pitch * (1 + 0.03 * np.sin(2 * np.pi * 55 * seconds(length)))
angle = phase(pitch)
squeak = np.sin(angle) + 0.35 * np.sin(2 * angle) + 0.12 * noise(length, 4)
save(sys.argv[1], squeak * curve(((0, 0), (0.015, 1), (0.12, 0.8), (0.2, 0)), length))
