#!/usr/bin/python3
# Plays whole games, opens consoles and starts tasks, and compares what lives before and after.
#
# Usage: run.py BUILD_FOLDER [GAMES CONSOLES TASKS]

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))
from game import headless  # noqa: E402

MANNERS = ("idle", "sweeper", "chaser", "bouncer", "spinner", "presser", "fidgeter")
CENSUS = "run census::now"
BEST = "99999 2026-01-01 -\n" * 10  # so that no game changes the title, or has a place
REST = ("advance 500", "frame") * 10
TITLE = ("run replaygame(data/demo.replay)", "frame", "run stopreplay", *REST)
WRAP = f"advance {2 ** 32 - 600_000}"  # ten minutes before the milliseconds begin anew


def orders(games, consoles, tasks):
    yield from ("run starttask(census, census, 40)", WRAP)
    for number in range(games):
        kind = number // 2  # each game twice: the panel at its end looks as it did before
        yield from (f"date {kind}", "click", "click", f"play {MANNERS[kind % 7]} {kind} 25", *REST, CENSUS)
        yield from (*TITLE, CENSUS)
    for number in range(consoles):
        toggle = ("run load(data/keys/console.txt)", "advance 20", "frame")
        yield from (*toggle, f"run keyboard::bind(f12, soak = {number})",
                    "run Audio::PlayEffect(data/sfx/hit_small.wav)",
                    f"run window::Resize({600 + number % 10}, 500)", *toggle)
        yield from (*TITLE, CENSUS) if number in (9, consoles - 1) else ()
    for number in range(tasks):
        yield f"run starttask(census, census{number}, 40)"
        yield from (CENSUS,) if number + 1 in (tasks // 2, tasks) else ()


# The objects of which there are not as many as before.
def changes(what, before, now):
    return [f"{what}: {now[1].get(name, 0)} {name}, were {before[1].get(name, 0)}"
            for name in before[1] | now[1] if before[1].get(name) != now[1].get(name)]


def main():
    games, consoles, tasks = map(int, sys.argv[2:] or (30, 100, 1000))
    program = f"{sys.argv[1]}/brumble_soak"
    with headless(program, orders(games, consoles, tasks), scores=BEST) as game:
        game.wait_for_end()
        assert game.log().count("Gameover") == games, "not all games were played to the end"
    counts = [(int(words[1]), dict(word.split("=") for word in words[2:]))
              for words in map(str.split, game.printed.splitlines()) if words[:1] == ["census"]]
    assert len(counts) == 2 * games + 4, f"{len(counts)} counts"
    panels = counts[:2 * games:2]
    del counts[:2 * games:2]
    wrong = [line for number in range(3, games, 2)
             for line in changes(f"panel {number + 1}", panels[number - 1], panels[number])]
    wrong += [line for number in range(2, games)
              for line in changes(f"game {number + 1}", counts[1], counts[number])]
    wrong += changes("the consoles", counts[games], counts[games + 1])
    memory = [count[0] for count in counts]
    costs = [memory[-2] - memory[-3], memory[-1] - memory[-2]]
    growth = memory[games - 1] / memory[9] - 1
    console_cost = (memory[games + 1] - memory[games]) / max(consoles - 10, 1)
    wrong += ["the memory of the games grows"] if growth > 0.005 else []
    wrong += ["a console leaves more than a binding"] if console_cost > 250 else []
    wrong += ["later tasks cost more"] if costs[1] > 1.2 * costs[0] else []
    print(*wrong, f"{games} games: memory {growth:+.2%} since the tenth",
          f"{consoles} consoles: {console_cost:.0f} bytes each since the tenth",
          f"{tasks} tasks: {costs[0]} bytes for the first half, {costs[1]} for the second",
          f"{len(wrong)} faults", sep="\n")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
