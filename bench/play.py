#!/usr/bin/python3
"""Measures the real program under a virtual display: start, processor, frames, memory.

Usage: bench/play.py [--games N]     (N games to compare the memory over, 10 by default)

Needs build/release/brumble and the packages that ./check installs.
"""
import argparse
import pathlib
import statistics
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "e2e"))

from Xlib.ext import damage  # noqa: E402

from display import Display  # noqa: E402
from game import Game, fit, load_picture  # noqa: E402


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


def share_of_a_core(game, seconds=10):
    before, began = game.processor_seconds(), time.monotonic()
    time.sleep(seconds)
    used = game.processor_seconds() - before
    return 100 * used / (time.monotonic() - began)


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


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--games", type=int, default=10)
    games = parser.parse_args().games
    with Display() as screen:
        starts = [start_milliseconds(screen) for _ in range(5)]
        print(f"start to title: {statistics.median(starts):.0f} ms (at most 400)")
        with Game(screen) as game:
            game.start_playing()
            game.point_at(300, 300)
            print(f"processor in play: {share_of_a_core(game):.1f} % of a core (at most 15)")
            intervals = frame_intervals(screen, game)
            print(f"frames: {intervals[len(intervals) // 20]:.1f} to "
                  f"{intervals[-len(intervals) // 20]:.1f} ms apart (5th to 95th percentile)")
            print(f"memory in play: {resident_kib(game.process.pid) / 1024:.1f} MiB (at most 60)")
            screen.run("xdotool", "windowminimize", str(game.window.id))
            time.sleep(0.5)
            print(f"processor without focus: {share_of_a_core(game):.1f} % (no more than in play)")
            screen.run("xdotool", "windowactivate", "--sync", str(game.window.id))
            memory = play_on(game, games)
            print(f"memory after game {games} against game 1: {100 * memory[-1] / memory[0] - 100:+.2f} %"
                  " (within 1)")


if __name__ == "__main__":
    main()
