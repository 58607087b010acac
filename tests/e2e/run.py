#!/usr/bin/python3
# Runs the end-to-end tests: all of them, or those that are named (test_play.Play.test_x).

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))


def main():
    loader, names = unittest.defaultTestLoader, sys.argv[1:]
    suite = loader.loadTestsFromNames(names) if names else loader.discover(sys.path[0])
    result = unittest.TextTestRunner(verbosity=2).run(suite)
    # A test counts once, however many of its cases fail.
    bad = len({getattr(test, "test_case", test).id()
               for test, _ in result.failures + result.errors})
    skipped = len(result.skipped)
    for test, reason in result.skipped:
        print(f"Skipped: {test.id()} ({reason})")
    print(f"{result.testsRun - bad - skipped} passed, {bad} failed, {skipped} skipped")
    return 1 if bad or not result.testsRun else 0


if __name__ == "__main__":
    sys.exit(main())
