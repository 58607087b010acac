"""A short, offended mew: one vowel that opens and shuts."""
import sys

from synth import *  # noqa: F401,F403

save(sys.argv[1], mew(0.4, pitch=((0, 560), (0.07, 860), (0.2, 800), (0.4, 470)), mouth=((0, 650), (0.13, 1500), (0.25, 1250), (0.4, 600)),
                      loud=((0, 0), (0.03, 1), (0.2, 0.9), (0.4, 0))), -18.4)
