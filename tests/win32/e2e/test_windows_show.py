"""The show and the preview on Windows, and the platform's own tests that need a display."""

import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest

from wine_session import (BLACK, BLUE, BUILD, DESKTOP, GREEN, PASSWORD, PROGRAM, RED, WINE, Display, PictureTest,
                          WineSession, entry, wait_until, windows_path)


class WindowsTest(PictureTest):
    screen = (800, 600)

    def setUp(self):
        self.display = Display(*self.screen)
        self.addCleanup(self.display.close)
        folder = tempfile.mkdtemp(prefix="quorvale-wine-")
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        self.session = WineSession(self.display, folder)
        self.addCleanup(self.session.close)
        self.red = self.session.picture("red.bmp", 800, 600, RED)
        self.blue = self.session.picture("blue.bmp", 800, 600, BLUE)
        self.session.play(self.red, self.blue)

    def start_show_with_password(self):
        """As on Windows 98, where the show asks the library beside it; the first password is refused."""
        for file in (PROGRAM, PASSWORD):
            shutil.copy(file, self.session.folder)
        self.session.write({DESKTOP: {"ScreenSaveUsePassword": "1"}, WINE: {"Version": "win98"}})
        program = self.session.start_show(os.path.join(self.session.folder, os.path.basename(PROGRAM)))
        self.wait_for_colour(RED)
        return program

    def keep_screenshot(self, name):
        """To be looked at later."""
        subprocess.run(["import", "-silent", "-window", "root", os.path.join(BUILD, name + ".png")],
                       env=self.display.environment, check=True)


