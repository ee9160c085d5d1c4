"""The show in the window of a screen saver daemon, and under the real XScreenSaver."""

import os
import shutil
import signal
import subprocess
import time

from desktop_session import BLACK, BLUE, PROGRAM, RED, ShowTest, wait_until

USER = 1234  # XScreenSaver refuses to work for the superuser
AS_USER = [shutil.which("setpriv"), f"--reuid={USER}", f"--regid={USER}", "--clear-groups"]
COMMAND = shutil.which("xscreensaver-command")


class DaemonTest(ShowTest):
    """A window that stands for the daemon's."""
    window_manager = False

    def daemon_window(self, geometry="800x600+0+0"):
        process = self.run_beside("xev", "-geometry", geometry, "-bw", "0", "-event", "button", "-name", geometry)
        return process, wait_until(lambda: self.find(geometry), "the daemon's window")

    def find(self, name):
        found = self.display.output("xdotool", "search", "--onlyvisible", "--name", name.replace("+", ".")).split()
        return found[0].decode() if found else None

    def start_in(self, window, *arguments):
        program = self.session.start("--root", *arguments, XSCREENSAVER_WINDOW=hex(int(window)), stderr=subprocess.PIPE)
        self.addCleanup(program.stderr.close)
        return program

    def assert_ends_in(self, seconds, program):
        """Ends it by signal, quietly and in time."""
        start = time.monotonic()
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(timeout=10), 0)
        self.assertLess(time.monotonic() - start, seconds)
        self.assertEqual(program.stderr.read(), b"")


class InTheDaemonsWindow(DaemonTest):
    def test_no_input_ends_the_show_but_a_signal_does_at_once(self):
        _, window = self.daemon_window()
        program = self.start_in(window)
        for colour in (RED, BLUE):
            self.wait_for_colour(colour)
            self.assertEqual(self.pixels((0, 0), (799, 599)), [colour] * 2)
        self.display.xdotool("key", "space")
        for move in range(12):
            self.display.xdotool("mousemove", 100 + 10 * move, 200)
        self.display.xdotool("click", 1)
        self.assert_runs(program)
        self.assert_ends_in(0.25, program)

    def test_a_second_one_may_come_before_the_first_has_gone(self):
        _, window = self.daemon_window()
        first = self.start_in(window)
        self.wait_for_colour(RED)
        second = self.start_in(window)
        self.assert_runs(second, 1)
        self.assert_ends_in(0.25, first)
        self.assert_runs(second)

    def test_a_signal_in_the_middle_of_an_effect_ends_the_show(self):
        self.session.options(SwapAffect="Spotlight", TransSpeed="1")
        _, window = self.daemon_window()
        program = self.start_in(window)
        self.wait_for_colour(RED)
        self.wait_for_colour(BLACK)
        self.assert_ends_in(0.25, program)

    def two_monitors(self):
        for name, left, output in (("*Left", 0, "screen"), ("Right", 400, "none")):
            self.display.output("xrandr", "--setmonitor", name, f"400/100x600/150+{left}+0", output)

    def test_a_window_on_another_monitor_stays_black(self):
        self.two_monitors()
        _, window = self.daemon_window("400x600+400+0")
        program = self.start_in(window)
        self.wait_for_colour(BLACK, (500, 300))
        self.assert_runs(program, 1)
        self.assertEqual(self.pixels((400, 0), (799, 599), (600, 300)), [BLACK] * 3)
        self.assert_ends_in(0.25, program)

    def test_each_of_two_windows_may_have_pictures_of_the_same_list(self):
        self.two_monitors()
        self.session.options(Monitors="A Picture on Each", Stretch="1", PicRandom="1")
        programs = [self.start_in(self.daemon_window(f"400x600+{left}+0")[1]) for left in (0, 400)]
        both = [RED, RED, BLUE, BLUE], [BLUE, BLUE, RED, RED]
        wait_until(lambda: self.pixels((0, 0), (399, 599), (400, 0), (799, 599)) in both, "a picture in each")
        for program in programs:
            self.assert_ends_in(0.25, program)

    def test_a_daemon_that_is_killed_takes_the_show_along(self):
        for geometry, in_sight in (("800x600+0+0", RED), ("400x300+10+10", RED)):
            with self.subTest(geometry=geometry):
                process, window = self.daemon_window(geometry)
                program = self.start_in(window)
                self.wait_for_colour(in_sight, (200, 200))
                process.kill()
                self.assertEqual(program.wait(timeout=10), 0)
                self.assertEqual(program.stderr.read(), b"")

    def test_without_a_window_there_is_no_show(self):
        program = self.session.start("--root", stderr=subprocess.DEVNULL, XSCREENSAVER_WINDOW="")
        self.assertEqual(program.wait(timeout=10), 1)

    def test_a_window_id_or_a_window_on_no_monitor_means_the_preview(self):
        for number, arguments in enumerate((("--window-id", None), ())):
            left = 100 + 200 * number
            _, window = self.daemon_window(f"152x112+{left}+80")
            program = self.start_in(window, *(argument or hex(int(window)) for argument in arguments))
            self.wait_for_colour(RED, (left + 76, 136))
            self.assert_ends_in(0.25, program)


