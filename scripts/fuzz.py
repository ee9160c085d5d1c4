#!/usr/bin/env python3
"""Gives each kind of picture some minutes of a core under the fuzzer: fuzz.py BUILD MINUTES [KIND...].

BUILD is the sanitizers' build, a kind is the end of a file's name. As many kinds run at once as there are cores, in
turns, so that an end by Ctrl-C leaves about the same time for each. Inputs that reach new code stay in
BUILD/fuzz/KIND/corpus, where the next run goes on. What fails stays in BUILD/fuzz/KIND/found; one failure makes the
verdict bad.
"""

import contextlib
import glob
import os
import re
import signal
import subprocess
import sys
import threading
import time

BUILD = os.path.abspath(sys.argv[1])
SECONDS = float(sys.argv[2]) * 60
PROJECT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
KINDS = ("avif", "bmp", "emf", "gif", "heic", "jpg", "jxl", "png", "tif", "webp", "wmf")
SEEDS = ("fuzz/seeds/picture", "tests/desktop/metafiles")
SHORTEST_TURN, LONGEST_TURN = 10, 300  # seconds
INTERRUPTED = 72  # the fuzzer's status after Ctrl-C
# As the fuzzer's tests have them. Slow inputs are chosen less often, or a few of 100 million pixels take all the time.
LIMITS = ("-timeout=25", "-report_slow_units=25", "-rss_limit_mb=4096", "-max_len=65536",
          "-entropic_scale_per_exec_time=1")
# The sanitizer keeps and gives back less memory, which saves up to a third of the time.
SANITIZER = "quarantine_size_mb=8:allocator_release_to_os_interval_ms=-1:malloc_context_size=12"
LEAKS = f"print_suppressions=0:suppressions={PROJECT}/fuzz/known-leaks.txt"


class Kind:
    def __init__(self, name):
        self.name = name
        self.folder = os.path.join(BUILD, "fuzz", name)
        self.cpu = 0.0  # seconds
        self.inputs = 0
        self.turns = 0
        self.failed = 0  # of the turns
        self.is_running = False  # or can't
        self.pid = 0  # of the running fuzzer
        for part in ("corpus", "found"):
            os.makedirs(os.path.join(self.folder, part), exist_ok=True)

    def command(self, seconds):
        seeds = [path for folder in SEEDS for path in glob.glob(os.path.join(PROJECT, folder, f"*.{self.name}"))]
        return [os.path.join(BUILD, "quorvale-picture-fuzzer"), f"-max_total_time={seconds:.0f}", *LIMITS, "-reload=0",
                "-print_final_stats=1", f"-artifact_prefix={self.folder}/found/", f"-seed_inputs={','.join(seeds)}",
                os.path.join(self.folder, "corpus")]

    def take_turn(self):
        """Fuzzes for a turn, or for what is left of the time. False if the fuzzer can't even start."""
        self.turns += 1
        environment = dict(os.environ, QUORVALE_FUZZ_KIND=self.name, ASAN_OPTIONS=SANITIZER, LSAN_OPTIONS=LEAKS)
        log_path = os.path.join(self.folder, f"log-{self.turns}.txt")
        with open(log_path, "wb") as log:
            seconds = min(LONGEST_TURN, max(SHORTEST_TURN, SECONDS - self.cpu))
            fuzzer = subprocess.Popen(self.command(seconds), stdout=log, stderr=log, env=environment, process_group=0)
            self.pid = fuzzer.pid
            _, status, used = os.wait4(fuzzer.pid, 0)
            self.pid = 0
            fuzzer.returncode = os.waitstatus_to_exitcode(status)
        with open(log_path, "rb") as log:
            said = log.read()
        done = re.findall(rb"number_of_executed_units: (\d+)", said)
        self.cpu += used.ru_utime + used.ru_stime
        self.inputs += int(done[-1]) if done else 0
        failed = fuzzer.returncode not in (0, INTERRUPTED)
        self.failed += failed
        print(f"{time.strftime('%H:%M:%S')} {self.row()}" + (f", see {log_path}" if failed else ""), flush=True)
        if not failed:
            os.remove(log_path)
        # One that dies for want of memory has tried inputs, but gives no count.
        return bool(re.search(rb"^#\d", said, re.MULTILINE))

    def row(self):
        count = {part: len(os.listdir(os.path.join(self.folder, part))) for part in ("corpus", "found")}
        return (f"{self.name:4}: {self.cpu:6.0f} s of a core, {self.inputs:9} inputs, {count['corpus']:5} kept, "
                f"{count['found']} found")


class Turns:
    """The kind that has had the least comes next."""

    def __init__(self, kinds):
        self.kinds = kinds
        self.lock = threading.Lock()
        self.is_over = False

    def next(self):
        with self.lock:
            waiting = [kind for kind in self.kinds if not kind.is_running and kind.cpu < SECONDS]
            if self.is_over or not waiting:
                return None
            kind = min(waiting, key=lambda each: each.cpu)
            kind.is_running = True
            return kind

    def work(self):
        while kind := self.next():
            # One that can't start would fail for ever.
            kind.is_running = not kind.take_turn()

    def end(self, *_):
        self.is_over = True
        for pid in [kind.pid for kind in self.kinds if kind.pid]:
            with contextlib.suppress(ProcessLookupError):
                os.kill(pid, signal.SIGINT)


def main():
    names = sys.argv[3:] or KINDS
    unknown = sorted(set(names) - set(KINDS))
    if unknown:
        sys.exit(f"There is no kind {unknown[0]}. Kinds: {' '.join(KINDS)}")
    turns = Turns([Kind(name) for name in names])
    for ending in (signal.SIGINT, signal.SIGTERM):
        signal.signal(ending, turns.end)
    workers = [threading.Thread(target=turns.work) for _ in range(os.cpu_count() or 1)]
    for worker in workers:
        worker.start()
    for worker in workers:
        worker.join()
    for kind in turns.kinds:
        print(kind.row())
    failed = [kind.name for kind in turns.kinds if kind.failed]
    print("Held" if not failed else f"Failed: {' '.join(failed)}")
    sys.exit(bool(failed))


main()
