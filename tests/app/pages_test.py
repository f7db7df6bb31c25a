#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The pages that look like a sheet of paper, each opened from the window that it prints: a comment is
typed, kept by Cancel, and not lost by a print that finds no printer; read from the pixels."""

import sys

sys.dont_write_bytecode = True
from cases import case, main
from screen import wait_for

COMMENT, PRINT, CANCEL = "Text1", "SSCommand2", "SSCommand1"


def paper(rack, page, control="Sheet"):
    """The share of white pixels."""
    area = rack.look(page, control)
    white = sum(1 for at in range(0, len(area), 4)
                if min(area[at], area[at + 1], area[at + 2]) > 250)
    return white / (len(area) / 4)


def ink(rack, page, control):
    """The number of dark pixels."""
    area = rack.look(page, control)
    return sum(1 for at in range(0, len(area), 4)
               if max(area[at], area[at + 1], area[at + 2]) < 110)


def letters(rack, page):
    """The number of light pixels in the comment's field. In a window at another place the edges of
    letters are rounded differently."""
    area = rack.look(page, COMMENT)
    return sum(1 for at in range(0, len(area), 4)
               if min(area[at], area[at + 1], area[at + 2]) > 120)


def leave_field(rack, page):
    """Waits until the field shows neither caret nor focus ring."""
    rack.click(page, COMMENT)
    wait_for(lambda: rack.has_focus(page, COMMENT), "the keyboard in the comment")
    rack.screen.type("Tab")
    wait_for(lambda: not rack.has_focus(page, COMMENT), "the keyboard behind the comment")
    rack.steady_look(page, COMMENT)


def wait_letters(rack, page, wanted, said):
    leave_field(rack, page)
    wait_for(lambda: abs(letters(rack, page) - wanted) <= 0.15 * wanted, said)


def open_page(rack, window, key, page):
    rack.click(window, key)
    rack.screen.activate(rack.wait_open(page))


def walk(rack, album, window, key, page, least=0.5):
    """Opens a page by the key of its window and uses all its keys."""
    words = {"es": "Antena nueva", "en": "New antenna"}[rack.language[:2]]
    open_page(rack, window, key, page)
    left, top, _, _ = rack.screen.box(rack.opened(page))
    assert left >= 0 and top >= 0, f"a page at {left}, {top}, beyond the edge of the screen"
    wait_for(lambda: paper(rack, page) > least, f"a white sheet, not {paper(rack, page):.2f}")
    assert ink(rack, page, "Label2") > 60, "no date line"
    leave_field(rack, page)
    empty = letters(rack, page)
    rack.click(page, COMMENT)
    rack.screen.type_text(words)
    wait_for(lambda: letters(rack, page) > empty + 200, "a comment")
    leave_field(rack, page)
    written = letters(rack, page)
    album.take(rack.screen, page)

    # Cancel keeps the comment.
    rack.click(page, CANCEL)
    rack.wait_closed(page)
    open_page(rack, window, key, page)
    wait_letters(rack, page, written, "the comment after Cancel")

    # Without a printer there is no message; the page closes, and the comment is kept.
    rack.click(page, PRINT)
    rack.wait_closed(page)
    assert not rack.boxes(), "a print without a printer has a message"
    open_page(rack, window, key, page)
    wait_letters(rack, page, written, "the comment after a print that failed")
    rack.type(page, "Escape")
    rack.wait_closed(page)


@case()
def scan(rack, album):
    rack.click("Form_D", "Image2")
    rack.screen.activate(rack.wait_open("Form_BandSCanner"))
    rack.click("Form_BandSCanner", "Option_Impares")
    walk(rack, album, "Form_BandSCanner", "SSCommand1", "Form_PrintBandScan")
    rack.type("Form_BandSCanner", "Escape")
    rack.wait_closed("Form_BandSCanner")
    rack.wait_back()


@case()
def response(rack, album):
    rack.click("Form_D", "Image3")
    rack.screen.activate(rack.wait_open("Form_Dd3"))
    walk(rack, album, "Form_Dd3", "SSCommand1", "Form7")
    rack.type("Form_Dd3", "Escape")
    rack.wait_closed("Form_Dd3")
    rack.wait_back()


@case()
def spectrum_and_bandwidth(rack, album):
    if not rack.opened("Form_D1"):
        rack.screen.activate(rack.window)
        rack.screen.double_click(*rack.point("Form_D", "PictureGraph1"))
    rack.screen.activate(rack.wait_open("Form_D1"))
    walk(rack, album, "Form_D1", "SSCommand1", "Form6")
    rack.click("Form_D1", "SSCommand2")
    rack.screen.activate(rack.wait_open("FormD1a"))
    rack.click("FormD1a", "Command1")
    walk(rack, album, "FormD1a", "SSCommand1", "FormD1aP")


@case()
def analyzer(rack, album):
    """The analyzer's view is as dark on the page as in its window; the page around it is white."""
    rack.click("Form_D", "Image6")
    rack.screen.activate(rack.wait_open("frmSpectrumAnalizer"))
    walk(rack, album, "frmSpectrumAnalizer", "SSCommand1", "Form6", least=0.25)


if __name__ == "__main__":
    main()
