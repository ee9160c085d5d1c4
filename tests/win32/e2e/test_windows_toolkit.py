"""The platform's own windows and controls, by a test program that needs a display."""

import os
import unittest

from test_windows_show import WindowsTest
from wine_session import BUILD


class Toolkit(WindowsTest):
    def test_the_test_program_finds_no_fault(self):
        report = os.path.join(self.session.folder, "report.txt")
        with open(report, "wb") as file:
            program = self.session.start("--gtest_color=no", stdout=file,
                                         program=os.path.join(BUILD, "quorvale_win32_toolkit_tests.exe"))
            result = program.wait(timeout=120)
        with open(report, encoding="utf-8", errors="replace") as file:
            self.assertEqual(result, 0, file.read())


if __name__ == "__main__":
    unittest.main()
