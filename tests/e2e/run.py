#!/usr/bin/python3
"""Runs the end-to-end tests: all of them, or those whose names are given (test_play.Play.test_x)."""
import pathlib
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))


class Result(unittest.TextTestResult):
    def startTest(self, test):
        self.began = time.monotonic()
        super().startTest(test)

    def addSuccess(self, test):
        super().addSuccess(test)
        self.stream.writeln(f"    {time.monotonic() - self.began:.1f} s")

    def addFailure(self, test, err):
        # At once, too: a long run that is ended early still tells what went wrong.
        super().addFailure(test, err)
        self.stream.writeln(f"    {time.monotonic() - self.began:.1f} s: {err[1]}")


def main():
    loader = unittest.defaultTestLoader
    if sys.argv[1:]:
        suite = loader.loadTestsFromNames(sys.argv[1:])
    else:
        suite = loader.discover(str(pathlib.Path(__file__).parent))
    result = unittest.TextTestRunner(verbosity=2, resultclass=Result).run(suite)
    # A test counts once, however many of its cases fail.
    bad = len({getattr(test, "test_case", test).id()
               for test, _ in result.failures + result.errors})
    print(f"{result.testsRun - bad} passed, {bad} failed")
    return 1 if bad or not result.testsRun else 0


if __name__ == "__main__":
    sys.exit(main())
