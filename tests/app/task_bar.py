#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""task_bar.py HEIGHT: a bar at the lower edge of the screen that reserves its room, as a desktop's
task bar does. Runs until it is stopped."""

import ctypes
import sys

XA_ATOM, XA_CARDINAL, XA_WM_NORMAL_HINTS, XA_WM_SIZE_HINTS, REPLACE = 4, 6, 40, 41, 0
PLACED_BY_USER = 1


class Bar:
    def __init__(self, height):
        self.x11 = x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        x11.XInternAtom.restype = x11.XCreateSimpleWindow.restype = ctypes.c_ulong
        x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(x11.XOpenDisplay(None))
        root = ctypes.c_ulong(x11.XDefaultRootWindow(self.display))
        width = x11.XDisplayWidth(self.display, 0)
        top = x11.XDisplayHeight(self.display, 0) - height
        self.window = ctypes.c_ulong(x11.XCreateSimpleWindow(
            self.display, root, 0, top, width, height, 0, ctypes.c_ulong(0),
            ctypes.c_ulong(0x3a5a7a)))
        self.set("_NET_WM_WINDOW_TYPE", XA_ATOM, [self.atom("_NET_WM_WINDOW_TYPE_DOCK")])
        # Left, right, top, bottom, then the begin and the end of each.
        self.set("_NET_WM_STRUT", XA_CARDINAL, [0, 0, 0, height])
        self.set("_NET_WM_STRUT_PARTIAL", XA_CARDINAL,
                 [0, 0, 0, height, 0, 0, 0, 0, 0, 0, 0, width - 1])
        # Without the hint the window manager chooses a place itself.
        self.change(XA_WM_NORMAL_HINTS, XA_WM_SIZE_HINTS,
                    [PLACED_BY_USER, 0, top, width, height] + 13 * [0])
        x11.XStoreName(self.display, self.window, b"Task bar")
        x11.XMapWindow(self.display, self.window)
        x11.XFlush(self.display)

    def atom(self, name):
        return self.x11.XInternAtom(self.display, name.encode(), 0)

    def set(self, name, kind, values):
        self.change(self.atom(name), kind, values)

    def change(self, name, kind, values):
        longs = (ctypes.c_ulong * len(values))(*values)
        self.x11.XChangeProperty(self.display, self.window, ctypes.c_ulong(name),
                                 ctypes.c_ulong(kind), 32, REPLACE, longs, len(values))

    def stay(self):
        event = ctypes.create_string_buffer(192)
        while True:
            self.x11.XNextEvent(self.display, event)


if __name__ == "__main__":
    Bar(int(sys.argv[1])).stay()
