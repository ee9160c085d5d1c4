"""The configuration window on a real X server, worked by mouse and keyboard as its user does."""

import os
import re
import subprocess
import time
import unittest

from desktop_session import BLUE, GREEN, RED, Display, Session, entry, wait_until

WINDOW = "Screen Saver Properties"
# In the window, in pixels: the middle of the monitor's screen, and the rows of the list.
PANE = (187, 97)
LIST_LEFT, FIRST_ROW, ROW = 100, 235, 13


def directory_entry(path):
    return (path + "/").ljust(255) + (path + "/").ljust(257)


def play_list_text(*entries):
    return "".join(f"P:{text}\r\n" for text in entries).encode()


class ConfigurationTest(unittest.TestCase):
    def setUp(self):
        self.start_display(800, 600)
        self.red, self.green, self.blue = (
            self.session.picture(name + ".bmp", 800, 600, colour)
            for name, colour in (("red", RED), ("green", GREEN), ("blue", BLUE)))
        self.file = os.path.join(self.session.folder, "lists.qvl")

    def start_display(self, width, height):
        self.display = Display(width, height)
        self.addCleanup(self.display.close)
        self.session = Session(self.display)
        self.addCleanup(self.session.close)

    def open_window(self, **environment):
        program = self.session.start("/C", **environment)
        self.wait_for(WINDOW)
        return program

    def assert_ends(self, program):
        self.assertEqual(program.wait(timeout=20), 0)

    def wait_for(self, title):
        wait_until(lambda: self.display.focused_title() == title, f"the window {title}")

    def press(self, *keys):
        self.display.xdotool("key", "--delay", 50, *keys)

    def answer(self, title, text):
        """Types the answer into the dialog of that title."""
        self.wait_for(title)
        self.display.xdotool("type", "--delay", 1, text)
        self.press("Return")
        self.wait_for(WINDOW)

    def place(self, x, y):
        """Where a place in the window is on the screen."""
        lines = self.display.output("xwininfo", "-name", WINDOW).decode().splitlines()
        corner = [int(line.split()[-1]) for line in lines if "Absolute upper-left" in line]
        return corner[0] + x, corner[1] + y

    def click_row(self, row):
        self.display.xdotool("mousemove", *self.place(LIST_LEFT, FIRST_ROW + row * ROW), "click", 1)

    def stored(self, section="PictureFiles"):
        lines = self.session.settings("list", section).split("\n")
        return [line.split("\t")[2].ljust(512) for line in lines if line]


class Lists(ConfigurationTest):
    def test_are_put_together_saved_and_stored(self):
        self.session.play(self.red)
        program = self.open_window()
        self.press("alt+p", "f")
        self.answer("Select One or More Files to Add", f'"{self.green}" "{self.blue}"')
        self.press("alt+t")
        self.answer("Select Directory", self.session.folder)
        self.click_row(2)
        self.press("alt+u")  # red, blue, green, directory
        self.click_row(0)
        self.press("Delete")
        self.press("ctrl+s")
        self.answer("Save Play List", self.file)
        lines = [entry(self.blue), entry(self.green), directory_entry(self.session.folder)]
        wait_until(lambda: os.path.exists(self.file), "the play list file")
        with open(self.file, "rb") as file:
            self.assertEqual(file.read(), play_list_text(*lines))
        self.press("Return")
        self.assert_ends(program)
        self.assertEqual(self.stored(), lines)
        self.assertEqual(self.session.settings("get", "Options", "PlayList"), self.file)

    def test_stay_as_they_were_after_cancel(self):
        self.session.play(self.red)
        self.session.options(PlayList="/before.qvl")
        with open(self.file, "wb") as file:
            file.write(play_list_text(entry(self.green), entry(self.blue)))
        program = self.open_window()
        self.press("ctrl+o")
        self.answer("Select Play List", self.file)
        self.click_row(0)
        self.press("Delete", "Escape")
        self.wait_for("Save Play List")
        self.press("Escape")
        self.wait_for(WINDOW)
        self.assertIsNone(program.poll())
        self.press("Escape")
        self.wait_for("Save Play List")
        self.press("alt+n")
        self.assert_ends(program)
        self.assertEqual(self.stored(), [entry(self.red)])
        self.assertEqual(self.session.settings("get", "Options", "PlayList"), "/before.qvl")


