# SPDX-License-Identifier: GPL-3.0-or-later
"""Queries and requests to a screen's X server over one connection, since starting a program for
each would cost more than the program that is tested. A window is its number as text; one that has
gone meanwhile has no box, no name and is not visible."""

import time

from Xlib import X, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

GONE = (error.BadWindow, error.BadDrawable, error.BadMatch)
FROM_A_PAGER = 2  # the source of a request: the user, whom the window manager always obeys


def unless_gone(what, otherwise):
    """Ignores errors of windows that disappear between two requests."""
    try:
        return what()
    except GONE:
        return otherwise


class XServer:
    def __init__(self, name):
        self.display = display.Display(name)
        # Errors of events sent to a window that has gone are ignored, too.
        self.display.set_error_handler(lambda *_: None)
        self.root = self.display.screen().root
        self.atoms = {}

    def close(self):
        self.display.close()

    def atom(self, name):
        if name not in self.atoms:
            self.atoms[name] = self.display.intern_atom(name)
        return self.atoms[name]

    def window(self, number):
        return self.display.create_resource_object("window", int(number))

    # Queries.

    def values(self, window, name):
        """The numbers of a property, none where there is no such property."""
        found = unless_gone(lambda: window.get_full_property(self.atom(name), X.AnyPropertyType),
                            None)
        return list(found.value) if found else []

    def managed(self):
        """The windows that the window manager knows, the lowest first."""
        return [str(number) for number in self.values(self.root, "_NET_CLIENT_LIST_STACKING")]

    def name(self, window):
        for atom in ("_NET_WM_NAME", "WM_NAME"):
            found = unless_gone(
                lambda: window.get_full_property(self.atom(atom), X.AnyPropertyType), None)
            if found:
                return found.value.decode(errors="replace") if isinstance(found.value, bytes) \
                    else str(found.value)
        return ""

    def is_visible(self, window):
        return unless_gone(lambda: window.get_attributes().map_state, X.IsUnmapped) == X.IsViewable

    def visible(self):
        """All visible windows of programs, with or without a window manager's frame."""
        tops = unless_gone(lambda: self.root.query_tree().children, [])
        numbers = {int(number) for number in self.managed()} | {top.id for top in tops}
        return [window for window in map(self.window, sorted(numbers)) if self.is_visible(window)]

    def popups(self):
        """Open lists and menus: visible windows of programs that no window manager has framed."""
        tops = unless_gone(lambda: self.root.query_tree().children, [])
        managed = set(self.managed())
        return [str(top.id) for top in tops if str(top.id) not in managed and
                self.values(top, "_NET_WM_PID") and self.is_visible(top)]

    def named(self, title):
        return [str(window.id) for window in self.visible() if self.name(window) == title]

    def of_process(self, process):
        return [str(window.id) for window in self.visible()
                if self.values(window, "_NET_WM_PID") == [process]]

    def box(self, number):
        """Left, top, width and height on the screen of what is inside the window's frame."""
        window = self.window(number)

        def asked():
            size = window.get_geometry()
            place = self.root.translate_coords(window, 0, 0)
            return place.x, place.y, size.width, size.height

        return unless_gone(asked, (0, 0, 0, 0))

    def is_folded(self, number):
        """The window manager holds it iconic (ICCCM 4.1.3.1)."""
        return self.values(self.window(number), "WM_STATE")[:1] == [3]

    def active(self):
        """The window that has the focus according to the window manager; "" for none."""
        number = self.values(self.root, "_NET_ACTIVE_WINDOW")
        return str(number[0]) if number and number[0] else ""

    # Requests.

    def tell_manager(self, window, message, *values):
        """A client message of the window manager's protocol (EWMH)."""
        data = (list(values) + 5 * [0])[:5]
        self.root.send_event(
            event.ClientMessage(window=window, client_type=self.atom(message), data=(32, data)),
            event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def activate(self, number):
        self.tell_manager(self.window(number), "_NET_ACTIVE_WINDOW", FROM_A_PAGER, X.CurrentTime)

    def focus(self, number):
        """Sets the focus itself, for screens without a window manager."""
        self.window(number).set_input_focus(X.RevertToParent, X.CurrentTime)
        self.display.sync()

    def close_window(self, number):
        """Closes a window as the window manager's own key does."""
        self.tell_manager(self.window(number), "_NET_CLOSE_WINDOW", X.CurrentTime, FROM_A_PAGER)

    def has_come_round(self, number, patience):
        """Whether the program answers at its window within so many seconds (EWMH _NET_WM_PING): it
        has then done what it was asked before."""
        window, protocols, ping = self.window(number), self.atom("WM_PROTOCOLS"), \
            self.atom("_NET_WM_PING")
        self.root.change_attributes(event_mask=X.StructureNotifyMask)
        window.send_event(event.ClientMessage(window=window, client_type=protocols,
                                              data=(32, [ping, X.CurrentTime, window.id, 0, 0])))
        self.display.flush()
        end = time.monotonic() + patience
        answered = False
        while not answered and time.monotonic() < end:
            if not self.display.pending_events():
                time.sleep(0.01)
                continue
            heard = self.display.next_event()
            answered = (heard.type & 0x7f) == X.ClientMessage and heard.client_type == protocols \
                and list(heard.data[1])[0] == ping and list(heard.data[1])[2] == window.id
        self.root.change_attributes(event_mask=X.NoEventMask)
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()
        return answered

    def set_one_desktop(self):
        self.tell_manager(self.root, "_NET_NUMBER_OF_DESKTOPS", 1)

    def move_pointer(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=int(x), y=int(y))
        self.display.sync()

    def press(self, button):
        xtest.fake_input(self.display, X.ButtonPress, button)
        self.display.sync()

    def release(self, button):
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()
