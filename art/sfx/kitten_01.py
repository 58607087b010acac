"""A short, offended mew."""
import sys

from synth import *  # noqa: F401,F403

save(sys.argv[1], mew(0.36, pitch=((0, 620), (0.08, 880), (0.2, 820), (0.36, 540)), mouth=((0, 700), (0.12, 1750), (0.36, 900)),
                      loudness=((0, 0), (0.03, 1), (0.2, 0.9), (0.36, 0))))