class Show(WindowsTest):
    def test_fills_the_screen_until_a_key(self):
        program = self.session.start_show()
        for colour in (RED, BLUE, RED):
            self.wait_for_colour(colour)
            self.assertEqual(self.pixels((0, 0), (799, 0), (0, 599), (799, 599)), [colour] * 4)
        self.keep_screenshot("windows-show")
        # A second copy ends at once, and a click does not end the first one.
        self.assertEqual(self.session.start("/s").wait(timeout=10), 0)
        self.display.xdotool("click", 1)
        self.assert_runs(program)
        self.assert_ends_by_key(program)

    def test_sweep_and_the_tenth_move(self):
        self.session.options(SwapAffect="Sweep Right", TransSpeed="5", BackColor=str(0x00FF00))
        program = self.session.start_show()
        self.wait_for_colour(RED)
        # Hundreds of passes to the step, each a call of Wine's server: on a busy machine that takes its time.
        wait_until(lambda: self.pixels((200, 300)) == [GREEN], "the sweep to be under way", 90)
        self.assertEqual(self.pixels((0, 0), (0, 599), (799, 0), (799, 599)), [GREEN, GREEN, RED, RED])
        self.keep_screenshot("windows-sweep")
        for move in range(9):
            self.display.xdotool("mousemove", 100 + 10 * move, 200)
            time.sleep(0.05)
        self.assert_runs(program)
        self.display.xdotool("mousemove", 300, 300)
        self.assert_ends(program)

    def test_modifier_and_close_box_end_it(self):
        for keys in ("Shift_L", "alt+F4"):
            with self.subTest(keys=keys):
                program = self.session.start_show()
                self.wait_for_colour(RED)
                self.display.xdotool("key", keys)
                self.assert_ends(program)

    def test_file_name_and_frame(self):
        self.session.play(self.session.picture("small.bmp", 400, 300, RED))
        self.session.options(ShowFrame="1", FrameThickness="20", FrameColor=str(0x00FF00), ShowFileName="1")
        self.session.start_show()
        self.wait_for_colour(RED)
        shot = self.display.screenshot()
        self.assertEqual(shot.pixel(195, 250), GREEN)
        bottom_line = [shot.pixel(x, y) for y in range(580, 600) for x in range(370, 430)]
        self.assertGreater(sum(min(pixel) > 150 for pixel in bottom_line), 20)
        self.keep_screenshot("windows-frame")

    def test_other_command_lines_end_at_once(self):
        for arguments in (["/X"], ["/install", "x"], ["/A"], ["/A", "5"], ["/P"], ["/P:123"], ["/P", "123"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.session.start(*arguments).wait(timeout=10), 0)


@unittest.skipUnless(shutil.which("xrandr"), "there is no xrandr here, to make two monitors of one")
class Monitors(WindowsTest):
    def arrange(self, primary, other):
        """Two monitors side by side, each beginning at that column of the screen."""
        for name in ("first", "second"):
            self.session.run("xrandr", "--delmonitor", name)
        for name, left in (("*first", primary), ("second", other)):
            self.session.run("xrandr", "--setmonitor", name, f"400/100x600/150+{left}+0",
                             "screen" if left == primary else "none")
        self.session.run("xsetroot", "-solid", "white")
        # Wine's newer way looks at outputs, and there is but one.
        self.session.write({WINE + "\\X11 Driver": {"UseXRandR": "N"}})
        self.addCleanup(self.session.write, {WINE + "\\X11 Driver": None})
        self.session.run("wineserver", "-k")
        self.session.run("wineserver", "-w")

    # What is left of the primary monitor has negative columns on Windows.
    def test_others_are_black_and_a_click_there_ends_the_show(self):
        for primary, other in ((0, 400), (400, 0)):
            with self.subTest(primary=primary):
                self.arrange(primary, other)
                program = self.session.start_show()
                self.wait_for_colour(RED, (primary + 200, 300))
                self.wait_for_colour(BLACK, (other + 200, 300))
                self.assertEqual(self.pixels((primary, 599), (other, 0), (other + 399, 599)), [RED, BLACK, BLACK])
                self.keep_screenshot("windows-monitors")
                self.display.xdotool("mousemove", other + 200, 300, "click", 1)
                self.assert_ends(program)

    def test_others_may_have_pictures_of_their_own(self):
        self.session.options(Monitors="A Picture on Each", Stretch="1")
        self.arrange(0, 400)
        program = self.session.start_show()
        both = [RED, RED, BLUE, BLUE], [BLUE, BLUE, RED, RED]
        wait_until(lambda: self.pixels((0, 0), (399, 599), (400, 0), (799, 599)) in both, "a picture on each")
        self.keep_screenshot("windows-picture-on-each")
        self.display.xdotool("mousemove", 600, 300, "click", 1)
        self.assert_ends(program)


class Front(WindowsTest):
    """Keys go to the program that is in front, so a show that is not would hide where they go."""

    def test_another_program_or_minimising_ends_it(self):
        for command in (["xmessage", "hello"], ["wine", "notepad"], ["xdotool", "getactivewindow", "windowminimize"]):
            with self.subTest(command=command):
                program = self.session.start_show()
                self.wait_for_colour(RED)
                self.assert_runs(program)
                self.run_beside(*command, env=self.session.environment)
                self.assert_ends(program)

    def test_asks_once_for_the_password_and_comes_back(self):
        program = self.start_show_with_password()
        self.assert_runs(program, 2)
        self.run_beside("wine", "notepad", env=self.session.environment)
        self.assert_runs(program, 1)
        # The library refuses once and then agrees: a second question for the same loss would end the show.
        points = [(x, y) for x in range(10, 800, 60) for y in range(10, 600, 60)]
        wait_until(lambda: set(self.pixels(*points)) in ({RED}, {BLUE}), "the show to cover the other program")
        self.assert_runs(program, 2)


@unittest.skipUnless(shutil.which("xrandr"), "there is no xrandr here, to change the screen")
class AnotherScreen(WindowsTest):
    def test_covers_it_and_lays_out_anew(self):
        self.session.run("xsetroot", "-solid", "white")
        program = self.session.start_show()
        self.wait_for_colour(RED)
        for width, height in ((640, 480), (800, 600)):
            self.session.run("xrandr", "--output", "screen", "--mode", f"{width}x{height}")
            self.display.width = width
            corners = (0, 0), (width - 1, 0), (0, height - 1), (width - 1, height - 1)
            wait_until(lambda: not set(self.pixels(*corners)) & {(255, 255, 255)}, "the whole screen to be covered")
            for colour in (RED, BLUE):
                wait_until(lambda: self.pixels(*corners) == [colour] * 4, f"{colour} in all corners")
        self.assert_ends_by_key(program)


class LoadFailure(WindowsTest):
    """The form that fails to load goes, and once took the program along before the box could be seen."""

    def test_reports_it_and_retries(self):
        for arguments in (["/S"], ["/P", "123"]):
            with self.subTest(arguments=arguments):
                self.session.options(TransSpeed="99999999999")
                program = self.session.start(*arguments)
                self.session.wait_for_window("Program Error")
                self.session.options(TransSpeed="20")
                self.display.xdotool("key", "alt+r")
                if arguments == ["/S"]:
                    self.wait_for_colour(RED)
                    self.display.xdotool("key", "space")
                self.assert_ends(program)


class Planted(WindowsTest):
    """Savers are handed around, and unpacked where anything may lie."""

    def test_runs_and_loads_nothing_beside_the_program(self):
        shutil.copy(PROGRAM, self.session.folder)
        program = os.path.join(self.session.folder, os.path.basename(PROGRAM))
        for name in ("comctl32", "dwmapi", "mpr", "uxtheme", "version", "windowscodecs", "winmm"):
            shutil.copy(os.path.join(BUILD, "planted_library.dll"), os.path.join(self.session.folder, name + ".dll"))
        shutil.copy(os.path.join(BUILD, "planted_program.exe"), os.path.join(self.session.folder, "rundll32.exe"))
        self.session.write({"SoundFiles": {"File0": entry(os.path.join(self.session.folder, "none.wav"))}})
        show = self.session.start_show(program)
        self.wait_for_colour(BLUE)
        self.assert_ends_by_key(show)
        for arguments in (["/A", "5"], ["/INSTALL", windows_path(self.session.folder) + "\\"]):
            self.session.start(*arguments, program=program, cwd=self.session.folder).wait(timeout=20)
        time.sleep(2)
        planted = os.path.join(self.session.folder, "planted.txt")
        if os.path.exists(planted):
            with open(planted, encoding="ascii") as file:
                self.fail(file.read())


class Password(WindowsTest):
    def test_a_wrong_password_continues_and_the_right_one_ends_it(self):
        program = self.start_show_with_password()
        self.display.xdotool("key", "space")
        self.wait_for_colour(BLUE)
        self.assert_runs(program)
        self.keep_screenshot("windows-password")
        self.assert_ends_by_key(program)

    def test_windows_nt_asks_itself(self):
        self.session.write({DESKTOP: {"ScreenSaveUsePassword": "1"}})
        program = self.session.start_show()
        self.wait_for_colour(RED)
        self.assert_ends_by_key(program)


class Preview(WindowsTest):
    def test_plays_in_the_host_until_the_close_message(self):
        self.session.options(Stretch="1")
        _, words = self.session.start_host("desktop")
        left, top = wait_until(self.host_corner, "the host")
        for colour in (RED, BLUE):
            self.wait_for_colour(colour, (left + 76, top + 56))
            self.assertEqual(self.pixels((left, top), (left + 151, top + 111)), [colour] * 2)
        self.keep_screenshot("windows-preview")
        self.session.close_preview()
        wait_until(lambda: words() == ["started", "ended 0"], "the preview's end")

    def test_ends_at_the_close_message_and_with_its_host(self):
        for command, expected in (("close", ["started", "left", "ended 0"]),
                                  ("destroy", ["started", "destroyed", "ended 0"]),
                                  ("quit", ["started"])):
            with self.subTest(command=command):
                host, words = self.session.start_host("window")
                wait_until(words, "the preview")
                time.sleep(1.5)  # it has drawn its first picture by then
                host.stdin.write(command.encode() + b"\n")
                host.stdin.flush()
                host.wait(timeout=20)
                wait_until(lambda: words() == expected and not self.is_running("Quorvale.scr"), f"{expected}")

    def host_corner(self):
        """Where the desktop of Wine's that stands for the host lies on the screen."""
        found = subprocess.run(["xwininfo", "-name", "preview - Wine desktop"], env=self.display.environment,
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False).stdout
        corner = re.findall(r"Absolute upper-left [XY]: +(\d+)", found)
        return tuple(map(int, corner)) if corner else None

    def is_running(self, name):
        return name in self.session.run("wine", "tasklist").decode(errors="replace")


class Toolkit(WindowsTest):
    def test_windows_and_controls(self):
        report = os.path.join(self.session.folder, "report.txt")
        with open(report, "wb") as file:
            program = self.session.start("--gtest_color=no", stdout=file,
                                         program=os.path.join(BUILD, "quorvale_win32_toolkit_tests.exe"))
            result = program.wait(timeout=200)
        with open(report, encoding="utf-8", errors="replace") as file:
            self.assertEqual(result, 0, file.read())


if __name__ == "__main__":
    unittest.main()
