"""The show beside lockers and windows of other programs, and on screens that change."""

import ctypes
import os
import shutil
import subprocess
import unittest

from desktop_session import BLACK, BLUE, RED, ShowTest, wait_until
from test_xscreensaver import AS_USER, USER


class KeyboardGrab:
    """Another program's connection, which can take the whole keyboard as screen lockers do."""

    def __init__(self, display):
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._connection = ctypes.c_void_p(self._x11.XOpenDisplay(display.name.encode()))
        self._root = ctypes.c_ulong(self._x11.XDefaultRootWindow(self._connection))

    def take(self):
        return self._x11.XGrabKeyboard(self._connection, self._root, 0, 1, 1, ctypes.c_ulong(0)) == 0

    def release(self):
        self._x11.XUngrabKeyboard(self._connection, ctypes.c_ulong(0))
        self._x11.XFlush(self._connection)

    def close(self):
        self._x11.XCloseDisplay(self._connection)


class KeyboardTest(ShowTest):
    def setUp(self):
        super().setUp()
        self.grab = KeyboardGrab(self.display)
        self.addCleanup(self.grab.close)

    def other_window(self):
        self.run_beside("xev", "-name", "Other")
        return wait_until(lambda: self.display.output("xdotool", "search", "--onlyvisible", "--name", "^Other$").split(),
                          "the other window")[0].decode()

    def start_and_settle(self, **options):
        program = self.start_show(**options)
        self.assert_runs(program)
        return program


class Keyboard(KeyboardTest):
    def test_is_free_for_a_locker_and_comes_back(self):
        program = self.start_and_settle()
        self.assertTrue(self.grab.take())
        self.assert_runs(program, 1)
        self.grab.release()
        self.assert_runs(program, 1)
        self.assert_ends_by_key(program)

    def test_may_go_to_a_lockers_window_under_its_grab(self):
        program = self.start_and_settle()
        self.assertTrue(self.grab.take())
        other = self.other_window()
        self.display.xdotool("windowfocus", other)
        self.assert_runs(program, 1)
        self.display.xdotool("windowclose", other)
        self.assert_runs(program, 1)
        self.grab.release()
        self.assert_ends_by_key(program)

    def test_in_another_window_ends_the_show(self):
        program = self.start_and_settle(SwapAffect="Spotlight", TransSpeed="1")
        self.display.xdotool("windowfocus", self.other_window())
        self.assert_ends(program)

    def test_off_the_screen_the_show_ends(self):
        program = self.start_and_settle()
        self.display.xdotool("windowunmap", self.display.window())
        self.assert_ends(program)


class KeyboardWithoutManager(Keyboard):
    window_manager = False


class UnderAManager(KeyboardTest):
    def test_minimised_the_show_ends(self):
        program = self.start_and_settle()
        self.display.xdotool("windowminimize", self.display.window())
        self.assert_ends(program)

    def test_the_show_is_on_all_desktops(self):
        self.display.xdotool("set_num_desktops", 2)
        program = self.start_and_settle()
        self.display.xdotool("set_desktop", 1)
        self.assert_runs(program, 1)
        self.assertIn(self.pixels((0, 0), (799, 599)), ([RED] * 2, [BLUE] * 2))
        self.assert_ends_by_key(program)


@unittest.skipUnless(shutil.which("xsecurelock"), "xsecurelock is not installed")
class BesideXsecurelock(KeyboardTest):
    def test_the_screen_locks(self):
        program = self.start_and_settle()
        locker = self.run_beside("xsecurelock")
        self.wait_for_colour(BLACK)
        self.assert_runs(program, 1)
        self.assertIsNone(locker.poll())
        self.assertFalse(self.grab.take())


@unittest.skipUnless(shutil.which("xscreensaver"), "xscreensaver is not installed")
class BesideXScreenSaver(KeyboardTest):
    def as_user(self, *command):
        return subprocess.run([*AS_USER, shutil.which("xscreensaver-command"), *command],
                              env=dict(self.display.environment, HOME=self.session.folder), stdout=subprocess.PIPE,
                              text=True, stderr=subprocess.STDOUT, check=False)

    def test_the_screen_locks(self):
        with open(os.path.join(self.session.folder, ".xscreensaver"), "w", encoding="utf-8") as file:
            file.write("timeout:\t0:10:00\nlock:\tTrue\nfade:\tFalse\nunfade:\tFalse\nsplash:\tFalse\nmode:\tblank\n")
        subprocess.run(["chown", "-R", f"{USER}:{USER}", self.session.folder], check=True)
        self.display.environment["HOME"] = self.session.folder
        self.run_beside(*AS_USER, shutil.which("xscreensaver"), "--no-splash", cwd=self.session.folder)
        wait_until(lambda: self.as_user("--time").returncode == 0, "the daemon")
        program = self.start_and_settle()
        self.as_user("--lock")
        wait_until(lambda: "locked" in self.as_user("--time").stdout, "the lock")
        self.assert_runs(program)


