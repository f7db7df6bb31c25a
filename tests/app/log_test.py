#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The on-air log from the rack's key: charts that are chosen and scrolled, the page in its preview
with zoom and comment, and the text of the day; read from the pixels."""

import sys

sys.dont_write_bytecode = True
from cases import SPANISH, case, main
from rack import LOG
from screen import wait_for

CHARTS, PAGE, TEXT = "Form_D4A", "Form4", "Form15"
PRINT_MODE, TEXT_MODE, CANCEL = "SSCommand1", "SSCommand2", "SSCommand3"


def colours(rack, form, control, wanted):
    """The number of pixels of a control that have about this colour."""
    area = rack.look(form, control)
    red, green, blue = wanted
    return sum(1 for at in range(0, len(area), 4)
               if abs(area[at + 2] - red) < 24 and abs(area[at + 1] - green) < 24
               and abs(area[at] - blue) < 24)


RED_BARS, BLUE_BARS = (0xf4, 0x44, 0x44), (0x64, 0xb0, 0xe4)
PAPER, INK_RED, INK_BLUE = (255, 255, 255), (255, 0, 0), (0, 0, 255)


def open_log(rack):
    rack.click("Form_D", "Image4")
    rack.screen.activate(rack.wait_open(CHARTS))
    rack.steady_look(CHARTS, ".")


def close_log(rack):
    rack.type(CHARTS, "Escape")
    rack.wait_closed(CHARTS)
    rack.wait_back()


def bars(rack, view, colour=RED_BARS):
    return colours(rack, CHARTS, view, colour)


def level_bars(rack):
    """The number of visible pixels of both levels' bars."""
    return bars(rack, "View(2)"), bars(rack, "View(2)", BLUE_BARS)


@case()
def days_and_bars(rack, album):
    """The last day is shown; other days are chosen by keyboard; scroll bars move their charts."""
    open_log(rack)
    assert bars(rack, "View(0)") > 2000, "no modulation is shown"
    for view in ("View(1)", "View(3)"):
        assert bars(rack, view, BLUE_BARS) > 300, f"nothing is shown in {view}"
    assert bars(rack, "View(2)") > 300 and bars(rack, "View(2)", BLUE_BARS) > 300, "two levels"
    album.take(rack.screen, "log")
    last = rack.steady_look(CHARTS, "View(0)")

    rack.click(CHARTS, "Combo1")
    rack.screen.type("Home", "Return")
    wait_for(lambda: rack.look(CHARTS, "View(0)") != last, "another day")
    album.take(rack.screen, "log_first_day")
    rack.screen.type("End")
    wait_for(lambda: rack.look(CHARTS, "View(0)") == last, "the last day again")

    rows = rack.steady_look(CHARTS, "View(2)")
    levels = level_bars(rack)
    ground = rack.look(CHARTS, "Well(0)")
    rack.click(CHARTS, "HScroll1", 0.98)
    wait_for(lambda: rack.look(CHARTS, "View(0)") != last, "the upper charts moved")
    assert rack.steady_look(CHARTS, "View(2)") == rows, "the lower charts moved with them"
    assert rack.look(CHARTS, "Well(0)") != ground, "the background did not tremble"
    rack.click(CHARTS, "HScroll2", 0.98)
    wait_for(lambda: level_bars(rack) != levels, "the lower charts moved")
    rack.steady_look(CHARTS, ".")
    album.take(rack.screen, "log_moved")
    rack.screen.type("Home")
    wait_for(lambda: level_bars(rack) == levels, "the lower charts back, by hand")
    close_log(rack)


