#!/usr/bin/python3
"""Looks through the results of benchmarks (JSON) for ratios that are above their limits.

Usage: bench/limits.py FILE...

Both are counters, "ratio" and "limit"; a benchmark without a limit is not looked at.
"""
import json
import pathlib
import sys


def main():
    results = [json.loads(pathlib.Path(name).read_text()) for name in sys.argv[1:]]
    limited = [run for result in results for run in result["benchmarks"] if "limit" in run]
    above = [run for run in limited if not run["ratio"] <= run["limit"]]
    for run in above:
        print(f"{run['name']}: the ratio {run['ratio']:.3f} is above {run['limit']:.3f}")
    print(f"{len(limited)} ratios, {len(above)} above their limits")
    sys.exit(1 if above else 0)


main()
