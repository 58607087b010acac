"""The sign of a small bonus: one bell, with a flick of the one below."""
import sys

from bonus import ring

ring(sys.argv[1], ("F5", "A5"), 0.9, -19.6)
