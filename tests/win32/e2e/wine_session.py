"""The Windows program under Wine, on a virtual display."""

import os
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "e2e"))
from desktop_session import (BLACK, BLUE, BUILD, GREEN, RED, SCRIPTS, Display, PictureTest,  # noqa: E402
                             wait_until, write_bmp)

# For the tests, which find the other folder by this one.
__all__ = ["BLACK", "BLUE", "GREEN", "RED", "Display", "PictureTest"]

PROGRAM = os.path.join(BUILD, "Quorvale.scr")
PASSWORD = os.path.join(BUILD, "scripted_password", "password.cpl")
HOST = os.path.join(BUILD, "preview_host.exe")
PREFIX = os.path.join(BUILD, "wine-e2e")
KEY = r"HKEY_CURRENT_USER\Software\Halvern Inc.\Quorvale Customizable Screen Saver"


WINE = r"HKEY_CURRENT_USER\Software\Wine"
DESKTOP = r"HKEY_CURRENT_USER\Control Panel\Desktop"


def windows_path(path):
    return "Z:" + path.replace("/", "\\")


def entry(path):
    directory, name = os.path.split(path)
    return name.ljust(255) + (windows_path(directory) + "\\").ljust(257)


def escaped(text):
    return text.replace("\\", "\\\\").replace('"', '\\"')


def wine_environment(display):
    """Of a registry for these tests alone, which is made if there is none."""
    environment = subprocess.run(["bash", "-c", "source \"$0/wine.sh\" && env -0", SCRIPTS], check=True,
                                 env=dict(display.environment, WINEPREFIX=PREFIX), stdout=subprocess.PIPE, text=True)
    return dict(line.split("=", 1) for line in environment.stdout.split("\0")[:-1])


class WineSession:
    """A registry and files of its own, and the programs that were started."""

    def __init__(self, display, folder):
        self.display = display
        self.folder = folder
        self.environment = wine_environment(display)
        self._programs = []
        self.write({"": None, WINE: {"Version": "win10"},
                    DESKTOP: {"ScreenSaveUsePassword": "0"}})
        self.options(SwapAffect="None", Interval="2")

    def close(self):
        for program in self._programs:
            program.kill()
            program.wait()
            for pipe in (program.stdin, program.stdout):
                if pipe:
                    pipe.close()
        # The next display is another one, and Wine keeps to the first that it sees.
        self.run("wineserver", "-k")
        self.run("wineserver", "-w")

    def run(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False).stdout

    def write(self, values):
        """Text values by section, or by a key of its own, and name; what has None in place of values is deleted."""
        lines = ["REGEDIT4"]
        for section, names in values.items():
            path = section if section.startswith("HKEY_") else f"{KEY}\\{section}".rstrip("\\")
            lines += ["", f"[-{path}]" if names is None else f"[{path}]"]
            lines += [f'"{name}"="{escaped(value)}"' for name, value in (names or {}).items()]
        path = os.path.join(self.folder, "settings.reg")
        with open(path, "w", encoding="ascii") as file:
            file.write("\r\n".join(lines) + "\r\n")
        self.run("wine", "regedit", "/S", windows_path(path))

    def read(self, section):
        """The text values of a section, by name."""
        path = os.path.join(self.folder, "exported.reg")
        if os.path.exists(path):
            os.remove(path)
        self.run("wine", "regedit", "/E", windows_path(path), f"{KEY}\\{section}")
        if not os.path.exists(path):
            return {}
        with open(path, encoding="utf-16") as file:
            lines = [line.rstrip("\r\n").split('"="') for line in file if '"="' in line]
        return {name[1:]: value[:-1].replace("\\\\", "\\") for name, value in lines}

    def options(self, **values):
        self.write({"Options": values})

    def picture(self, name, width, height, colour):
        path = os.path.join(self.folder, name)
        write_bmp(path, width, height, colour)
        return path

    def play(self, *paths):
        self.write({"PictureFiles": {f"File{number}": entry(path) for number, path in enumerate(paths)}})

    def start(self, *arguments, program=PROGRAM, **options):
        started = subprocess.Popen(["wine", program, *arguments], env=self.environment, stderr=subprocess.DEVNULL,
                                   **options)
        self._programs.append(started)
        return started

    def start_show(self, program=PROGRAM):
        program = self.start("/S", program=program)
        wait_until(self.display.window, "the show's window")
        return program

    def wait_for_window(self, title):
        """Until it takes keys: Wine needs a moment from the window manager's word to its own focus."""
        wait_until(lambda: self.display.focused_title() == title, f"the window {title}")
        time.sleep(0.5)

    def start_host(self, kind):
        """A preview in a host of that kind; gives the host, and a function that gives its words so far."""
        log = os.path.join(self.folder, "host.log")
        environment = dict(self.environment, QUORVALE_HOST_LOG=windows_path(log))
        command = ["wine", HOST, kind, windows_path(PROGRAM)]
        if kind == "desktop":
            command[1:1] = ["explorer", "/desktop=preview,152x112"]
        host = subprocess.Popen(command, env=environment, stdin=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self._programs.append(host)

        def words():
            if not os.path.exists(log):
                return []
            with open(log, encoding="ascii") as file:
                return file.read().split("\n")[:-1]

        return host, words

    def close_preview(self):
        self.run("wine", "explorer", "/desktop=preview,152x112", windows_path(HOST), "close")
