"""The configuration window on Windows, driven by keys."""

import os
import re
import time
import unittest

from test_windows_show import RED, WindowsTest
from wine_session import DESKTOP, entry, wait_until, windows_path

TITLE = "Screen Saver Properties"


class Configuration(WindowsTest):
    def setUp(self):
        super().setUp()
        self.session.write({"PictureFiles": None})
        self.program = self.session.start("/c:1234")
        self.display.xdotool("mousemove", 5, 5)  # no tool tip comes in the way
        self.session.wait_for_window(TITLE)

    def keys(self, *keys):
        self.display.xdotool("key", "--delay", "60", *keys)
        time.sleep(0.3)

    def choose_file(self, keys, title, path):
        """Opens a file dialog by those keys, and gives it a path."""
        self.keys(*keys)
        self.session.wait_for_window(title)
        self.display.xdotool("type", "--delay", "10", windows_path(path))
        self.keys("Return")

    def add(self, path):
        self.choose_file(["alt+p", "f"], "Select One or More Files to Add", path)

    def test_adds_a_folder(self):
        # Wine has a title of its own for the dialog.
        self.choose_file(["alt+t"], "Select Folder", self.session.folder)
        self.session.wait_for_window(TITLE)
        self.keys("Tab", "Return")
        self.assertEqual(self.program.wait(timeout=10), 0)
        self.assertEqual([text.split()[0] for text in self.saved()], [windows_path(self.session.folder) + "\\"])

    def saved(self):
        return list(self.session.read("PictureFiles").values())

    def test_ok_stores_the_list_as_keys_have_changed_it(self):
        for path in (self.red, self.blue):
            self.add(path)
        wait_until(lambda: RED in self.pixels((400, 180)), "the preview")
        self.keep_screenshot("windows-configuration")
        self.keys("Tab", "Home", "Down", "alt+u")  # moves the blue one up, which disables Up
        self.keys("shift+Tab", "shift+Tab", "shift+Tab", "Home", "shift+End")
        self.keep_screenshot("windows-configuration-list")
        self.keys("Return")
        self.assertEqual(self.program.wait(timeout=10), 0)
        self.assertEqual(self.saved(), [entry(self.blue), entry(self.red)])

    def test_only_ok_stores_the_options_and_about_closes_by_enter(self):
        for last, expected in (("Escape", "2"), ("Return", "7")):
            with self.subTest(last=last):
                self.keys("alt+p", "o")
                self.session.wait_for_window("Screen Saver Options")
                self.keys("alt+w", "BackSpace", "x", "7", "alt+s", "ctrl+Tab", "alt+k")
                self.keep_screenshot("windows-options")
                self.keys(last)
                time.sleep(0.3)
                self.assertEqual(self.session.read("Options")["Interval"], expected)
                self.assertEqual(self.session.read("Options").get("MoreKinds"), "1" if last == "Return" else None)
        self.keys("F10", "Right", "Right", "Down", "Up", "Return")
        self.session.wait_for_window("About Quorvale Customizable Screen Saver")
        self.keep_screenshot("windows-about")
        self.keys("Return", "Escape")
        self.assertEqual(self.program.wait(timeout=10), 0)

    def test_a_changed_list_asks_before_the_window_closes(self):
        self.add(self.red)
        self.keys("Escape")
        self.session.wait_for_window("Save Play List")
        self.keep_screenshot("windows-question")
        self.keys("Escape")
        self.assert_runs(self.program)
        self.keys("Escape")
        self.session.wait_for_window("Save Play List")
        self.keys("n")
        self.assertEqual(self.program.wait(timeout=10), 0)
        self.assertEqual(self.saved(), [])

    def test_saves_a_list_under_a_shorter_name(self):
        self.add(self.red)
        for name in ("the first and longer name.qvl", "short.qvl"):
            path = os.path.join(self.session.folder, name)
            self.keys("alt+f", "a")
            self.session.wait_for_window("Save Play List")
            self.keys("End", "shift+Home")
            self.display.xdotool("type", "--delay", "10", windows_path(path))
            self.keys("Return")
            wait_until(lambda: os.path.exists(path), name)


class LargeText(WindowsTest):
    """At this resolution the window would be larger than the screen."""
    screen = (1366, 768)
    dpi = 144

    def setUp(self):
        super().setUp()
        self.set_dpi(self.dpi)
        self.addCleanup(self.set_dpi, 96)

    def set_dpi(self, dpi):
        self.session.run("wine", "reg", "add", DESKTOP, "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(dpi), "/f")

    def test_the_window_fits_the_screen(self):
        self.session.start("/c:1234")
        self.session.wait_for_window(TITLE)
        self.keep_screenshot(f"windows-configuration-{self.dpi}")
        report = self.display.output("xwininfo", "-name", TITLE).decode()
        top, title_height, height = (int(re.search(rf"{name}: +(-?\d+)", report)[1])
                                     for name in ("Absolute upper-left Y", "Relative upper-left Y", "Height"))
        self.assertGreater(height, 0.8 * self.screen[1])
        self.assertGreaterEqual(top - title_height, 0)
        self.assertLessEqual(top + height, self.screen[1])


class LargerText(LargeText):
    screen = (1280, 960)
    dpi = 216


if __name__ == "__main__":
    unittest.main()
