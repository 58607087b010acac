#!/usr/bin/python3
"""Runs the end-to-end tests: all of them, or those that are named (test_play.Play.test_x)."""
import pathlib
import signal
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))

LIMIT = 1800  # seconds for one test, whatever it waits for


class Result(unittest.TextTestResult):
    def startTest(self, test):
        super().startTest(test)
        signal.alarm(LIMIT)


def fail_late(*_):
    raise AssertionError(f"the test did not end within {LIMIT} s")


def main():
    loader, names = unittest.defaultTestLoader, sys.argv[1:]
    suite = loader.loadTestsFromNames(names) if names else loader.discover(sys.path[0])
    signal.signal(signal.SIGALRM, fail_late)
    result = unittest.TextTestRunner(verbosity=2, resultclass=Result).run(suite)
    # A test counts once, however many of its cases fail.
    bad = len({getattr(test, "test_case", test).id()
               for test, _ in result.failures + result.errors})
    for test, reason in result.skipped:
        print(f"Skipped: {test.id()}: {reason}")
    skipped = len(result.skipped)
    print(f"{result.testsRun - bad - skipped} passed, {bad} failed, {skipped} skipped")
    return 1 if bad or not result.testsRun else 0


if __name__ == "__main__":
    sys.exit(main())
