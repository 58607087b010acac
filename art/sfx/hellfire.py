"""The pit takes a kitten: the fire jumps up with a "whoomp" and roars.  It lies below and above the cry of kitten_burn."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 1.3
t = seconds(length)
whoomp = np.sin(phase(55 + 95 * np.exp(-((t - 0.12) / 0.1) ** 2))) * curve(((0, 0), (0.1, 1), (0.35, 0.35), (1.3, 0)), length)
flutter = 0.7 + 0.3 * smooth(np.repeat(np.random.RandomState(36).uniform(-1, 1, 40), len(t) // 40 + 1)[:len(t)], 0.03)
roar = level(band(noise(length, 34), 70, 420)) * flutter * curve(((0, 0), (0.14, 1), (0.5, 0.7), (1.3, 0)), length)
rush = resonate(noise(length, 35), curve(((0, 500), (0.16, 3600), (1.3, 1400)), length), 1500)
rush = level(rush) * curve(((0, 0), (0.14, 1), (0.4, 0.3), (1.3, 0)), length)
save(sys.argv[1], 0.8 * whoomp + roar + 0.6 * rush, -19.0)
