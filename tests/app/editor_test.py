#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The memory editor by mouse and keyboard; what it did is read from the bytes of halden.dat and
hm-16.dat, from its own seven-segment number and from the rack."""

import sys

sys.dont_write_bytecode = True
from cases import case, main
from rack import ALL, CORRECTION, LOG, ODD
from screen import wait_for

EDITOR = "Form_bSetMemories"
FREQUENCY, NAME = "Text1", "Text2"
SAVE, DELETE = "SSCommand20", "SSCommand22"
ACCEPT, CANCEL, ADVANCED = "SSCommand17", "SSCommand18", "SSCommand19"


def key_of(memory):
    return f"SSCommand{memory}"


def open_editor(rack):
    rack.click("Form_B", "Image3")
    rack.screen.activate(rack.wait_open(EDITOR))


def shown_memory(rack):
    """The number on the editor's two digits, None while they are dark."""
    tens, units = (rack.digit(EDITOR, [f"Line{first + n}" for n in range(7)]) for first in (1, 8))
    return units if not isinstance(tens, int) else 10 * tens + units


def select(rack, memory):
    rack.click(EDITOR, key_of(memory))
    wait_for(lambda: shown_memory(rack) == memory, f"the number {memory}")


def refill(rack, field, text):
    rack.click(EDITOR, field)
    rack.screen.type("ctrl+a", "BackSpace")
    rack.screen.type_text(text)


def block(rack):
    return (rack.folder / "halden.dat").read_bytes()


def with_record(before, memory, name, frequency):
    """The block with another record in it."""
    record = b"-" + name.ljust(9) + b"-" + frequency.ljust(5)
    return before[:16 * memory] + record + before[16 * memory + 16:]


def wait_block(rack, wanted, said):
    wait_for(lambda: block(rack) == wanted, said)


