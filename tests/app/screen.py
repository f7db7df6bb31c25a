# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen of its own (Xvfb and openbox), its windows, and keyboard and pointer on it."""

import fcntl
import mmap
import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import zlib

from x_server import XServer

PATIENCE = 40.0  # seconds; a build with sanitizers on a busy machine is slow


def wait_for(what, said):
    """Calls until the result is true; fails with a text that says what was waited for."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = what()
        if answer:
            return answer
        time.sleep(0.03)
    raise AssertionError("waited in vain: " + said)


class FrameBuffer:
    """The pixels of the screen, read where the X server keeps them."""

    def __init__(self, file):
        self.file = open(file, "rb")
        self.bytes = mmap.mmap(self.file.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(">25I", self.bytes[:100])
        self.width, self.height, self.line = header[4], header[5], header[12]
        self.start = header[0] + 12 * header[19]

    def area(self, left, top, width, height):
        """The pixels of a rectangle, four bytes each: blue, green, red and one that is unused."""
        first = self.start + top * self.line + 4 * left
        return b"".join(self.bytes[first + row * self.line:first + row * self.line + 4 * width]
                        for row in range(height))

    def write_png(self, file):
        """The whole screen as a picture (ISO/IEC 15948, eight bits a colour)."""
        pixels = self.area(0, 0, self.width, self.height)
        colours = bytearray(3 * self.width * self.height)
        for place in range(3):
            colours[place::3] = pixels[2 - place::4]
        line = 3 * self.width
        # Each line begins with its filter: 0 is none.
        rows = b"".join(b"\0" + colours[row * line:(row + 1) * line] for row in range(self.height))

        def chunk(kind, data):
            return (struct.pack(">I", len(data)) + kind + data +
                    struct.pack(">I", zlib.crc32(kind + data)))

        head = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        file.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) +
                         chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))

    def colour(self, x, y):
        """Red, green and blue of a pixel."""
        blue, green, red = self.area(x, y, 1, 1)[:3]
        return red, green, blue

    def close(self):
        self.bytes.close()
        self.file.close()


def started(*command, **options):
    """Starts a process that outlives this one and holds none of its pipes."""
    return subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL, start_new_session=True, **options).pid


def is_running(process, name):
    """Whether that process still runs. Process numbers are used again, so the name is compared."""
    try:
        told = pathlib.Path(f"/proc/{process}/stat").read_text()
        return f"({name})" in told and ") Z" not in told
    except FileNotFoundError:
        return False


def stop(process, name):
    """Stops a process and waits until it has gone, since a server removes files of its folder."""
    if is_running(process, name):
        os.kill(process, signal.SIGTERM)
        wait_for(lambda: not is_running(process, name), "the end of " + name)


class Screen:
    """A screen that nobody else uses. With SCREENS naming a folder it stays there, server and window
    manager, for the next case that wants one of its size, until `screen.py end FOLDER`; one without
    a manager, or whose case changes the screen itself, is for that case alone."""

    def __init__(self, width, height, managed=True, shared=True):
        self.width, self.height = width, height
        self.managed = managed
        self.shared = shared and managed and "SCREENS" in os.environ
        screens = pathlib.Path(os.environ["SCREENS"] if self.shared else
                               tempfile.mkdtemp(prefix="screen-"))
        self.folder, self.lock = self.take(screens)
        if not self.stands():
            self.start()
        self.pixels = FrameBuffer(self.folder / "Xvfb_screen0")

    def take(self, screens):
        """Takes the first screen of this size that is free."""
        place = 0
        while True:
            folder = screens / f"{self.width}x{self.height}-{place}"
            folder.mkdir(parents=True, exist_ok=True)
            lock = open(folder / "lock", "w")
            try:
                fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
                return folder, lock
            except BlockingIOError:
                lock.close()
                place += 1

    def stands(self):
        """Whether there is a server with a window manager, and no window that a case left."""
        try:
            display, manager, server = (self.folder / "state").read_text().split()
        except (FileNotFoundError, ValueError):
            return False
        self.manager, self.server = int(manager), int(server)
        self.set_display(display)
        if is_running(self.manager, "openbox") and is_running(self.server, "Xvfb") and \
                not self.x.managed():
            return True
        self.end()
        return False

    def set_display(self, display):
        self.environment = dict(os.environ, DISPLAY=display)
        self.environment.pop("WAYLAND_DISPLAY", None)
        self.x = XServer(display)

    def start(self):
        reading, writing = os.pipe()
        self.server = started("Xvfb", "-displayfd", str(writing), "-screen", "0",
                              f"{self.width}x{self.height}x24", "-fbdir", str(self.folder),
                              "-nolisten", "tcp", "-noreset", pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("Xvfb did not start")
        self.set_display(":" + number)
        self.manager = None
        if not self.managed:
            return
        self.manager = started("openbox", "--sm-disable", env=self.environment)
        # It announces itself before it takes requests, and a window that is mapped meanwhile is
        # never managed. So it is sent a request until it has handled one.
        wait_for(self.has_one_desktop, "a window manager")
        (self.folder / "state").write_text(f":{number} {self.manager} {self.server}")

    def has_one_desktop(self):
        if self.x.values(self.x.root, "_NET_NUMBER_OF_DESKTOPS") == [1]:
            return True
        self.x.set_one_desktop()
        return False

    def close(self, clean):
        """Returns the screen; after a failed case it is not used again."""
        self.pixels.close()
        if self.shared and clean:
            self.x.move_pointer(0, 0)
            self.x.close()
        else:
            self.x.close()
            self.end()
        if not self.shared:
            shutil.rmtree(self.folder.parent)
        self.lock.close()

    def end(self):
        (self.folder / "state").unlink(missing_ok=True)
        if self.manager:
            stop(self.manager, "openbox")
        stop(self.server, "Xvfb")

    def ask(self, *command):
        try:
            return subprocess.run(command, env=self.environment, capture_output=True, text=True,
                                  check=False, timeout=PATIENCE).stdout
        except subprocess.TimeoutExpired:
            raise AssertionError("no answer to " + " ".join(command)) from None

    # Windows, each by its number.

    def windows(self, title):
        """The visible windows of that title."""
        return self.x.named(title)

    def box(self, window):
        """Left, top, width and height of what is inside the window's frame."""
        return self.x.box(window)

    def is_folded(self, window):
        return self.x.is_folded(window)

    def activate(self, window):
        """Gives the window the keyboard."""
        if not self.manager:
            self.x.focus(window)
            return

        def active():
            if self.x.active() == window:
                return True
            self.x.activate(window)
            return False

        wait_for(active, "the keyboard on a window")

    def close_window(self, window):
        """Closes a window as the window manager's own key does."""
        self.x.close_window(window)

    # Keyboard and pointer.

    def click(self, x, y):
        self.x.move_pointer(x, y)
        self.x.press(1)
        time.sleep(0.05)
        self.x.release(1)

    def double_click(self, x, y):
        self.x.move_pointer(x, y)
        for _ in range(2):
            self.x.press(1)
            self.x.release(1)
            time.sleep(0.04)

    def turn_wheel(self, x, y, up):
        self.x.move_pointer(x, y)
        button = 4 if up else 5
        self.x.press(button)
        self.x.release(button)

    def drag(self, start, end, held=lambda: None):
        """Drags from one point to another; `held` is called before the release."""
        (x, y), (to_x, to_y) = start, end
        self.x.move_pointer(x, y)
        self.x.press(1)
        for step in range(1, 9):
            # A pointer does not jump: the program gets points on the way, too.
            time.sleep(0.01)
            self.x.move_pointer(round(x + (to_x - x) * step / 8),
                                round(y + (to_y - y) * step / 8))
        held()
        self.x.release(1)

    def type(self, *keys):
        self.ask("xdotool", "key", "--delay", "30", *keys)

    def type_text(self, text):
        self.ask("xdotool", "type", "--delay", "30", "--", text)

    def picture(self, file):
        self.pixels.write_png(file)


def end_all(screens):
    """Stops all screens of a folder."""
    for state in pathlib.Path(screens).glob("*/state"):
        _, manager, server = state.read_text().split()
        stop(int(manager), "openbox")
        stop(int(server), "Xvfb")
        state.unlink()


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] != "end":
        sys.exit("usage: screen.py end FOLDER")
    end_all(sys.argv[2])
