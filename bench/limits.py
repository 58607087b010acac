#!/usr/bin/python3
"""Looks through the results of benchmarks (JSON) for ratios that are above their limits.

Usage: bench/limits.py FILE...

Both are counters, "ratio" and "limit", each perhaps with a name in front ("start_growth_ratio"); one
without a limit is not looked at. A benchmark that has failed counts as above.
"""
import json
import pathlib
import sys


def limited(run):
    """The name, the ratio and the limit of each counter that has one."""
    for key in run:
        if key.endswith("limit"):
            front = key.removesuffix("limit")
            yield f"{run['name']} {front}".rstrip("_ "), run[front + "ratio"], run[key]


def main():
    results = [json.loads(pathlib.Path(name).read_text()) for name in sys.argv[1:]]
    runs = [run for result in results for run in result["benchmarks"]]
    failed = [run for run in runs if run.get("error_occurred")]
    for run in failed:
        print(f"{run['name']}: {run.get('error_message', 'it failed')}")
    ratios = [each for run in runs if run not in failed for each in limited(run)]
    above = [each for each in ratios if not each[1] <= each[2]]
    for name, ratio, limit in above:
        print(f"{name}: the ratio {ratio:.3f} is above {limit:.3f}")
    print(f"{len(ratios)} ratios, {len(above)} above their limits; {len(failed)} benchmarks failed")
    sys.exit(1 if above or failed else 0)


main()