class Options(ConfigurationTest):
    def test_turn_to_the_next_page_and_from_the_first_to_the_last(self):
        cases = (("ctrl+Tab", "alt+n", "SoundRandom"), ("ctrl+shift+Tab", "alt+f", "SubFolders"))
        for turn, access_key, option in cases:
            program = self.open_window()
            self.press("alt+p", "o")
            self.wait_for("Screen Saver Options")
            self.press(turn, access_key, "Return")
            self.wait_for(WINDOW)
            self.press("Escape")
            self.assert_ends(program)
            self.assertEqual(self.session.settings("get", "Options", option), "1", turn)


class Window(ConfigurationTest):
    def setUp(self):
        pass

    def open_on(self, width, height, scale):
        self.start_display(width, height)
        return self.open_window(QT_SCALE_FACTOR=str(scale))

    def bottom(self, title):
        frame = self.display.output("xwininfo", "-frame", "-name", title).decode()
        return sum(int(re.search(name + r":\s+(\d+)", frame)[1]) for name in ("Absolute upper-left Y", "Height"))

    def test_fits_a_screen_of_few_pixels_and_a_large_scale(self):
        self.open_on(1024, 600, 1.5)
        self.assertLessEqual(self.bottom(WINDOW), 600)

    def test_and_so_do_its_dialogs_for_files_which_end_with_the_program(self):
        program = self.open_on(1280, 800, 2)
        for keys, title in ((["alt+p", "d"], "Select Directory"), (["ctrl+o"], "Select Play List")):
            self.wait_for(WINDOW)
            self.display.xdotool("key", "--delay", 200, *keys)
            self.wait_for(title)
            self.assertLessEqual(self.bottom(title), 800)
            if title != "Select Play List":
                self.display.xdotool("key", "Escape")
        program.terminate()
        self.assert_ends(program)


class Start(ConfigurationTest):
    def test_needs_a_display(self):
        no_wayland = {"QT_QPA_PLATFORM": "", "XDG_SESSION_TYPE": "wayland", "WAYLAND_DISPLAY": "gone"}
        for arguments, environment in ((["/C"], {}), (["/c"], {}), ([], {}), (["/C"], no_wayland), (["/S"], no_wayland)):
            with self.subTest(arguments=arguments, environment=environment):
                program = self.session.start(*arguments, stderr=subprocess.PIPE, DISPLAY="", **environment)
                said = program.communicate(timeout=10)[1]
                self.assertEqual(program.returncode, 1)
                self.assertIn(b"quorvale: there is no display", said)


class Pane(ConfigurationTest):
    def colour(self):
        return self.display.screenshot().pixel(*self.place(*PANE))

    def wait_for_colour(self, colour):
        wait_until(lambda: self.colour() == colour, f"{colour} in the pane")

    def test_plays_and_pauses_while_a_menu_is_open(self):
        self.session.play(self.red, self.blue)
        self.open_window()
        for colour in (RED, BLUE, RED):
            self.wait_for_colour(colour)
        self.press("alt+h")
        time.sleep(2.5)  # longer than a picture stays
        self.assertEqual(self.colour(), RED)
        self.press("Escape")
        self.wait_for_colour(BLUE)

    def test_pauses_while_a_dialog_is_open_and_takes_up_what_is_new(self):
        self.session.play(self.red, self.blue)
        self.open_window()
        self.wait_for_colour(RED)
        self.press("alt+p", "o")
        self.wait_for("Screen Saver Options")
        time.sleep(2.5)
        self.display.xdotool("mousemove", 1, 1)
        self.press("Escape")
        self.wait_for_colour(BLUE)
