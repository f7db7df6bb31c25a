#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""screen_test.py TREE BUILD LANGUAGE: the program with the simulated unit on a screen of its own,
at natural and at doubled size. Keys are pressed as a user presses them; what they did is read from
the settings files, the windows and the exit code. Pictures go to BUILD/pictures."""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
from screen import Screen, wait_for

RACK_TWIPS = 12000
# Middles of keys, in twips from the rack's corner.
AVERAGE, PEAK = (3855, 1735), (4493, 1735)
FOLD, POWER = (6407, 1735), (7045, 1735)
NEXT = (10580, 2040 + 1425)
EDIT = (11290, 2040 + 1315)

PRESET, DETECTOR = 0, 5  # lines of hm-16.dat


class Run:
    """One rack in a folder of its own, started on the screen."""

    def __init__(self, tree, build, language, factor, screen, folder):
        self.screen, self.folder = screen, folder
        subprocess.run(
            ["bash", "-euc", '. "$1/scripts/lay_rack.sh"; lay_rack "$1" "$2" "$3" simulated', "lay",
             str(tree), str(build), str(folder)], check=True)
        self.environment = dict(screen.environment, LANG=language, LC_ALL=language,
                                QT_SCALE_FACTOR=str(factor), QT_QPA_PLATFORM="xcb")
        self.environment.pop("LANGUAGE", None)
        self.environment.setdefault("XDG_RUNTIME_DIR", str(folder))
        self.program = self.start()
        self.window = wait_for(self.find_rack, "the rack")

    def start(self):
        return subprocess.Popen([str(self.folder / "hmonitor")], env=self.environment, cwd="/")

    def find_rack(self):
        assert self.program.poll() is None, f"the program ended with {self.program.returncode}"
        for window in self.screen.windows("HMonitor"):
            width, height = self.screen.size(window)
            if height and abs(width / height - RACK_TWIPS / 7000) < 0.02:
                return window
        return None

    def press(self, place):
        unit = self.screen.size(self.window)[0] / RACK_TWIPS
        self.screen.click(self.window, place[0] * unit, place[1] * unit)

    def line(self, number):
        """A line of the panel settings; empty while the file is being rewritten."""
        try:
            lines = (self.folder / "hm-16.dat").read_bytes().split(b"\r\n")
        except FileNotFoundError:
            return ""
        return lines[number].decode() if len(lines) == 9 else ""

    def detector(self, wanted, said):
        wait_for(lambda: self.line(DETECTOR) == wanted, said)


def stored_presets(folder):
    block = (folder / "halden.dat").read_bytes()
    return [n for n in range(1, 17) if block[16 * n + 11:16 * n + 16].strip()]


def detector_keys(run):
    run.press(AVERAGE)
    run.detector("1", "the average detector in line 6, by mouse")
    run.press(PEAK)
    run.detector("0", "the peak detector in line 6, by mouse")
    run.screen.type("shift+Tab", "space")
    run.detector("1", "the average detector in line 6, by keyboard")


def fold(run):
    run.press(FOLD)
    wait_for(lambda: run.screen.is_folded(run.window), "the rack folded")
    time.sleep(1)  # no hand at a task bar is quicker

    def unfolded():
        # As a user asks at the task bar: again, where the folding had not come to its end.
        run.screen.ask("xdotool", "windowactivate", run.window)
        return not run.screen.is_folded(run.window) and run.find_rack() == run.window

    wait_for(unfolded, "the rack unfolded")


def second_start(run):
    before = set(run.screen.windows("HMonitor"))
    second = run.start()
    said = wait_for(lambda: set(run.screen.windows("HMonitor")) - before,
                    "the box that tells of the first start")
    assert second.poll() is None, "the second start ended before its box was answered"
    run.screen.ask("xdotool", "windowactivate", "--sync", said.pop())
    run.screen.type("Return")
    wait_for(lambda: second.poll() is not None, "the end of the second start")
    assert second.returncode == 0, f"the second start ended with {second.returncode}"
    assert run.program.poll() is None, "the first start ended with the second"


def editor(run, language, picture):
    title = "Memorias" if language.startswith("es") else "Memory Presets"
    run.press(EDIT)
    window = wait_for(lambda: run.screen.windows(title), f'the window "{title}"')[0]
    run.screen.picture(picture)
    run.screen.ask("xdotool", "windowactivate", "--sync", window)
    run.screen.type("Escape")
    wait_for(lambda: not run.screen.windows(title), f'the end of the window "{title}"')


def next_memories_and_power(run):
    """One step by mouse, two by keyboard, and the power key keeps where that led."""
    presets = stored_presets(run.folder)
    wanted = presets[(presets.index(int(run.line(PRESET))) + 3) % len(presets)]
    run.press(NEXT)
    run.screen.type("space", "space")
    run.press(POWER)
    wait_for(lambda: run.program.poll() is not None, "the end of the program")
    assert run.program.returncode == 0, f"the power key ended with {run.program.returncode}"
    assert run.line(PRESET) == str(wanted), f"preset {run.line(PRESET)} kept instead of {wanted}"


def walk(tree, build, language, factor):
    screen = Screen(1300 * factor, 900 * factor)
    pictures = build / "pictures"
    pictures.mkdir(exist_ok=True)
    name = f"{language[:5]}_{factor}"
    try:
        with tempfile.TemporaryDirectory(prefix="rack-") as folder:
            run = Run(tree, build, language, factor, screen, pathlib.Path(folder))
            try:
                detector_keys(run)
                fold(run)
                second_start(run)
                editor(run, language, pictures / f"editor_{name}.png")
                screen.picture(pictures / f"rack_{name}.png")
                next_memories_and_power(run)
            except AssertionError:
                screen.ask("import", "-window", "root", str(pictures / f"failed_{name}.png"))
                raise
            finally:
                if run.program.poll() is None:
                    run.program.kill()
                    run.program.wait()
    finally:
        screen.close()


def main():
    tree, build, language = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
    for factor in (1, 2):
        walk(tree.resolve(), build.resolve(), language, factor)


if __name__ == "__main__":
    os.umask(0o077)
    main()
