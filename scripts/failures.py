#!/usr/bin/env python3
"""Shows pictures again and again, each time with another call that fails once, and prints what became of the show.

Usage: QUORVALE_BUILD=$PWD/build scripts/failures.py POINTS FAMILY...
Build the target failing_calls first. A family is memory, files or system. Each is tried at about twice as many calls
as POINTS says, half of them spread evenly and half towards the start. Takes some ten seconds a call.
"""
import collections
import os
import shutil
import struct
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.join(HERE, "..")
sys.path.insert(0, os.path.join(ROOT, "tests", "e2e"))
from desktop_session import BUILD, Display, RED, Session  # noqa: E402

LIBRARY = os.path.join(BUILD, "libfailing_calls.so")
SAMPLES = os.path.join(ROOT, "assets", "samples")
RUN = 5  # seconds, which the start and two slides take
NEXT_SLIDE = 6


def prepare(session):
    """Returns the stored lists."""
    copies = [shutil.copy(os.path.join(SAMPLES, name), session.folder) for name in ("Sample1.jpg", "Sample2.jpg")]
    session.play(session.picture("a.bmp", 40, 30, RED), *copies)
    session.play(shutil.copy(os.path.join(SAMPLES, "Camera.wav"), session.folder), section="SoundFiles")
    session.options(Interval="2", ShowFileName="1", SwapAffect="Sweep Right", TransSpeed="20")
    return lists(session)


def lists(session):
    return [line for line in session.settings("list").split("\n") if "Files" in line]


def outcome_of(display, session, program, errors):
    deadline = time.monotonic() + RUN
    while time.monotonic() < deadline and program.poll() is None:
        time.sleep(0.1)
    position = session.position()
    deadline = time.monotonic() + NEXT_SLIDE
    while time.monotonic() < deadline and program.poll() is None:
        if session.position() != position:
            return "shows on"
        time.sleep(0.2)
    if program.poll() is not None:
        errors.seek(0)
        return f"ended with {program.returncode}: {errors.read().strip()[-80:]}"
    if display.output("xdotool", "search", "--onlyvisible", "--name", "^Program Error$"):
        return "a box asks"
    # A list that could not be read to its end may have one picture only.
    return "shows one picture" if display.window() else "stands"


def run(display, family, number):
    """Returns how many calls there were, and what became of the show."""
    session = Session(display)
    try:
        before = prepare(session)
        count = os.path.join(session.folder, "count")
        with open(count, "wb") as file:
            file.write(bytes(8))
        with open(os.path.join(session.folder, "errors"), "w+", encoding="utf-8") as errors:
            program = session.start("/S", stderr=errors, LD_PRELOAD=LIBRARY, QUORVALE_FAIL=family,
                                    QUORVALE_FAIL_AT=str(number), QUORVALE_FAIL_COUNT=count)
            outcome = outcome_of(display, session, program, errors)
        program.kill()
        program.wait()
        with open(count, "rb") as file:
            calls = struct.unpack("<q", file.read(8))[0]
        return calls, outcome if lists(session) == before else outcome + ", A LIST IS LOST"
    finally:
        session.close()


def main():
    points, families = int(sys.argv[1]), sys.argv[2:]
    display = Display()
    try:
        for family in families:
            calls, _ = run(display, family, 0)
            early = {round(calls ** (i / points)) for i in range(points + 1)}
            even = {calls * i // points for i in range(1, points)}
            found = collections.defaultdict(list)
            for number in sorted((early | even) - {0}):
                found[run(display, family, number)[1]].append(number)
            print(f"{family}: {calls} calls")
            for outcome, numbers in found.items():
                print(f"  {len(numbers):3} {outcome}: {numbers}", flush=True)
    finally:
        display.close()


main()
