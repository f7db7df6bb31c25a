#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Which test programs passed before and need not run again: nothing that they stand on has changed.

  passed_before.py skip BUILD NOTES          prints a pattern for `ctest -E`: the tests of those
                                             programs; on standard error how many they are
  passed_before.py note BUILD NOTES LOG...   notes the programs whose tests all passed in ctest's logs

What a test program stands on: its own bytes, the bytes of everything else that the build made and
that it names by its path, every file under version control that is not compiled (every file at all
for the tests that read the sources), the packages of the system, the computer and the day's date.
Anything that cannot be found out makes the program run.
"""
import datetime
import hashlib
import json
import os
import re
import subprocess
import sys

COMPILED = (".cpp", ".h", ".inc")
READ_THE_SOURCES = ("test_architecture",)


def output(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


def digest(path):
    with open(path, "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()


def listed_tests(build):
    """Each test's name and the program that runs it; a script's tests have no program of ours."""
    listed = json.loads(output("ctest", "--test-dir", build, "--show-only=json-v1"))
    within = os.path.abspath(build) + os.sep
    for test in listed["tests"]:
        program = test.get("command", [""])[0]
        ours = program.startswith(within) and os.path.basename(program).startswith("test_")
        yield test["name"], program if ours else None


def tests_by_program(build):
    programs = {}
    for name, program in listed_tests(build):
        if program:
            programs.setdefault(program, []).append(name)
    return programs


def by_prefix(names, dots):
    """Groups names by their beginning up to the first or the second dot."""
    groups = {}
    for name in names:
        groups.setdefault(".".join(name.split(".")[:dots]) + ".", set()).add(name)
    return groups


def prefixes_of(left_out, names):
    """The fewest prefixes that cover these names and no other: folders, else suites of a folder."""
    found = []
    for folder, tests in by_prefix(names, 1).items():
        if tests <= left_out:
            found.append(folder)
        else:
            found += [suite for suite, cases in by_prefix(tests, 2).items() if cases <= left_out]
    return sorted(found)


def tracked_files():
    return sorted(set(output("git", "ls-files", "-z", "--cached", "--others", "--exclude-standard")
                      .decode().split("\0")) - {""})


def made_by(build):
    """Digests of the shared objects and programs of a build, the tests' own programs apart."""
    made = {}
    for folder, _, files in os.walk(os.path.abspath(build)):
        for file in files:
            path = os.path.join(folder, file)
            if file.startswith("test_") or os.path.islink(path) or "CMakeFiles" in folder:
                continue
            if os.access(path, os.X_OK) or ".so" in file:
                made[path] = digest(path)
    return made


class Ground:
    """A digest of everything on which all programs of a build depend."""

    def __init__(self, build):
        self.made = made_by(build)
        files = [path for path in tracked_files() if os.path.isfile(path)]
        sums = {path: digest(path) for path in files}
        self.sources = repr(sums)
        self.data = repr({path: sum for path, sum in sums.items() if not path.endswith(COMPILED)})
        self.place = repr((output("dpkg-query", "-W"), os.uname(), os.getuid(), os.path.abspath(build),
                           datetime.date.today().isoformat()))

    def key(self, program):
        with open(program, "rb") as file:
            bytes_ = file.read()
        named = sorted((path, sum) for path, sum in self.made.items() if path.encode() in bytes_)
        own = self.sources if os.path.basename(program) in READ_THE_SOURCES else self.data
        whole = repr((self.place, own, named)).encode() + bytes_
        return hashlib.sha256(whole).hexdigest()


def noted(notes):
    try:
        with open(notes) as file:
            return json.load(file)
    except (OSError, ValueError):
        return {}


def unchanged(build, notes):
    before = noted(notes)
    if not before:
        return []
    ground = Ground(build)
    return [name for program, names in sorted(tests_by_program(build).items())
            if before.get(program) == ground.key(program) for name in names]


def skip(build, notes):
    left_out = set(unchanged(build, notes))
    prefixes = prefixes_of(left_out, [name for name, _ in listed_tests(build)]) if left_out else []
    if prefixes:
        print("^(" + "|".join(map(re.escape, prefixes)) + ")")
        print(sum(name.startswith(tuple(prefixes)) for name in left_out), file=sys.stderr)


def passed(logs):
    """The names that passed, and the names that ctest ran at all."""
    good, run = set(), set()
    line = re.compile(r"^ *\d+/\d+ Test +#\d+: (.*?) \.{2,}(\*\*\*)? *(\S+)")
    for log in logs:
        with open(log, errors="replace") as file:
            for found in filter(None, map(line.match, file)):
                run.add(found[1].strip())
                if found[3] == "Passed":
                    good.add(found[1].strip())
    return good, run


def note(build, notes, *logs):
    good, run = passed(logs)
    before = noted(notes)
    ground = Ground(build)
    for program, names in tests_by_program(build).items():
        ran = [name for name in names if name in run]
        if ran:
            before.pop(program, None)
            if all(name in good for name in ran):
                before[program] = ground.key(program)
    with open(notes + ".new", "w") as file:
        json.dump(before, file, indent=1)
    os.replace(notes + ".new", notes)


def main():
    act, build, notes, *logs = sys.argv[1:]
    try:
        if act == "skip":
            skip(build, notes)
        else:
            note(build, notes, *logs)
    except (OSError, subprocess.CalledProcessError) as fault:
        print(f"What passed before is not known: {fault}", file=sys.stderr)


if __name__ == "__main__":
    main()
