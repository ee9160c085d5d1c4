"""Calls that fail once, by a library that is loaded before the program's others."""

import os
import subprocess
import unittest

from desktop_session import BUILD, Display, RED, Session, wait_until

LIBRARY = os.path.join(BUILD, "libfailing_calls.so")


class FailingCalls(unittest.TestCase):
    def setUp(self):
        self.display = Display()
        self.addCleanup(self.display.close)
        self.session = Session(self.display)
        self.addCleanup(self.session.close)
        self.session.play(self.session.picture("a.bmp", 40, 30, RED))

    def start(self, family, number):
        return self.session.start("/S", stderr=subprocess.PIPE, LD_PRELOAD=LIBRARY, QUORVALE_FAIL=family,
                                  QUORVALE_FAIL_AT=str(number))

    def test_without_memory_at_the_start_it_says_so(self):
        with self.start("memory", 5) as program:
            self.assertIn(b"quorvale: std::bad_alloc", program.stderr.read())
            self.assertEqual(program.wait(), 1)

    def test_an_unreadable_file_at_the_start_does_not_keep_it_from_showing(self):
        with self.start("files", 5) as program:
            wait_until(self.display.window, "the show's window")
            program.kill()
