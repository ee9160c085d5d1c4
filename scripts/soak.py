#!/usr/bin/env python3
"""Runs the program for long, in every mode, among trouble: soak.py BUILD MINUTES [SEED].

Lists of good, broken and missing pictures are shown at full speed, while files come and go, the screen changes its
size, other windows take the focus, the disk is full, the process is stopped for a while and the preview's host dies.
Each mode ends as it has to, and what it holds at the end is no more than soon after its start, or the verdict is bad.
"""

import os
import random
import shutil
import signal
import subprocess
import sys
import time

BUILD = os.path.abspath(sys.argv[1])
os.environ["QUORVALE_BUILD"] = BUILD
PROJECT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
sys.path.insert(0, os.path.join(PROJECT, "tests", "e2e"))
from desktop_session import Display, Session, entry, wait_until  # noqa: E402

SAMPLES = os.path.join(PROJECT, "assets", "samples")
WIDTH, HEIGHT = 1024, 768
LONGEST_TURN = 120  # seconds of one mode before the next
PAUSE = 1.0  # seconds from one piece of trouble to the next
STUCK = 20  # seconds without a new picture
SETTLED = 2  # seconds after which a process holds what it needs
# What may be more at the end of a turn: pictures of several sizes come and go, and the allocator keeps some of it.
MORE = {"memory (KB)": 24_000, "descriptors": 2, "threads": 1, "windows": 1, "server (KB)": 24_000}
EFFECTS = ("None", "None", "None", "Sweep Right", "Bubbles", "Spotlight", "Shrinking Square", "Vertical Sandwich", "Random")


def make_pictures(folder, chance):
    """Paths of pictures that are good, cut short, altered, no pictures, empty or missing."""
    os.makedirs(folder, exist_ok=True)
    good = [os.path.join(SAMPLES, name) for name in sorted(os.listdir(SAMPLES)) if not name.endswith(".wav")]
    paths = []
    for number in range(60):
        source = chance.choice(good)
        path = os.path.join(folder, f"{number:02}{os.path.splitext(source)[1]}")
        with open(source, "rb") as file:
            data = bytearray(file.read())
        kind = number % 6
        if kind == 1:
            del data[chance.randrange(len(data)):]
        elif kind == 2:
            for _ in range(20):
                data[chance.randrange(len(data))] = chance.randrange(256)
        elif kind == 3:
            data = bytearray(chance.randbytes(chance.choice((0, 3, 1000))))
        if kind != 4:
            with open(path, "wb") as file:
                file.write(data)
        paths.append(path)
    return paths


def usage(display, pid):
    """What the process holds, and the server for it. Memory is the least of some readings, between two pictures."""
    def memory(process):
        with open(f"/proc/{process}/status", encoding="ascii") as file:
            return next(int(line.split()[1]) for line in file if line.startswith("VmRSS"))

    readings = []
    for _ in range(8):
        readings.append((memory(pid), len(os.listdir(f"/proc/{pid}/fd")), len(os.listdir(f"/proc/{pid}/task")),
                         display.output("xwininfo", "-root", "-tree").count(b"\n"), memory(display.server)))
        time.sleep(0.2)
    return dict(zip(MORE, map(min, zip(*readings))))


