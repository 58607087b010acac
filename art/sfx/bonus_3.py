"""The sign of a great bonus: a run over two octaves that glitters at its end."""
import sys

from bonus import ring

ring(sys.argv[1], ("F5", "A5", "C6", "F6", "A6", "C7", "F6"), 1.2, -19.0)
