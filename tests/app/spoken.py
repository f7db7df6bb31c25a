#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What Orca says while the program is used by keyboard alone.

    spoken.py LANGUAGE TREE BUILD FILE

writes each key that was pressed into FILE and, below it, what was said then."""

import contextlib
import os
import pathlib
import queue
import re
import subprocess
import sys
import threading
import time
import tty

sys.dont_write_bytecode = True
import screen_reader
from rack import PANELS, Rack
from screen import Screen, wait_for

UNIT = {"version": "1.8", "pace": "10"}
# The windows: the panel and the key that open each, and what is pressed in it besides Tab.
WINDOWS = (("Form_bSetMemories", "Form_B", "Image3"), ("Form_bTuner", "Form_B", "Image4"),
           ("FormD1a", "Form_D", "Image1"), ("Form_BandSCanner", "Form_D", "Image2"),
           ("Form_Dd3", "Form_D", "Image3"), ("Form_D4A", "Form_D", "Image4"),
           ("frmSpectrumAnalizer", "Form_D", "Image6"), ("FormLimits", "Form_D", "KeyLimits"),
           ("Form_History", "Form_D", "KeyHistory"))
MOST_STOPS = 60


class Orca:
    """The screen reader on the program's bus. Its log has a line for all that it says; nobody
    needs to hear it. The log is a terminal, since Orca keeps lines back from a file."""

    SAID = re.compile(r"SPEECH OUTPUT: (['\"])(.*)\1\s*(?:\{.*)?$")

    def __init__(self, environment, home):
        home.mkdir()
        self.lines = queue.SimpleQueue()
        self.ours, its = os.openpty()
        tty.setraw(its)
        self.process = subprocess.Popen(
            ["orca", "--replace", f"--debug-file={os.ttyname(its)}"],
            env=dict(environment, HOME=str(home)), stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.terminal = its
        threading.Thread(target=self.read, daemon=True).start()
        wait_for(self.heard, "Orca")

    def read(self):
        """Orca stands still while nobody reads."""
        # A terminal whose other end has gone ends by an error.
        with open(self.ours, encoding="utf-8", errors="replace") as log, \
                contextlib.suppress(OSError):
            for line in log:
                self.lines.put(line)

    def heard(self):
        """What was said since the last call."""
        said = []
        while not self.lines.empty():
            found = self.SAID.search(self.lines.get())
            # The name of a key that was pressed is told with a blank behind it.
            if found and found[2].strip() and found[2][-1] != " ":
                said.append(" ".join(found[2].split()))
        return said

    def listen(self):
        """What is said from now until half a second of silence."""
        said, silent = [], time.monotonic()
        patience = silent + 3
        while time.monotonic() < (silent + 0.5 if said else patience):
            time.sleep(0.1)
            more = self.heard()
            if more:
                said += more
                silent = time.monotonic()
        return said

    def close(self):
        self.process.terminate()
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        os.close(self.terminal)


class Walk:
    def __init__(self, rack, orca, file):
        self.rack, self.orca, self.file = rack, orca, file

    def note(self, heading, said):
        self.file.write(heading + "\n" + "".join(f"    {words}\n" for words in said or ["(nothing)"]))
        self.file.flush()

    def press(self, key):
        self.rack.screen.type(key)
        said = self.orca.listen()
        self.note(f"[{key}]", said)
        return said

    def tab_through(self):
        """Tab after Tab, until what was said first is said again."""
        first = None
        for _ in range(MOST_STOPS):
            said = self.press("Tab")
            if said and said[-1] == first:
                return
            first = first or (said[-1] if said else None)

    def go_to(self, form, control):
        for _ in range(MOST_STOPS):
            if self.rack.has_focus(form, control):
                self.orca.listen()
                return
            self.rack.screen.type("Tab")
            time.sleep(0.3)
        raise AssertionError(f"no Tab leads to {form}.{control}")

    def window(self, form, panel, key):
        rack = self.rack
        self.file.write(f"\n== {rack.title(form)}\n")
        rack.screen.activate(rack.window)
        self.go_to(panel, key)
        rack.screen.type("space")
        rack.screen.activate(rack.wait_open(form))
        self.note("[space]", self.orca.listen())
        self.tab_through()
        if form == "Form_BandSCanner":
            self.scan()
        # As the window manager's own key does, since not every window has a key that closes it.
        rack.screen.close_window(rack.wait_open(form))
        rack.wait_closed(form)
        self.note("[Alt+F4]", self.orca.listen())
        rack.wait_measuring()

    def scan(self):
        """A scan of the band, and its bars one by one."""
        rack = self.rack
        before = (rack.folder / "scan.dat").read_bytes()
        self.go_to("Form_BandSCanner", "Command3D1")
        rack.screen.type("space")
        wait_for(lambda: (rack.folder / "scan.dat").read_bytes() != before, "a scan")
        self.note("[space]", self.orca.listen())
        for _ in range(40):
            said = self.press("Tab")
            if any("98.5 MHz" in words for words in said):
                break
        for key in ("Right", "Right", "End", "Left"):
            self.press(key)


def main():
    language, tree, build, file = sys.argv[1:5]
    tree, build = pathlib.Path(tree).resolve(), pathlib.Path(build).resolve()
    screen = Screen(1366, 900, shared=False)
    bus = screen_reader.Bus()
    rack = orca = None
    try:
        rack = Rack(tree, build, screen, language, 1, UNIT)
        rack.environment.update(bus.environment())
        orca = Orca(rack.environment, rack.folder / "home")
        with open(file, "w", encoding="utf-8") as written:
            walk = Walk(rack, orca, written)
            rack.start()
            walk.note("== HMonitor", orca.listen())
            walk.tab_through()
            for window in WINDOWS:
                walk.window(*window)
    finally:
        if orca:
            orca.close()
        if rack:
            rack.end()
        bus.close()
        screen.close(False)


if __name__ == "__main__":
    main()
