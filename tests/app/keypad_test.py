#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The tuner keypad by mouse and keyboard. What it tuned is compared with the same frequency reached
by memory, and read from the results that the unit keeps of it."""

import sys

sys.dont_write_bytecode = True
from cases import case, main
from screen import wait_for

KEYPAD = "Form_bTuner"
CLS, ENTER, CLOSE, NOUGHT = "SSCommand11", "SSCommand10", "SSCommand12", "SSCommand13"


def key_of(digit):
    return NOUGHT if digit == "0" else f"SSCommand{digit}"


def open_keypad(rack):
    rack.click("Form_B", "Image4")
    rack.screen.activate(rack.wait_open(KEYPAD))


def frequency(rack):
    return rack.look("Form_B", "Label_FrecRadio")


def ink(rack):
    """The number of pixels of the entry in the red of its digits."""
    pixels = rack.look(KEYPAD, "Text1")
    return sum(1 for at in range(0, len(pixels), 4) if pixels[at + 2] > 200 and pixels[at + 1] < 90)


def frequency_of_memory(rack, steps):
    """The readout some memories further on: steps there and back."""
    at_start = rack.steady_look("Form_B", "Label_FrecRadio")
    start = rack.memory()
    stored = list(rack.presets())
    for step in range(1, steps + 1):
        rack.click("Form_B", "SSCommand1")
        wait_for(lambda: rack.memory() == stored[step], "the next memory")
    there = rack.steady_look("Form_B", "Label_FrecRadio")
    for step in range(steps - 1, -1, -1):
        rack.click("Form_B", "SSCommand2")
        wait_for(lambda: rack.memory() == stored[step], "the memory before")
    assert rack.memory() == start
    wait_for(lambda: frequency(rack) == at_start, "the first frequency again")
    return there


@case(units=({"pace": "20"},))
def tunes_by_mouse(rack, album):
    wanted = frequency_of_memory(rack, 1)  # 88.7 MHz
    open_keypad(rack)
    for digit in "1025":
        rack.click(KEYPAD, key_of(digit))
    wait_for(lambda: ink(rack) > 400, "four digits in the entry")
    album.take(rack.screen, "keypad")
    rack.click(KEYPAD, CLS)
    wait_for(lambda: ink(rack) < 100, "an empty entry, but for the caret")
    for digit in "887":
        rack.click(KEYPAD, key_of(digit))
    rack.click(KEYPAD, ENTER)
    wait_for(lambda: frequency(rack) == wanted, "88.7 MHz on the rack")
    wait_for(lambda: rack.memory() is None, "dark digits off the memories")
    rack.click(KEYPAD, CLOSE)
    rack.wait_closed(KEYPAD)
    rack.wait_back()
    wait_for(lambda: (rack.folder / "0887.dat").exists(), "results of 88.7 MHz")


@case(units=({"pace": "20"},))
def tunes_by_keyboard(rack, album):
    """The half step too; letters stay out, and outside the band nothing is tuned."""
    at_start = rack.steady_look("Form_B", "Label_FrecRadio")
    open_keypad(rack)
    rack.wait_focus(KEYPAD, "Text1")
    rack.screen.type_text("1a0,2.5-5")
    rack.screen.type("Return")
    wait_for(lambda: frequency(rack) != at_start, "102.55 MHz on the rack")
    rack.screen.type("ctrl+a", "BackSpace")
    there = rack.steady_look("Form_B", "Label_FrecRadio")
    rack.screen.type("2", "0", "0", "0", "Return", "9", "8", "5")
    # What was entered is selected: the next digits take its place.
    assert frequency(rack) == there, "2000 was tuned"
    rack.screen.type("Return")
    wait_for(lambda: frequency(rack) == at_start, "98.5 MHz on the rack")
    rack.screen.type("Escape")
    rack.wait_closed(KEYPAD)
    rack.wait_back()
    wait_for(lambda: (rack.folder / "1025.5.dat").exists(), "results of 102.55 MHz")


@case()
def tab_order(rack, album):
    order = ["Text1"] + [key_of(str(n)) for n in range(1, 10)] + [CLS, NOUGHT, ENTER, CLOSE]
    open_keypad(rack)
    rack.wait_focus(KEYPAD, "Text1")
    for control in order[1:] + order[:1]:
        rack.screen.type("Tab")
        rack.wait_focus(KEYPAD, control)
    rack.screen.type("shift+Tab")
    rack.wait_focus(KEYPAD, CLOSE)
    rack.screen.type("space")
    rack.wait_closed(KEYPAD)
    rack.wait_back()


@case()
def moved_and_closed_by_the_window_manager(rack, album):
    """The keypad is dragged by its faceplate; closing it by the window manager enables the rack."""
    open_keypad(rack)
    window = rack.opened(KEYPAD)
    before = rack.screen.box(window)
    start = rack.point(KEYPAD, "Label1", 0.95)
    rack.screen.drag(start, (start[0] + 50, start[1] + 30))
    wait_for(lambda: all(abs(a - b) <= 3 for a, b in zip(
        rack.screen.box(window), (before[0] + 50, before[1] + 30) + before[2:])),
        "the keypad 50 pixels to the right and 30 down")
    rack.screen.close_window(window)
    rack.wait_closed(KEYPAD)
    rack.wait_back()


if __name__ == "__main__":
    main()