@case()
def page(rack, album):
    """The preview follows zoom and comment; Print without a printer says nothing."""
    open_log(rack)
    rack.click(CHARTS, PRINT_MODE)
    rack.screen.activate(rack.wait_open(PAGE))
    wait_for(lambda: colours(rack, PAGE, "ViewPro1", PAPER) > 10000, "a sheet of paper")
    wait_for(lambda: colours(rack, PAGE, "ViewPro1", INK_RED) > 100, "red curves")
    wait_for(lambda: colours(rack, PAGE, "ViewPro1", INK_BLUE) > 100, "blue curves")
    before = rack.steady_look(PAGE, "ViewPro1")
    album.take(rack.screen, "page")

    rack.click(PAGE, "hscZoom", 0.97)
    wait_for(lambda: rack.look(PAGE, "ViewPro1") != before, "a larger page")
    rack.steady_look(PAGE, "ViewPro1")
    album.take(rack.screen, "page_large")
    rack.screen.type("Home")
    wait_for(lambda: colours(rack, PAGE, "ViewPro1", PAPER) < 60000, "a small page")

    # The comment is at the foot of the page, where the station's results are.
    wait_for(lambda: (rack.folder / "0985.dat").exists(), "the results of the station")
    rack.click(PAGE, "hscZoom", 0.45)
    small = rack.steady_look(PAGE, "ViewPro1")
    rack.click(PAGE, "Text1")
    rack.screen.type_text("A calm day")
    rack.screen.type("Return")
    wait_for(lambda: rack.look(PAGE, "ViewPro1") != small, "the page drawn again by Enter")
    rack.steady_look(PAGE, "ViewPro1")
    album.take(rack.screen, "page_comment")

    rack.click(PAGE, "SSCommand2")
    rack.wait_closed(PAGE)
    assert not rack.boxes(), "a print without a printer has a message"
    rack.click(CHARTS, PRINT_MODE)
    rack.screen.activate(rack.wait_open(PAGE))
    wait_for(lambda: colours(rack, PAGE, "ViewPro1", INK_RED) > 100, "the day's page again")
    rack.type(PAGE, "Escape")
    rack.wait_closed(PAGE)
    close_log(rack)


@case()
def text(rack, album):
    """The lists in their tabs, the report, and back."""
    open_log(rack)
    rack.click(CHARTS, TEXT_MODE)
    rack.screen.activate(rack.wait_open(TEXT))
    rack.wait_closed(CHARTS)
    first = rack.steady_look(TEXT, "List1")
    album.take(rack.screen, "text")
    rack.click(TEXT, "SSTab1", 0.75, 0.03)
    wait_for(lambda: rack.look(TEXT, "List1") != first, "the second tab")
    rack.steady_look(TEXT, ".")
    album.take(rack.screen, "text_values")
    rack.click(TEXT, "SSCommand2")
    assert not rack.boxes(), "a report without a printer has a message"
    rack.type(TEXT, "Escape")
    rack.wait_closed(TEXT)
    rack.wait_open(CHARTS)
    close_log(rack)


@case(languages=(SPANISH,))
def without_logs(rack, album):
    """No day: the charts are clear, the text does not open, the window closes."""
    for log in rack.folder.glob("*.log"):
        log.unlink()
    open_log(rack)
    assert bars(rack, "View(0)") == 0, "a chart of no day"
    rack.click(CHARTS, TEXT_MODE)
    rack.click(CHARTS, PRINT_MODE)
    rack.screen.activate(rack.wait_open(PAGE))
    wait_for(lambda: colours(rack, PAGE, "ViewPro1", PAPER) > 10000, "an empty sheet")
    assert colours(rack, PAGE, "ViewPro1", INK_RED) == 0, "a curve of no day"
    assert not rack.opened(TEXT), "the text of no day"
    rack.screen.close_window(rack.wait_open(PAGE))
    rack.wait_closed(PAGE)
    rack.steady_look(CHARTS, CANCEL)
    rack.click(CHARTS, CANCEL)
    rack.wait_closed(CHARTS)
    rack.wait_back()


@case(languages=(SPANISH,), units=({"pace": "1000", "clock": "2026-05-04 00:00:00"},),
      started=False)
def the_units_own_log(rack, album):
    """Asked for logs, the unit writes the day that the window then opens on."""
    settings = rack.folder / "hm-16.dat"
    lines = settings.read_bytes().split(b"\r\n")
    settings.write_bytes(b"\r\n".join(lines[:LOG] + [b"1"] + lines[LOG + 1:]))
    rack.start()
    log = rack.folder / "20260504.log"
    wait_for(lambda: log.exists() and log.read_bytes().count(b"\r\n") >= 3, "three hours of log")
    open_log(rack)
    assert bars(rack, "View(0)") > 300, "the day that the unit writes is not shown"
    album.take(rack.screen, "own_log")
    close_log(rack)


if __name__ == "__main__":
    main()