@unittest.skipUnless(shutil.which("weston"), "weston is not installed")
class OnWayland(KeyboardTest):
    def setUp(self):
        super().setUp()
        self.display.environment.update(XDG_RUNTIME_DIR=self.session.environment["XDG_RUNTIME_DIR"])
        self.run_beside("weston", "--backend=x11-backend.so", "--socket=wayland-test", "--idle-time=0")
        self.display.environment.update(WAYLAND_DISPLAY="wayland-test")
        socket = os.path.join(self.session.environment["XDG_RUNTIME_DIR"], "wayland-test")
        wait_until(lambda: os.path.exists(socket), "the compositor")
        # Without the keyboard it makes no window the active one.
        wait_until(lambda: self.display.focused_title().startswith("Weston"), "the compositor's window")

    def test_another_active_window_ends_the_show(self):
        program = self.session.start("/S", QT_QPA_PLATFORM="wayland", WAYLAND_DISPLAY="wayland-test")
        self.session.wait_for_picture(2)
        self.assert_runs(program)
        self.run_beside("weston-simple-shm")
        self.assertEqual(program.wait(timeout=10), 0)


@unittest.skipUnless(shutil.which("xrandr"), "xrandr is not installed")
class Screens(ShowTest):
    def setUp(self):
        super().setUp()
        self.session.options(Stretch="1")
        self.modes = {"800x600"}

    def xrandr(self, *arguments):
        subprocess.run(["xrandr", *arguments], env=self.display.environment, check=True, stdout=subprocess.DEVNULL)

    def wait_for_cover(self, corners, colours=((RED,), (BLUE,))):
        wanted = [list(c) * len(corners) for c in colours]
        wait_until(lambda: self.pixels(*corners) in wanted, f"the show at {corners}")

    def resize(self, width, height):
        name = f"{width}x{height}"
        if name not in self.modes:
            # The server looks at the sizes alone.
            self.xrandr("--newmode", name, "25", *map(str, (width, 900, 910, 920, height, 700, 710, 720)))
            self.xrandr("--addmode", "screen", name)
            self.modes.add(name)
        self.xrandr("--output", "screen", "--mode", name)
        self.display.width = width

    def test_of_another_size_are_covered_at_once_and_filled_by_the_next_picture(self):
        self.resize(400, 300)
        program = self.session.start_show()
        self.wait_for_colour(RED, (200, 150))
        for width, height in ((800, 600), (450, 600), (800, 300)):
            self.resize(width, height)
            self.wait_for_cover(((0, 0), (width - 1, height - 1), (width - 1, 0)))
            self.assert_runs(program)
        self.assert_ends_by_key(program)

    def plug(self):
        self.xrandr("--setmonitor", "Left", "400/100x600/150+0+0", "screen")
        self.xrandr("--setmonitor", "*Right", "400/100x600/150+400+0", "none")

    def unplug(self):
        self.xrandr("--delmonitor", "Right")
        self.xrandr("--delmonitor", "Left")

    def test_with_other_monitors_show_the_show_on_the_primary_one_alone(self):
        program = self.start_show()
        self.plug()
        self.wait_for_cover(((400, 0), (799, 599)))
        self.wait_for_cover(((0, 0), (399, 599)), ((BLACK,),))
        self.unplug()
        self.wait_for_cover(((0, 0), (799, 599)))
        self.assert_runs(program)

    def test_with_other_monitors_may_have_a_picture_on_each(self):
        program = self.start_show(Monitors="A Picture on Each")
        corners = (0, 0), (399, 599), (400, 0), (799, 599)
        both = [RED, RED, BLUE, BLUE], [BLUE, BLUE, RED, RED]
        for change in self.plug, self.unplug, self.plug:
            change()
            if change == self.plug:
                wait_until(lambda: self.pixels(*corners) in both, "a picture on each")
            else:
                self.wait_for_cover(corners)
        self.assert_runs(program)
        self.display.xdotool("mousemove", 200, 300, "click", 1)
        self.assert_ends(program)


class ScreensWithoutManager(Screens):
    window_manager = False
