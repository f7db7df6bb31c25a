#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Without a unit the demo is offered in the user's language; taken, the panels move; refused, the
program ends."""

import sys

sys.dont_write_bytecode = True
from cases import THREE, case, main
from screen import wait_for

without_unit = case(languages=THREE, units=({"version": "0"},), started=False)


def offer(rack):
    """The window of the demo offer, once it has the keyboard."""
    rack.program = rack.launch()
    window = wait_for(lambda: rack.opened("FormModoDemo"), "the demo offer")
    rack.screen.activate(window)
    return window


def moving(rack):
    """The figures of the demo change by themselves, on every panel that measures."""
    rack.window = wait_for(rack.find, "the rack")
    for form, well in (("Form1", "BarWell"), ("Form_B", "LevelWell"), ("Form_B", "PhaseWell")):
        before = rack.look(form, well)
        wait_for(lambda: rack.look(form, well) != before, f"a {well} that moves")


@without_unit
def taken_by_mouse(rack, album):
    offer(rack)
    album.take(rack.screen, "offer")
    rack.click("FormModoDemo", "Command1")
    moving(rack)
    album.take(rack.screen, "rack")


@without_unit
def taken_by_keyboard(rack, album):
    offer(rack)
    rack.screen.type("Return")
    moving(rack)


@without_unit
def refused_by_mouse(rack, album):
    offer(rack)
    rack.click("FormModoDemo", "Command2")
    rack.wait_end()


@without_unit
def refused_by_keyboard(rack, album):
    offer(rack)
    rack.screen.type("Escape")
    rack.wait_end()


@without_unit
def refused_by_the_window_manager(rack, album):
    rack.screen.close_window(offer(rack))
    rack.wait_end()


@case(languages=THREE, started=False)
def offered_without_a_library(rack, album):
    (rack.folder / "hm-16.so").unlink()
    offer(rack)
    album.take(rack.screen, "offer_without_a_library")
    rack.screen.type("Return")
    moving(rack)
    wait_for(lambda: rack.is_signed("Form1"), "DEMO in the head of a panel")
    album.take(rack.screen, "demo_without_a_library")


if __name__ == "__main__":
    main()
