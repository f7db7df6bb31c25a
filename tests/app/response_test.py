#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The frequency response: its switch arms a run, the end mark of the unit ends it, the results are
stored, and the station's curve stands in its window."""

import sys

sys.dont_write_bytecode = True
from cases import SPANISH, case, main
from screen import wait_for

WINDOW, SWITCH = "Form_Dd3", "Image5"
TONES = {30, 125, 400, 1000, 4000, 8000, 12000, 15000}
ARMED, OFF = b"1", b"0"


def armed(rack):
    """Line 1 of the switch file."""
    try:
        return (rack.folder / "Hm-res.dat").read_bytes().split(b"\r\n")[0]
    except FileNotFoundError:
        return None


def results(rack):
    """The sixteen numbers of the stored response of 98.5 MHz."""
    try:
        lines = (rack.folder / "0985.res").read_bytes().split(b"\r\n")
    except FileNotFoundError:
        return []
    return [int(line) for line in lines[:-1]] if len(lines) == 17 else []


def turn(rack):
    rack.click("Form_D", SWITCH)


@case(units=({"version": "1.8", "pace": "10"}, {"version": "2.0", "pace": "10"}))
def measured(rack, album):
    rack.click("Form_D", "Image3")
    rack.screen.activate(rack.wait_open(WINDOW))
    empty = rack.steady_look(WINDOW, "Graph1")
    album.take(rack.screen, "empty")
    rack.type(WINDOW, "Escape")
    rack.wait_closed(WINDOW)
    rack.wait_back()
    turn(rack)
    wait_for(lambda: results(rack), "the results behind the end mark")
    told = results(rack)
    assert set(told[8:]) == TONES, f"the tones {told[8:]}"
    assert all(-300 <= level <= 100 for level in told[:8]), f"the levels {told[:8]}"
    wait_for(lambda: armed(rack) == OFF, "a switch that the end has turned off")
    rack.wait_back()
    rack.click("Form_D", "Image3")
    rack.screen.activate(rack.wait_open(WINDOW))
    wait_for(lambda: rack.look(WINDOW, "Graph1") != empty, "the measured curve")
    album.take(rack.screen, "curve")
    curve = rack.steady_look(WINDOW, "Graph1")
    rack.screen.close_window(rack.wait_open(WINDOW))
    rack.wait_closed(WINDOW)
    rack.wait_back()

    # The next station has no curve; back on this one the stored curve is shown.
    rack.click("Form_B", "SSCommand1")
    wait_for(lambda: rack.memory() == 2, "memory 2")
    rack.click("Form_D", "Image3")
    rack.screen.activate(rack.wait_open(WINDOW))
    wait_for(lambda: rack.look(WINDOW, "Graph1") == empty, "the empty curve of another station")
    rack.type(WINDOW, "Return")
    rack.wait_closed(WINDOW)
    rack.wait_back()
    rack.click("Form_B", "SSCommand2")
    wait_for(lambda: rack.memory() == 1, "memory 1")
    rack.click("Form_D", "Image3")
    rack.screen.activate(rack.wait_open(WINDOW))
    wait_for(lambda: rack.look(WINDOW, "Graph1") == curve, "the stored curve")
    rack.type(WINDOW, "Escape")
    rack.wait_closed(WINDOW)
    rack.wait_back()


@case(languages=(SPANISH,))
def turned_off_by_hand(rack, album):
    """Switched off before a tone has ended: nothing is stored."""
    off = rack.steady_look("Form_D", SWITCH)
    turn(rack)
    wait_for(lambda: armed(rack) == ARMED, "an armed run")
    wait_for(lambda: rack.look("Form_D", SWITCH) != off, "the switch on ON")
    album.take(rack.screen, "armed")
    turn(rack)
    wait_for(lambda: armed(rack) == OFF, "a run that is off")
    rack.wait_measuring()
    assert not results(rack)


@case(languages=(SPANISH,))
def tuning_by_hand_cancels(rack, album):
    turn(rack)
    wait_for(lambda: armed(rack) == ARMED, "an armed run")
    rack.click("Form_B", "HScroll1", 0.97)
    wait_for(lambda: armed(rack) == OFF, "a run that the tuning cancelled")
    rack.wait_back()
    assert not results(rack)


if __name__ == "__main__":
    main()
