"""The configuration window on a real X server, by keyboard as its user works it."""

import os
import unittest

from desktop_session import Display, Session, entry, wait_until

CAPTION = "Screen Saver Properties"


class ConfigurationTest(unittest.TestCase):
    def setUp(self):
        self.display = Display(1000, 800)
        self.addCleanup(self.display.close)
        self.session = Session(self.display)
        self.addCleanup(self.session.close)
        self.pictures = [self.session.picture(f"{name}.bmp", 40, 30, (255, 0, 0)) for name in "abc"]
        self.file = os.path.join(self.session.folder, "Holiday.qvl")
        self.session.play(*self.pictures[:2])
        self.program = self.session.start("/C")
        self.wait_for(CAPTION)

    def wait_for(self, title):
        """Until the window of that title has the keyboard."""
        wait_until(lambda: self.display.focused_title() == title, title)

    def keys(self, *keys):
        for key in keys:
            self.display.xdotool("key", "--clearmodifiers", key)

    def answer(self, title, text):
        self.wait_for(title)
        self.display.xdotool("type", text)
        self.keys("Return")
        self.wait_for(CAPTION)

    def stored(self):
        return [self.session.settings("get", "PictureFiles", f"File{i}") for i in range(5)]

    def entries(self, *order):
        return [entry(self.pictures[i]) for i in order] + [""] * (5 - len(order))

    def add_move_and_save(self):
        self.keys("alt+p", "f")
        self.answer("Select One or More Files to Add", self.pictures[2])
        self.keys("alt+s", "Left")  # to the sounds and back, with the focus before the list
        self.keys("Tab", "End", "alt+u")
        self.keys("alt+f", "a")
        self.answer("Save Play List", self.file)
        wait_until(lambda: os.path.exists(self.file), "the file")


class Configuration(ConfigurationTest):
    def test_what_is_added_moved_and_saved_is_stored_on_ok(self):
        self.add_move_and_save()
        lines = ["P:" + entry(self.pictures[i]) + "\r\n" for i in (0, 2, 1)]
        with open(self.file, newline="", encoding="utf-8") as file:
            self.assertEqual(file.read(), "".join(lines))
        self.keys("ctrl+n", "ctrl+o")
        self.answer("Select Play List", self.file)
        self.assertEqual(self.stored(), self.entries(0, 1))
        self.keys("Return")
        self.assertEqual(self.program.wait(timeout=10), 0)
        self.assertEqual(self.stored(), self.entries(0, 2, 1))
        self.assertEqual(self.session.settings("get", "Options", "PlayList"), self.file)

    def test_cancel_leaves_the_store_as_it_was(self):
        self.add_move_and_save()
        self.keys("Escape")
        self.assertEqual(self.program.wait(timeout=10), 0)
        self.assertEqual(self.stored(), self.entries(0, 1))
        self.assertEqual(self.session.settings("get", "Options", "PlayList"), "")
