#!/usr/bin/python3
# Plays whole games, opens consoles and starts tasks, and compares what lives before and after.
#
# Usage: run.py BUILD_FOLDER [GAMES CONSOLES TASKS]

import collections
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))
from game import headless  # noqa: E402

MANNERS = ("idle", "sweeper", "chaser", "bouncer", "spinner", "presser", "fidgeter")
BEST = "99999 2026-01-01 -\n" * 10  # so that no game changes the title, or has a place
REST = ("advance 500", "frame") * 10
TITLE = ("run replaygame(data/demo.replay)", "frame", "run stopreplay", *REST)
TOGGLE = ("run load(data/keys/console.txt)", "advance 20", "frame")
WRAP = f"advance {2 ** 32 - 600_000}"  # ten minutes before the milliseconds begin anew


def orders(games, consoles, tasks):
    yield from ("run starttask(census, census, 40)", WRAP)
    for number in range(games):
        kind = number // 2  # each game twice: the panel at its end looks as it did before
        yield from (f"date {kind}", "click", "click", f"play {MANNERS[kind % 7]} {kind} 25")
        yield from (*REST, "run census::panel", *TITLE, "run census::title")
    for number in range(consoles):
        yield from (*TOGGLE, f"run keyboard::bind(f12, soak = {number})",
                    "run Audio::PlayEffect(data/sfx/hit_small.wav)",
                    f"run window::Resize({600 + number % 10}, 500)", *TOGGLE)
        if number in (9, consoles - 1):
            yield from (*TITLE, "run census::console")
    for number in range(tasks):
        yield f"run starttask(census, census{number}, 40)"
        if number + 1 in (tasks // 2, tasks):
            yield "run census::task"


def main():
    games, consoles, tasks = map(int, sys.argv[2:] or (30, 100, 1000))
    program = f"{sys.argv[1]}/brumble_soak"
    with headless(program, orders(games, consoles, tasks), scores=BEST) as game:
        game.wait_for_end()
        assert game.log().count("Gameover") == games, "not all games were played to the end"
    # By the name of each census, in their order: the bytes of the heap, and what lived.
    memory, living = collections.defaultdict(list), collections.defaultdict(list)
    for line in re.findall("^census .*", game.printed, re.M):
        _, name, size, *counts = line.split()
        memory[name].append(int(size))
        living[name].append(set(counts))
    panels, titles = living["panel"], living["title"]
    pairs = [(f"panel {number + 1}", panels[number - 1], panels[number])
             for number in range(3, games, 2)]
    pairs += [(f"title {number + 1}", titles[1], titles[number]) for number in range(2, games)]
    pairs.append(("the consoles", *living["console"]))
    wrong = [f"{what}: {sorted(was - now)} became {sorted(now - was)}"
             for what, was, now in pairs if was != now]
    growth = memory["title"][-1] / memory["title"][9] - 1
    before, after = memory["console"]
    console_cost = (after - before) / max(consoles - 10, 1)
    half, end = memory["task"]
    costs = [half - after, end - half]
    costly = {"the memory of the games grows": growth > 0.005,
              "a console leaves more than a binding": console_cost > 250,
              "later tasks cost more": costs[1] > 1.2 * costs[0]}
    wrong += [what for what, is_so in costly.items() if is_so]
    print(*wrong, f"{games} games: memory {growth:+.2%} since the tenth",
          f"{consoles} consoles: {console_cost:.0f} bytes each since the tenth",
          f"{tasks} tasks: {costs[0]} bytes for the first half, {costs[1]} for the second",
          f"{len(wrong)} faults", sep="\n")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
