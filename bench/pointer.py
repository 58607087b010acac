#!/usr/bin/python3
"""Measures how long after a move of the pointer the picture shows that the monster follows.

Usage: bench/pointer.py [--moves N] [--results FILE]

Moves a real pointer N times (1,000 by default) at any moment of a frame under a virtual display, and
looks for the pixels beside the monster to change. FILE is for limits.py. Needs what play.py does.
"""
import argparse
import pathlib
import random
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "e2e"))

from display import Display  # noqa: E402
from game import Game  # noqa: E402
from goals import Goals  # noqa: E402

PLACES = (340, 460)  # where the monster goes to and fro
HEIGHT = 300
REACH = 38  # from the monster's centre: a little more than to its edge
STILL = 0.04  # seconds: longer than a frame


def new_game(game):
    game.point_at(400, 450)
    time.sleep(0.5)
    game.click()
    time.sleep(0.5)


class Watch:
    """The pixels that a monster at one place covers first on its way to the other."""

    def __init__(self, game, place, aim):
        left = place + REACH if aim > place else place - REACH - 20
        self.screen, self.rect = game.screen, (game.rect[0] + left, game.rect[1] + HEIGHT - 20, 20, 40)

    def look(self):
        return self.screen.picture(self.rect)

    def wait_until_still(self):
        """Ends at any moment of a frame; returns what shows."""
        before, now = None, self.look()
        while before is None or (before != now).any():
            time.sleep(STILL + random.uniform(0, 0.016))
            before, now = now, self.look()
        return now

    def changes_from(self, before, limit=0.5):
        end = time.monotonic() + limit
        while (self.look() == before).all():
            if time.monotonic() > end:
                return False
            time.sleep(0.0001)
        return True


def milliseconds_to_follow(game, moves):
    """Sorted; after the end of a game the next one is played."""
    times, ends = [], 0
    place, aim = PLACES
    game.steer(place, HEIGHT)
    while len(times) < moves:
        watch = Watch(game, place, aim)
        before = watch.wait_until_still()
        began = time.monotonic()
        game.steer(aim, HEIGHT)
        if watch.changes_from(before):
            times.append(1000 * (time.monotonic() - began))
        elif game.log().count("Gameover") > ends:
            ends += 1
            new_game(game)
            game.steer(aim, HEIGHT)
        else:
            raise RuntimeError("the monster does not follow the pointer")
        place, aim = aim, place
    return sorted(times)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--moves", type=int, default=1000)
    parser.add_argument("--results", type=pathlib.Path)
    options = parser.parse_args()
    with Display() as screen, Game(screen) as game:
        game.start_playing()
        times = milliseconds_to_follow(game, options.moves)
    goals = Goals()
    goals.tell("pointer moved to monster drawn, median", times[len(times) // 2], 14, "ms")
    goals.tell("pointer moved to monster drawn, 99 of 100", times[len(times) * 99 // 100], 25, "ms")
    goals.write(options.results)


if __name__ == "__main__":
    main()
