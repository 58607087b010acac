#!/usr/bin/python3
"""Starts ./play under a virtual display, plays until a kitten comes, and ends. A picture of that
moment goes into the file that is named."""
import sys

from PIL import Image

from display import Display
from game import ROOT
from installed import Installed


def main():
    with Display() as screen, Installed(screen, ROOT / "play") as game:
        game.start_playing()
        game.wait_for_kitten()
        Image.fromarray(game.picture()).save(sys.argv[1])
        screen.tap("Escape")
        game.wait_for_end()


if __name__ == "__main__":
    main()
