# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen of its own (Xvfb and openbox), and the hands on what stands there."""

import os
import subprocess
import time

PATIENCE = 30.0  # seconds; a build with sanitizers on a busy machine is slow


def wait_for(what, said):
    """Asks until the answer is true; fails with what was waited for."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = what()
        if answer:
            return answer
        time.sleep(0.05)
    raise AssertionError("waited in vain: " + said)


class Screen:
    def __init__(self, width, height):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24",
             "-nolisten", "tcp", "-noreset"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("Xvfb did not start")
        self.environment = dict(os.environ, DISPLAY=":" + number)
        self.environment.pop("WAYLAND_DISPLAY", None)
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(lambda: "_NET_SUPPORTING_WM_CHECK(WINDOW)" in self.ask(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "a window manager")

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def ask(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True,
                              check=False).stdout

    def windows(self, title):
        """The numbers of the visible windows of that title."""
        return self.ask("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()

    def size(self, window):
        told = dict(line.split("=") for line in
                    self.ask("xdotool", "getwindowgeometry", "--shell", window).split())
        return int(told.get("WIDTH", 0)), int(told.get("HEIGHT", 0))

    def is_folded(self, window):
        return "Iconic" in self.ask("xprop", "-id", window, "WM_STATE")

    def click(self, window, x, y):
        self.ask("xdotool", "mousemove", "--window", window, str(round(x)), str(round(y)))
        self.ask("xdotool", "mousedown", "1")
        time.sleep(0.05)
        self.ask("xdotool", "mouseup", "1")

    def type(self, *keys):
        self.ask("xdotool", "key", "--delay", "40", *keys)

    def picture(self, file):
        self.ask("import", "-window", "root", str(file))
        if not file.exists() or file.stat().st_size < 1000:
            raise AssertionError(f"no picture in {file}")
