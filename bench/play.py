#!/usr/bin/python3
"""Measures the real program under a virtual display: start, processor, frames, memory.

Usage: bench/play.py [--games N] [--results FILE]

Compares the memory over N games, 10 by default. FILE is for limits.py.
Needs build/release/brumble, build/release/bench/flip and the packages that ./check installs.
"""
import argparse
import pathlib
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "e2e"))

from Xlib.ext import damage  # noqa: E402

from display import Display  # noqa: E402
from game import ROOT, Game, fit, load_picture  # noqa: E402
from goals import Goals  # noqa: E402


def resident_kib(pid):
    for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1])
    raise RuntimeError("no VmRSS")


class Started(Game):
    """Knows when its process was started."""

    def _run(self, *how):
        self.started = time.monotonic()
        return super()._run(*how)


class Flip(Game):
    """The least that a program with our pictures and sound asks for: bench/flip.cpp."""

    TITLE = "Flip"

    def _run(self, folder, environment, errors):
        return subprocess.Popen([ROOT / "build/release/bench/flip", "data/music/play.ogg"], cwd=folder,
                                env={**environment, "SDL_VIDEODRIVER": "x11"}, stderr=errors)


def start_milliseconds(screen):
    """From the start of the process to the title on the screen."""
    title = load_picture("title_screen")[300:320, 300:320]
    with Started(screen) as game:
        while screen.find_window("Brumble") is None:
            time.sleep(0.002)
        game.wait_for_window()
        x, y = game.rect[:2]
        while fit(screen.picture((x + 300, y + 300, 20, 20)), title) < 0.95:
            time.sleep(0.002)
        return (time.monotonic() - game.started) * 1000


def load(game, seconds=10):
    """The share of a core, in per cent, and the wake-ups of each thread in a second."""
    used, rested, began = game.processor_seconds(), game.rests(), time.monotonic()
    time.sleep(seconds)
    used, rests = game.processor_seconds() - used, game.rests() - rested
    passed = time.monotonic() - began
    return 100 * used / passed, [count / passed for count in rests.values()]


def frame_intervals(screen, game, count=300):
    """Milliseconds between two pictures sent to the window."""
    screen.connection.damage_query_version()
    game.window.damage_create(damage.DamageReportRawRectangles)
    screen.sync()
    moments, end = [], time.monotonic() + 20
    while len(moments) < count and time.monotonic() < end:
        while screen.connection.pending_events():
            event = screen.connection.next_event()
            if event.type == screen.connection.extension_event.DamageNotify:
                moments.append(time.monotonic())
        time.sleep(0.0005)
    return sorted(1000 * (b - a) for a, b in zip(moments, moments[1:]))


def play_on(game, games):
    """Idles through that many more games; returns the resident memory at the end of each."""
    memory = []
    for number in range(games):
        game.point_at(5, 5)
        game.wait_for_log("Gameover", times=game.log().count("Gameover") + 1, seconds=120)
        time.sleep(0.5)  # the screen is loaded after that line
        memory.append(resident_kib(game.process.pid))
        print(f"  after game {number + 1}: {memory[-1]} KiB", flush=True)
        game.point_at(400, 450)
        game.click()
        time.sleep(0.5)
    return memory


def measure(screen, game, games, least, goals):
    game.start_playing()
    game.point_at(300, 300)
    used, wakes = load(game)
    goals.tell("processor in play", used, 2.3, "% of a core", limit=15)
    goals.tell("... against a program that only flips and plays music", used / least, 3, "times")
    goals.tell("wake-ups in play", sum(wakes), 350, "a second")
    print("  by thread:", ", ".join(f"{count:.0f}" for count in wakes))
    intervals = frame_intervals(screen, game)
    goals.tell("frames apart, median", statistics.median(intervals), 17.5, "ms")
    goals.tell("frames apart, 95 of 100", intervals[len(intervals) * 95 // 100], 19, "ms")
    goals.tell("memory in play", resident_kib(game.process.pid) / 1024, 60, "MiB")
    screen.focus(screen.open_other())
    goals.tell("processor without focus", load(game)[0], used, "% of a core")
    screen.focus(game.window)
    memory = play_on(game, games)
    growth = abs(100 * memory[-1] / memory[0] - 100)
    goals.tell(f"memory after game {games} against game 1, apart", growth, 1, "%", limit=2)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--games", type=int, default=10)
    parser.add_argument("--results", type=pathlib.Path)
    options = parser.parse_args()
    goals = Goals()
    with Display() as screen:
        starts = [start_milliseconds(screen) for _ in range(5)]
        goals.tell("start to title", statistics.median(starts), 400, "ms")
        with Flip(screen) as flip:
            flip.wait_for_window()
            least = load(flip)[0]
        with Game(screen) as game:
            measure(screen, game, options.games, least, goals)
    goals.write(options.results)


if __name__ == "__main__":
    main()
