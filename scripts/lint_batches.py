#!/usr/bin/env python3
"""Runs clang-tidy on the C++ files whose names come in, many at a time.

Most of the time for a file goes into the headers of the system. So files that are compiled alike are joined into one
that includes them once. It takes the text of each, as the analyzer and some checks look at a main file only. Files whose
names clash are joined apart, and what is reported is given its own file and line back.

Usage: lint_batches.py BUILD [ARGUMENTS OF CLANG] <FILES
BUILD has compile_commands.json; the joined files come into BUILD/lint.
"""
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

# More bring little, and a batch should not keep the others waiting at the end.
LINES_OF_A_BATCH = 5000
# The analyzer follows calls from file to file in a batch. This many steps a function find what it finds in single files;
# without a limit a few functions take minutes.
ANALYZER = [word for option in ('-analyzer-config', 'max-nodes=20000') for word in ('-Xclang', option)]
INCLUDE = re.compile(r'\s*#\s*include\s*(["<][^">]*)')


class Batch:
    def __init__(self, path, flags, files):
        self.path, self.files = path, files
        self.lines = []  # Of each line of the batch: the file and the line there
        text, included = [], set()
        for file in files:
            lines = pathlib.Path(file).read_text(encoding='utf-8').splitlines()
            own = {match[1] for match in map(INCLUDE.match, lines) if match}
            # A second include of a file is reported only where the file itself has it twice.
            text += ['' if (match := INCLUDE.match(line)) and match[1] in included else line for line in lines]
            self.lines += [(file, number) for number in range(1, len(lines) + 1)]
            included |= own
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text('\n'.join(text) + '\n', encoding='utf-8')
        folders = dict.fromkeys(os.path.dirname(os.path.abspath(file)) for file in files)
        self.flags = [*flags, *('-iquote' + folder for folder in folders)]

    def clashing(self):
        """The files that don't compile behind those before them."""
        run = subprocess.run(['clang++', *self.flags, '-fsyntax-only', '-w', '-ferror-limit=0', self.path],
                             capture_output=True, text=True)
        numbers = re.findall(r'batch-\d+\.cpp:(\d+):\d+: (?:fatal )?error', run.stderr)
        found = dict.fromkeys(self.lines[int(number) - 1][0] for number in numbers)
        return [file for file in found if file != self.files[0]] or (self.files[1:] if run.returncode else [])

    def tidy(self):
        run = subprocess.run(['clang-tidy', '--quiet', self.path, '--', *ANALYZER, *self.flags], capture_output=True, text=True)

        def own_place(match):
            return ':'.join(map(str, self.lines[int(match[1]) - 1]))

        counts = r'^\d+ warnings?( and \d+ errors?)? (generated|treated as errors?)\.?\n'
        report = run.stdout + re.sub(counts, '', run.stderr, flags=re.M)
        return run.returncode, re.sub(r'\S*batch-\d+\.cpp:(\d+)', own_place, report)


def flags_of(entry):
    """What decides how a file is read, without what tells a compiler how to write it. Joined files may shadow."""
    words = shlex.split(entry['command'])[1:]
    keep, follow = [], iter(words)
    for word in follow:
        if word in ('-o', '-c'):
            next(follow)
        elif word in ('-isystem', '-include'):
            keep += [word, next(follow)]
        elif word.startswith(('-D', '-I', '-std', '-Wall', '-Wextra', '-Wpedantic')):
            keep.append(word)
    return tuple(keep)


def rules_for(file):
    """The innermost folder with rules of its own."""
    return next(str(folder) for folder in pathlib.Path(file).parents if (folder / '.clang-tidy').exists())


def groups(build, files):
    entries = {os.path.relpath(entry['file']): entry for entry in json.loads((build / 'compile_commands.json').read_text())}
    found = collections.defaultdict(list)
    for file in files:
        if file not in entries:
            sys.exit(f'{file}: is compiled by no target')
        found[rules_for(file), flags_of(entries[file])].append(file)
    return found


def main():
    build, more = pathlib.Path(sys.argv[1]), sys.argv[2:]
    files = sys.stdin.read().split()
    folder = build / 'lint'
    shutil.rmtree(folder, ignore_errors=True)
    waiting = collections.deque()
    for (top, flags), members in groups(build, files).items():
        # Rules inherit those of the folders above, so a batch needs them all around it.
        for place in (pathlib.Path(top), *pathlib.Path(top).parents):
            if str(place) != '.' and (place / '.clang-tidy').exists():
                (folder / place).mkdir(parents=True, exist_ok=True)
                shutil.copy(place / '.clang-tidy', folder / place)
        waiting.append((top, [*flags, *more], members))
    pool = concurrent.futures.ThreadPoolExecutor(os.cpu_count())
    numbers = iter(range(1, 10000))

    def lint(batch, flags, top):
        rest = batch.clashing()
        reports = []
        if rest:
            kept = [file for file in batch.files if file not in rest]
            reports = lint(Batch(folder / top / f'batch-{next(numbers)}.cpp', flags, rest), flags, top)
            batch = Batch(batch.path, flags, kept)
            return lint(batch, flags, top) + reports
        return [batch.tidy()]

    runs = []
    for top, flags, members in waiting:
        while members:
            size, part = 0, []
            while members and (not part or size < LINES_OF_A_BATCH):
                size += pathlib.Path(members[0]).read_text(encoding='utf-8').count('\n')
                part.append(members.pop(0))
            batch = Batch(folder / top / f'batch-{next(numbers)}.cpp', flags, part)
            runs.append(pool.submit(lint, batch, flags, top))
    failed, said = False, set()
    for run in runs:
        for code, report in run.result():
            failed |= code != 0
            if report and report not in said:
                said.add(report)
                print(report, end='', flush=True)
    print(f'{len(files)} files in {next(numbers) - 1} batches')
    sys.exit(failed)


main()
