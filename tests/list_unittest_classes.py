"""Prints the test classes that unittest finds in a folder, as module.class, for CMake."""

import sys
import unittest


def tests_of(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from tests_of(test)
        else:
            yield test


loader = unittest.TestLoader()
tests = list(tests_of(loader.discover(sys.argv[1])))
if loader.errors:
    sys.exit("\n".join(loader.errors))
print("\n".join(sorted({f"{type(test).__module__}.{type(test).__qualname__}" for test in tests})))