class Turn:
    """One mode for some seconds."""

    def __init__(self, session, chance, paths, disk):
        self.display, self.session, self.chance, self.paths, self.disk = session.display, session, chance, paths, disk
        self.faults = []
        self.host = self.program = None
        self.slides = self.starts = self.troubles = 0

    # The modes.

    def start_show(self):
        self.program = self.session.start("/S", stderr=subprocess.DEVNULL)

    def start_on_two_monitors(self):
        self.session.options(Monitors="A Picture on Each")
        self.display.output("xrandr", "--setmonitor", "*Left", f"{WIDTH // 2}/200x{HEIGHT}/300+0+0", "screen")
        self.display.output("xrandr", "--setmonitor", "Right", f"{WIDTH // 2}/200x{HEIGHT}/300+{WIDTH // 2}+0", "none")
        self.start_show()

    def start_configuration(self):
        self.program = self.session.start("/C", stderr=subprocess.DEVNULL)

    def start_preview(self):
        self.start_in_host("/P", 152, 112)

    def start_under_daemon(self):
        self.start_in_host("--root", WIDTH, HEIGHT)

    def start_in_host(self, switch, width, height):
        self.host = subprocess.Popen([os.path.join(BUILD, "preview_host"), "24", "0", "0", str(width), str(height)],
                                     env=self.display.environment, stdout=subprocess.PIPE, text=True)
        window = self.host.stdout.readline().strip()
        arguments = [switch] if switch == "--root" else [switch, window]
        self.program = self.session.start(*arguments, stderr=subprocess.DEVNULL, XSCREENSAVER_WINDOW=window)

    # The trouble.

    def change_options(self):
        chance = self.chance
        self.session.options(
            SwapAffect=chance.choice(EFFECTS), Stretch=chance.choice("01"), ShowFileName=chance.choice("01"),
            ShowFrame=chance.choice("01"), Scaling=chance.choice(("", "Fit", "Fill")), FitBackdrop=chance.choice("01"),
            CaptionText=chance.choice(("File Name", "File Name and Date")))

    def move_pictures(self):
        for path in self.chance.sample(self.paths, 10):
            for old, new in ((path, path + "~"), (path + "~", path)):
                if os.path.exists(old):
                    os.rename(old, new)
                    break

    def fill_disk(self):
        if not self.disk:
            return
        full = os.path.join(self.disk, "full")
        try:
            with open(full, "wb", buffering=0) as file:
                while True:
                    file.write(bytes(1 << 16))
        except OSError:
            pass
        time.sleep(1)
        if os.path.exists(full):
            os.remove(full)

    def stop_for_a_while(self):
        self.program.send_signal(signal.SIGSTOP)
        time.sleep(0.7)
        self.program.send_signal(signal.SIGCONT)

    def resize_screen(self):
        for mode in (f"{WIDTH // 2}x{HEIGHT // 2}", f"{WIDTH}x{HEIGHT}"):
            self.display.output("xrandr", "--output", "screen", "--mode", mode)
            time.sleep(0.5)

    def take_focus(self):
        other = subprocess.Popen(["xmessage", "-timeout", "1", "another window"], env=self.display.environment,
                                 stderr=subprocess.DEVNULL)
        other.wait()

    def kill_host(self):
        if self.host:
            self.host.kill()

    # The turn.

    def run(self, start, seconds):
        self.change_options()
        start()
        self.starts += 1
        end = time.monotonic() + seconds
        calm = time.monotonic() + seconds / 2
        begin = calm + SETTLED
        before = None
        position, advanced = self.session.position(), time.monotonic()
        troubles = [self.change_options, self.move_pictures, self.fill_disk, self.stop_for_a_while, self.resize_screen,
                    self.take_focus, self.kill_host]
        while time.monotonic() < end:
            time.sleep(PAUSE / 2)
            if self.program.poll() is not None:
                # Input, another window's focus or the host's end have ended it.
                self.check_end(self.program.returncode)
                self.close_host()
                start()
                self.starts += 1
                advanced = time.monotonic()
                before, begin = None, max(begin, advanced + SETTLED)
                continue
            now = self.session.position()
            if now != position:
                self.slides += (now - position) % len(self.paths)
                position, advanced = now, time.monotonic()
            elif time.monotonic() - advanced > STUCK:
                self.faults.append("no new picture came")
                break
            if before is None and time.monotonic() > begin:
                before = usage(self.display, self.program.pid)
            # The second half is for what ends no process, so that two readings of one can be compared.
            self.chance.choice(troubles[:4] if time.monotonic() > calm else troubles)()
            self.troubles += 1
        self.compare(before)
        self.finish()

    def compare(self, before):
        if before is None or self.program.poll() is not None:
            self.faults.append("it did not live long enough to compare what it holds")
            return
        after = usage(self.display, self.program.pid)
        print("     ", ", ".join(f"{name} {before[name]} -> {after[name]}" for name in MORE))
        self.faults += [f"{name}: {before[name]} -> {after[name]}" for name in MORE
                        if after[name] > before[name] + MORE[name]]

    def finish(self):
        self.program.send_signal(signal.SIGCONT)
        self.program.terminate()
        try:
            self.check_end(self.program.wait(timeout=15))
        except subprocess.TimeoutExpired:
            self.faults.append("it did not end")
            self.program.kill()
            self.program.wait()
        self.close_host()
        for name in ("Left", "Right"):
            self.display.output("xrandr", "--delmonitor", name)
        self.session.options(Monitors="")

    def check_end(self, status):
        if status != 0:
            self.faults.append(f"it ended with {status}")

    def close_host(self):
        if self.host:
            self.host.kill()
            self.host.wait()
            self.host.stdout.close()
            self.host = None


def small_disk(folder):
    """A file system that is full soon, for the settings; none without the rights to have one."""
    os.makedirs(folder, exist_ok=True)
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=2m", "quorvale-soak", folder], check=False,
                             stderr=subprocess.DEVNULL).returncode == 0
    return folder if mounted else None


def soak(seconds, seed):
    chance = random.Random(seed)
    display = Display(WIDTH, HEIGHT)
    session = Session(display)
    disk = small_disk(os.path.join(session.folder, "config"))
    verdict = []
    try:
        print(f"Seed {seed}" + ("" if disk else "; without rights to mount a file system the disk is never full"))
        for width, height in ((WIDTH // 2, HEIGHT // 2), (WIDTH, HEIGHT)):
            name = f"{width}x{height}"
            display.output("xrandr", "--newmode", name, "25", *map(str, (width, width + 9, width + 19, width + 99, height,
                                                                         height + 9, height + 19, height + 99)))
            display.output("xrandr", "--addmode", "screen", name)
        paths = make_pictures(os.path.join(session.folder, "pictures"), chance)
        session.options(Interval="0.05", TransSpeed="20", BackColor="8421504")
        for number, path in enumerate(paths):
            session.settings("set", "PictureFiles", f"File{number}", entry(path))
        wait_until(lambda: session.settings("get", "PictureFiles", f"File{len(paths) - 1}"), "the list")
        modes = {"show": Turn.start_show, "two monitors": Turn.start_on_two_monitors,
                 "configuration": Turn.start_configuration, "preview": Turn.start_preview,
                 "daemon's window": Turn.start_under_daemon}
        rounds = max(1, round(seconds / len(modes) / LONGEST_TURN))
        for _ in range(rounds):
            for mode, start in modes.items():
                turn = Turn(session, chance, paths, disk)
                turn.run(lambda turn=turn, start=start: start(turn), seconds / rounds / len(modes))
                print(f"{mode}: {turn.slides} slides, {turn.starts} starts, {turn.troubles} troubles"
                      + "".join(f"\n      FAULT: {fault}" for fault in turn.faults), flush=True)
                verdict += [f"{mode}: {fault}" for fault in turn.faults]
    finally:
        if disk:
            subprocess.run(["umount", "-l", disk], check=False)
        session.close()
        display.close()
        shutil.rmtree(session.folder, ignore_errors=True)
    print("It held." if not verdict else "It did not hold:\n" + "\n".join(verdict))
    return not verdict


if __name__ == "__main__":
    passed = soak(float(sys.argv[2]) * 60, int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(10_000))
    sys.exit(0 if passed else 1)