class UnderXScreenSaver(DaemonTest):
    """Set up by our own set-up, and run as an ordinary user."""

    def setUp(self):
        super().setUp()
        if not shutil.which("xscreensaver") or not shutil.which("setpriv"):
            self.skipTest("XScreenSaver is not installed")
        if os.geteuid() != 0 or not self.can_run_program():
            self.skipTest("the program can't be run as another user")
        self.session.environment["HOME"] = self.session.folder
        # With the daemon, but without its settings dialog, which the set-up would open.
        programs = os.path.join(self.session.folder, "bin")
        os.mkdir(programs)
        os.symlink(shutil.which("xscreensaver"), os.path.join(programs, "xscreensaver"))
        self.session.environment["PATH"] = programs
        self.write_settings("timeout:\t0:10:00\nlock:\tFalse\nfade:\tFalse\nunfade:\tFalse\nsplash:\tFalse\n"
                            "dpmsEnabled:\tFalse\nmode:\trandom\nprograms:\t\\\n  deco --root\t\\n\\\n")
        subprocess.run(["chown", "-R", f"{USER}:{USER}", self.session.folder], check=True)

    def can_run_program(self):
        return subprocess.run([*AS_USER, "test", "-x", PROGRAM], check=False).returncode == 0

    def write_settings(self, text):
        with open(os.path.join(self.session.folder, ".xscreensaver"), "w", encoding="utf-8") as file:
            file.write(text)

    def as_user(self, *command):
        return self.run_beside(*AS_USER, *command, env=self.session.environment, cwd=self.session.folder)

    def command(self, word):
        return subprocess.run([*AS_USER, COMMAND, word], env=self.session.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False).returncode == 0

    def shows(self):
        """The processes of the program that this user runs."""
        found = []
        for name in filter(str.isdigit, os.listdir("/proc")):
            try:
                if os.readlink(f"/proc/{name}/exe") == PROGRAM and os.stat(f"/proc/{name}").st_uid == USER:
                    found.append(name)
            except OSError:
                pass
        return found

    def test_the_set_up_without_a_directory_leaves_the_saver_alone(self):
        file = os.path.join(self.session.folder, ".xscreensaver")
        with open(file, encoding="utf-8") as settings:
            before = settings.read()
        self.assertEqual(self.as_user(PROGRAM, "/INSTALL").wait(timeout=10), 0)
        with open(file, encoding="utf-8") as settings:
            self.assertEqual(settings.read(), before)

    def test_blanking_shows_the_pictures_until_it_is_over(self):
        self.assertEqual(self.as_user(PROGRAM, "/INSTALL", self.session.folder + "/").wait(timeout=10), 0)
        self.session.play(self.red, self.blue)
        subprocess.run(["chown", "-R", f"{USER}:{USER}", self.session.folder], check=True)
        self.as_user(shutil.which("xscreensaver"), "--no-splash")
        wait_until(lambda: self.command("--time"), "the daemon")
        self.assertTrue(self.command("--activate"))
        self.wait_for_colour(RED)
        self.assertEqual(self.pixels((0, 0), (799, 599)), [RED] * 2)
        self.assertEqual(len(self.shows()), 1)
        self.assertTrue(self.command("--deactivate"))
        wait_until(lambda: not self.shows(), "the show's end")
