#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Time from exec to the first paint after the first heartbeat.

start_time.py FOLDER [RUNS]: FOLDER holds an assembled rack; DISPLAY names a 1366 by 768 screen
with nothing on it. The first heartbeat gives the modulation bar its first width, so the first
light in the bar's left end is the paint that is waited for. The fixed timers of 100 ms and 30 ms
are taken off. Looks once a millisecond.
"""
import ctypes
import statistics
import subprocess
import sys
import time

X = ctypes.CDLL("libX11.so.6")
X.XOpenDisplay.restype = ctypes.c_void_p
X.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
X.XDefaultRootWindow.restype = ctypes.c_ulong
X.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                        ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
X.XGetImage.restype = ctypes.c_void_p
FIXED_MS = 130
BAR = (97, 82)  # inside the left end of the bar on a screen of 1366 by 768


def green_at(display, root, x, y):
    image = X.XGetImage(display, root, x, y, 1, 1, 0xFFFFFFFF, 2)
    if not image:
        return 0
    # XImage: width, height, xoffset, format (4 ints), then the data pointer.
    data = ctypes.cast(image + 16, ctypes.POINTER(ctypes.c_void_p)).contents.value
    green = ctypes.cast(data, ctypes.POINTER(ctypes.c_ubyte))[1]
    X.XDestroyImage(ctypes.c_void_p(image))
    return green


def one_run(folder, display, root):
    began = time.monotonic()
    program = subprocess.Popen(["./hmonitor"], cwd=folder, stderr=subprocess.DEVNULL)
    try:
        while time.monotonic() - began < 20:
            if green_at(display, root, *BAR) > 90:
                return (time.monotonic() - began) * 1000 - FIXED_MS
            time.sleep(0.001)
        raise SystemExit("no heartbeat was seen within 20 s")
    finally:
        program.kill()
        program.wait()
        time.sleep(0.5)


def main():
    folder = sys.argv[1]
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 10
    display = X.XOpenDisplay(None)
    if not display:
        raise SystemExit("no display")
    root = X.XDefaultRootWindow(display)
    times = [one_run(folder, display, root) for _ in range(runs)]
    print("ms:", " ".join(f"{t:.0f}" for t in times), "median:", f"{statistics.median(times):.0f}")


main()
