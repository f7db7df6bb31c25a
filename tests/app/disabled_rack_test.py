#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A window that disables the rack stands above it, whatever is clicked; and the focus."""

import sys
import threading
import time

sys.dont_write_bytecode = True
from cases import TWO, case, main
from screen import wait_for

AMBER = (245, 165, 10)
# The key of each window on Form_D, and the window's title.
DOORS = {"Image1": "FormD1a", "Image2": "Form_BandSCanner", "Image3": "Form_Dd3"}
CLOSE = {"FormD1a": "Command3D2", "Form_BandSCanner": "CommandClose", "Form_Dd3": "Command3D2"}


class Edge:
    """The colours seen inside a window's left edge; a busy machine does not miss a flash."""

    def __init__(self, rack, form):
        left, top, _, height = rack.screen.box(rack.opened(form))
        self.look = lambda: rack.screen.pixels.colour(left + 1, top + height // 2)
        self.seen, self.watching = set(), True
        self.thread = threading.Thread(target=self.watch)

    def watch(self):
        while self.watching:
            self.seen.add(self.look())
            time.sleep(0.02)

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.watching = False
        self.thread.join()


def beside(rack, form):
    """Two places of the rack that the window leaves free: rims of panels, and ends of keys."""
    left, top, width, height = rack.screen.box(rack.opened(form))
    places = [rack.point(*place) for place in
              (("Form1", "Faceplate", 0.012), ("Form_B", "Image3", 0.97),
               ("Form_D", "KeyLimits", 0.95), ("Form_D", "Image2", 0.05))]
    free = [(x, y) for x, y in places
            if not (left - 4 <= x < left + width + 4 and top - 30 <= y < top + height + 4)]
    assert len(free) >= 2, f"{form} covers the rack"
    return free[:2]


def each_window(rack, album):
    for door, form in DOORS.items():
        rack.click("Form_D", door)
        rack.wait_open(form)
        open_look = rack.steady_look(form, CLOSE[form])
        for at in beside(rack, form):
            with Edge(rack, form) as edge:
                rack.screen.click(*at)
                album.take(rack.screen, f"flash_{form}")
                wait_for(lambda: AMBER in edge.seen, f"a flash of {form}")
                wait_for(lambda: edge.look() != AMBER, "the end of the flash")
            wait_for(lambda: rack.look(form, CLOSE[form]) == open_look, f"{form} above the rack")
        rack.screen.type("Escape")
        rack.wait_closed(form)
        rack.wait_back()


@case(languages=TWO)
def brings_the_open_window_up(rack, album):
    each_window(rack, album)


@case(languages=TWO, managed=False)
def brings_the_open_window_up_without_a_manager(rack, album):
    each_window(rack, album)


@case(languages=TWO)
def stays_above_whatever_is_raised(rack, album):
    for door, form in DOORS.items():
        rack.click("Form_D", door)
        window = rack.wait_open(form)
        rack.screen.ask("xdotool", "windowraise", rack.window)
        wait_for(lambda: rack.screen.x.managed()[-1:] == [window], f"{form} above the raised rack")
        rack.type(form, "Escape")
        rack.wait_closed(form)
        rack.wait_back()


@case(languages=TWO)
def folded_by_the_window_manager_folds_all(rack, album):
    """A window manager that has a key for it all the same folds window and rack together."""
    rack.click("Form_D", "Image1")
    window = rack.wait_open("FormD1a")
    rack.screen.ask("xdotool", "windowminimize", window)
    wait_for(lambda: rack.screen.is_folded(rack.window), "the rack folded with its window")
    rack.screen.x.activate(rack.window)
    wait_for(lambda: rack.find() == rack.window and rack.opened("FormD1a"), "both back")
    rack.type("FormD1a", "Escape")
    rack.wait_closed("FormD1a")
    rack.wait_back()


@case(languages=TWO)
def the_question_for_a_spectrum_stays_above(rack, album):
    """A window opened by one that hides is above the rack nevertheless."""
    rack.screen.double_click(*rack.point("Form_D", "PictureGraph1"))
    rack.wait_open("Form_D1")
    rack.click("Form_D1", "Command3D1")
    rack.wait_open("Form_NewSpectro")
    before = rack.steady_look("Form_NewSpectro", "Command3D2")
    rack.screen.click(*rack.point("Form1", "Faceplate", 0.012))
    wait_for(lambda: rack.look("Form_NewSpectro", "Command3D2") == before, "the question above")
    album.take(rack.screen, "question")


@case(languages=TWO)
def tab_goes_from_panel_to_panel(rack, album):
    """After the last control of the first panel comes the first of the second; no key shows the
    focus ring before the keyboard was used."""
    rack.click("Form1", "Faceplate", 0.012)  # beside the keys, so that the rack gets the keyboard
    for control in ("Image_Average", "Image7", "Image_Power"):
        assert not rack.has_focus("Form1", control), f"{control} wears the ring before a key"
    rack.screen.click(*rack.point("Form1", "SSbAMmode"))
    rack.screen.type("Tab")
    for _ in range(12):
        if rack.has_focus("Form1", "Image_Power"):
            break
        rack.screen.type("Tab")
    rack.wait_focus("Form1", "Image_Power")
    rack.screen.type("Tab")
    rack.wait_focus("Form1", "KeyPdf")
    rack.screen.type("Tab")
    assert any_focus(rack, "Form_B"), "Tab left the first panel for another than the second"
    album.take(rack.screen, "ring")


def any_focus(rack, panel):
    keys = ("Image1", "Image2", "SSCommand1", "SSCommand2", "HScroll1", "Image3", "Image4")
    try:
        return wait_for(lambda: any(rack.has_focus(panel, key) for key in keys), "a ring")
    except AssertionError:
        return False


@case(languages=TWO, units=({"version": "2.0"},))
def the_focus_stays_on_the_run(rack, album):
    """While "New run" is disabled the keyboard stands on the key that stops the run."""
    rack.click("Form_D", "Image2")
    rack.wait_open("Form_BandSCanner")
    rack.tab_to("Form_BandSCanner", "Command3D1")
    rack.screen.type("space")
    rack.wait_focus("Form_BandSCanner", "CommandClose")
    album.take(rack.screen, "scanning")
    rack.screen.type("space")
    rack.wait_focus("Form_BandSCanner", "Command3D1")
    rack.screen.type("Escape")
    rack.wait_closed("Form_BandSCanner")
    rack.wait_back()


if __name__ == "__main__":
    main()