def colour_of_key(rack, memory):
    """The lightest pixel of the number on a preset key."""
    left, top, width, height = rack.box(EDITOR, key_of(memory))
    area = rack.screen.pixels.area(left + width // 3, top + height // 4, width // 3, height // 2)
    pixels = [tuple(area[at:at + 3]) for at in range(0, len(area), 4)]
    return max(pixels, key=sum)


@case(units=({"pace": "20"},))
def saves_by_mouse(rack, album):
    """A new record, to the byte; the rack tunes it; accept keeps it."""
    before = block(rack)
    open_editor(rack)
    wait_for(lambda: shown_memory(rack) == 1, "the digits of memory 1")
    empty, stored = colour_of_key(rack, 4 + 5), colour_of_key(rack, 1)
    assert empty != stored, "an empty memory looks like one that holds a station"
    select(rack, 9)
    album.take(rack.screen, "empty")
    refill(rack, FREQUENCY, "102.55")
    refill(rack, NAME, "la nueve")
    rack.click(EDITOR, SAVE)
    wanted = with_record(before, 9, b"LA NUEVE", b"10255")
    wait_block(rack, wanted, "the record of memory 9")
    wait_for(lambda: colour_of_key(rack, 9) == stored, "the colour of a stored memory")
    wait_for(lambda: rack.memory() == 9, "the rack on memory 9")
    album.take(rack.screen, "saved")
    rack.click(EDITOR, ACCEPT)
    rack.wait_closed(EDITOR)
    assert block(rack) == wanted
    rack.wait_back()
    wait_for(lambda: (rack.folder / "1025.5.dat").exists(), "results of 102.55 MHz")


@case()
def saves_by_keyboard(rack, album):
    """By keyboard alone, from the set key on; Enter in a field saves, Enter elsewhere accepts."""
    before = block(rack)
    rack.click("Form_B", "SSCommand1")
    wait_for(lambda: rack.memory() == 2, "memory 2")
    rack.screen.type("Tab", "space")  # the set key comes after the step key
    rack.screen.activate(rack.wait_open(EDITOR))
    wait_for(lambda: shown_memory(rack) == 2, "the number 2")
    rack.tab_to(EDITOR, key_of(4))
    rack.screen.type("space")
    wait_for(lambda: shown_memory(rack) == 4, "the number 4 by keyboard")
    rack.tab_to(EDITOR, FREQUENCY)
    rack.screen.type("ctrl+a", "8", "9", "3", "Tab", "ctrl+a")
    rack.screen.type_text("campus")
    rack.screen.type("Return")
    wanted = with_record(before, 4, b"CAMPUS", b"893")
    wait_block(rack, wanted, "the record of memory 4")
    assert rack.opened(EDITOR), "Enter in a field closed the editor"
    rack.tab_to(EDITOR, ACCEPT)
    rack.screen.type("Return")
    rack.wait_closed(EDITOR)
    assert block(rack) == wanted
    rack.wait_back()


@case()
def cancel_brings_everything_back(rack, album):
    before = block(rack)
    open_editor(rack)
    select(rack, 3)
    rack.click(EDITOR, DELETE)
    wait_block(rack, with_record(before, 3, b"", b""), "memory 3 deleted")
    refill(rack, FREQUENCY, "9815")
    rack.click(EDITOR, SAVE)
    wait_for(lambda: block(rack)[16 * 3 + 11:16 * 3 + 16] == b"9815 ", "memory 3 at 98.15 MHz")
    rack.click(EDITOR, CANCEL)
    rack.wait_closed(EDITOR)
    assert block(rack) == before, "Cancel left a change behind"
    rack.wait_back()


@case()
def escape_keeps_what_was_changed(rack, album):
    before = block(rack)
    open_editor(rack)
    rack.click(EDITOR, DELETE)
    wanted = with_record(before, 1, b"", b"")
    wait_block(rack, wanted, "a deleted memory")
    rack.screen.type("Escape")
    rack.wait_closed(EDITOR)
    assert block(rack) == wanted, "Escape took a change back"
    rack.wait_back()


@case()
def arrows_go_over_the_grid(rack, album):
    """Down is one row down: from memory 2 to 6."""
    open_editor(rack)
    rack.tab_to(EDITOR, key_of(2))
    rack.screen.type("Down")
    rack.wait_focus(EDITOR, key_of(6))
    rack.screen.type("Right", "Up")
    rack.wait_focus(EDITOR, key_of(3))
    album.take(rack.screen, "focus")
    rack.screen.type("Escape")
    rack.wait_closed(EDITOR)


@case()
def the_window_manager_cancels(rack, album):
    before = block(rack)
    open_editor(rack)
    rack.click(EDITOR, DELETE)
    wait_for(lambda: block(rack) != before, "a deleted memory")
    rack.screen.close_window(rack.wait_open(EDITOR))
    rack.wait_closed(EDITOR)
    assert block(rack) == before, "closing left a change behind"
    rack.wait_back()


@case()
def a_wrong_frequency_is_told(rack, album):
    before = block(rack)
    open_editor(rack)
    refill(rack, FREQUENCY, "87.4")
    rack.click(EDITOR, SAVE)

    def boxes():
        return rack.screen.windows("Memory Preset")

    box = wait_for(boxes, "the box that tells of the wrong frequency")[0]
    rack.screen.activate(box)
    album.take(rack.screen, "box")
    rack.screen.type("Return")
    wait_for(lambda: not boxes(), "the end of the box")
    assert block(rack) == before
    rack.type(EDITOR, "Escape")
    rack.wait_closed(EDITOR)
    rack.wait_back()


def is_wide(rack):
    """Whether the options are shown; None while the window is between two widths."""
    window = rack.opened(EDITOR)
    if not window:
        return None
    _, _, width, height = rack.screen.box(window)
    return width > height


@case()
def options(rack, album):
    """The options: a locked correction, the two boxes that exclude each other, the log."""
    assert (rack.line(ODD), rack.line(ALL), rack.line(LOG)) == ("0", "1", "0")
    open_editor(rack)
    rack.click(EDITOR, ADVANCED)
    wait_for(lambda: is_wide(rack), "the wide editor")
    rack.click(EDITOR, "label_dbCorrection")
    rack.screen.type_text("7")  # locked: typing changes nothing
    rack.click(EDITOR, "SSCommand21")
    refill(rack, "label_dbCorrection", "-2.5x")
    rack.click(EDITOR, "SSCheck1", 0.05)
    rack.click(EDITOR, "SSCheck3", 0.05)
    album.take(rack.screen, "options")
    rack.click(EDITOR, ADVANCED)
    wait_for(lambda: is_wide(rack) is False, "the narrow editor")
    rack.click(EDITOR, ACCEPT)
    rack.wait_closed(EDITOR)
    told = tuple(rack.line(number) for number in (CORRECTION, ODD, ALL, LOG))
    assert told == ("-2.5", "1", "0", "1"), f"the options were kept as {told}"
    rack.wait_back()


@case()
def tab_order(rack, album):
    """All controls by Tab, in reading order, and one step back."""
    open_editor(rack)
    rack.click(EDITOR, ADVANCED)
    order = ([key_of(n) for n in range(1, 17)] + [FREQUENCY, NAME, SAVE, DELETE, ACCEPT, CANCEL,
             ADVANCED, "label_dbCorrection", "SSCommand21", "SSCheck1", "SSCheck2", "SSCheck3"])
    rack.click(EDITOR, key_of(1))
    rack.steady_look(EDITOR, "Faceplate")
    for control in order[1:] + order[:1]:
        rack.expect_focus(EDITOR, control, "Tab")
    rack.expect_focus(EDITOR, order[-1], "shift+Tab")
    rack.screen.type("Escape")
    rack.wait_closed(EDITOR)


@case()
def opens_to_store(rack, album):
    """Off the memories the editor offers the tuned frequency, and a stored memory takes it over."""
    rack.click("Form_B", "HScroll1", 0.97)
    wait_for(lambda: rack.memory() is None, "dark digits off the memories")
    open_editor(rack)
    wait_for(lambda: shown_memory(rack) is None, "no memory selected")
    album.take(rack.screen, "no_memory")
    before = block(rack)
    rack.click(EDITOR, SAVE)
    rack.click(EDITOR, DELETE)
    select(rack, 1)
    assert block(rack) == before, "Save or Delet without a memory changed the file"
    rack.click(EDITOR, ACCEPT)
    rack.wait_closed(EDITOR)
    rack.wait_back()


if __name__ == "__main__":
    main()
