"""A virtual display with a window manager, and the built program on it."""

import os
import shutil
import struct
import subprocess
import tempfile
import time
import unittest

BUILD = os.environ["QUORVALE_BUILD"]
PROGRAM = os.path.join(BUILD, "quorvale")
SETTINGS = os.path.join(BUILD, "quorvale-settings")
SCRIPTS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts")
PATIENCE = 20  # seconds; the machine may be busy
RED, GREEN, BLUE, BLACK = (255, 0, 0), (0, 255, 0), (0, 0, 255), (0, 0, 0)


def wait_until(condition, what, patience=PATIENCE):
    """Polls until `condition` gives something true, and returns that."""
    deadline = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {patience} seconds for {what}")
        time.sleep(0.02)


def write_bmp(path, width, height, colour):
    """A 24-bit bitmap of one colour, given as (red, green, blue)."""
    row = bytes(reversed(colour)) * width
    row += b"\0" * (-len(row) % 4)
    header = struct.pack("<2sIHHIIiiHHIIiiII", b"BM", 54 + len(row) * height, 0, 0, 54, 40, width, height, 1, 24,
                         0, len(row) * height, 2835, 2835, 0, 0)
    with open(path, "wb") as file:
        file.write(header + row * height)


def entry(path):
    directory, name = os.path.split(path)
    return name.ljust(255) + (directory + "/").ljust(257)


class Screenshot:
    def __init__(self, data, width):
        self._data = data
        self._width = width

    def pixel(self, x, y):
        at = (y * self._width + x) * 3
        return tuple(self._data[at:at + 3])


class Display:
    """An X server of its own, with or without a window manager."""

    def __init__(self, width=800, height=600, window_manager=True):
        self.width = width
        self._server = subprocess.Popen([os.path.join(SCRIPTS, "virtual-display.sh"), f"{width}x{height}"],
                                        stdout=subprocess.PIPE, text=True)
        with self._server.stdout as pipe:
            self.name = ":" + pipe.readline().strip()
        self.environment = dict(os.environ, DISPLAY=self.name, SDL_AUDIODRIVER="dummy", QT_QPA_PLATFORM="xcb")
        self.environment.pop("WAYLAND_DISPLAY", None)
        # Not the user's own configuration.
        command = ["openbox", "--config-file", "/etc/xdg/openbox/rc.xml"]
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self._manager = subprocess.Popen(command, env=self.environment, **quiet) if window_manager else None
        if window_manager:
            try:
                wait_until(self._has_manager, "the window manager")
            except AssertionError:
                self.close()  # nobody has this object yet
                raise

    @property
    def server(self):
        """The X server's process."""
        return self._server.pid

    def close(self):
        for process in (self._manager, self._server):
            if process:
                process.kill()
                process.wait()

    def _has_manager(self):
        """Whether it answers: it announces itself before it handles events, and misses windows until then."""
        self.output("xdotool", "set_num_desktops", "1")
        return self.output("xdotool", "get_num_desktops").strip() == b"1"

    def output(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False).stdout

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def window(self):
        """The id of the show's window, or None."""
        found = self.output("xdotool", "search", "--onlyvisible", "--name", "^Screen Saver Main Form$").split()
        return found[0].decode() if found else None

    def focused_title(self):
        """Of the window that has the keyboard."""
        return self.output("xdotool", "getactivewindow", "getwindowname").decode().strip()

    def screenshot(self):
        return Screenshot(self.output("import", "-silent", "-window", "root", "-depth", "8", "rgb:-"), self.width)


class Session:
    """A user's settings and pictures in a folder of their own, and the programs that were started."""

    def __init__(self, display):
        self.display = display
        self.folder = tempfile.mkdtemp(prefix="quorvale-e2e-")
        self.environment = dict(display.environment, XDG_CONFIG_HOME=os.path.join(self.folder, "config"),
                                XDG_RUNTIME_DIR=os.path.join(self.folder, "runtime"))
        os.mkdir(self.environment["XDG_RUNTIME_DIR"], 0o700)
        self._programs = []
        self.options(SwapAffect="None", Interval="2")

    def close(self):
        for program in self._programs:
            if program.poll() is None:
                program.kill()
            program.wait()
        shutil.rmtree(self.folder)

    def settings(self, *arguments):
        return subprocess.run([SETTINGS, *arguments], env=self.environment, stdout=subprocess.PIPE, text=True,
                              stderr=subprocess.DEVNULL, check=False).stdout.rstrip("\n")

    def options(self, **values):
        for key, value in values.items():
            self.settings("set", "Options", key, value)

    def position(self):
        return int(self.settings("get", "Options", "LastPicture") or 0)

    def wait_for_picture(self, number):
        wait_until(lambda: self.position() == number, f"picture {number}")

    def picture(self, name, width, height, colour):
        path = os.path.join(self.folder, name)
        write_bmp(path, width, height, colour)
        return path

    def play(self, *paths, section="PictureFiles"):
        for number, path in enumerate(paths):
            self.settings("set", section, f"File{number}", entry(path))

    def start(self, *arguments, stderr=None, **environment):
        program = subprocess.Popen([PROGRAM, *arguments], env=dict(self.environment, **environment), stderr=stderr)
        self._programs.append(program)
        return program

    def start_show(self):
        program = self.start("/S")
        wait_until(self.display.window, "the show's window")
        return program


class PictureTest(unittest.TestCase):
    """Pictures on `self.display`, and programs that show them."""

    def pixels(self, *points):
        shot = self.display.screenshot()
        return [shot.pixel(x, y) for x, y in points]

    def wait_for_colour(self, colour, point=(400, 300)):
        wait_until(lambda: self.pixels(point) == [colour], f"{colour} at {point}")

    def wait_for_any_picture(self, point=(400, 300)):
        wait_until(lambda: self.pixels(point)[0] in (RED, BLUE), f"a picture at {point}")

    def run_beside(self, *command, **options):
        """Another program on the display, until the test's end."""
        usual = {"env": self.display.environment, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        process = subprocess.Popen(command, **{**usual, **options})
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    @staticmethod
    def kill(program):
        program.kill()
        program.wait()

    def assert_ends(self, program):
        self.assertEqual(program.wait(timeout=10), 0)
        self.assertIsNone(self.display.window())

    def assert_ends_by_key(self, program, key="space"):
        self.display.xdotool("key", key)
        self.assert_ends(program)

    def assert_runs(self, program, seconds=0.5):
        time.sleep(seconds)
        self.assertIsNone(program.poll())


class ShowTest(PictureTest):
    """Two pictures in the list, red and blue, as large as the screen."""
    window_manager = True

    def setUp(self):
        self.display = Display(window_manager=self.window_manager)
        self.addCleanup(self.display.close)
        self.session = Session(self.display)
        self.addCleanup(self.session.close)
        self.red = self.session.picture("red.bmp", 800, 600, RED)
        self.blue = self.session.picture("blue.bmp", 800, 600, BLUE)
        self.session.play(self.red, self.blue)

    def start_show(self, **options):
        """Gives the program when its first picture is on the screen."""
        self.session.options(**options)
        program = self.session.start_show()
        self.wait_for_any_picture()
        return program
