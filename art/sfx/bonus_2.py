"""The sign of a fair bonus: three bells upwards."""
import sys

from bonus import ring

ring(sys.argv[1], ("F5", "A5", "C6"), 1.0, -19.4)
