#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The window HISTORY, with a day that was recorded before."""

import subprocess
import sys
import time

sys.dont_write_bytecode = True
from cases import TWO, case, main
from screen import wait_for

HISTORY = "Form_History"
CYAN = (0, 255, 255)


def is_cyan(blue, green, red):
    return red < 40 and green > 200 and blue > 200


def curve(rack, plot):
    """The share of a plot's columns in which there is a trace of the first colour."""
    left, top, wide, high = rack.box(HISTORY, plot)
    inside = left + wide // 8, top + high // 6, wide * 3 // 4, high * 2 // 3
    area = rack.screen.pixels.area(*inside)
    columns = set()
    for at in range(0, len(area), 4):
        if is_cyan(*area[at:at + 3]):
            columns.add(at // 4 % inside[2])
    return len(columns) / inside[2]


@case(languages=TWO, started=False)
def a_day_is_shown_and_zoomed_and_stays_beside_the_rack(rack, album):
    day = rack.folder / "history"
    subprocess.run([str(rack.build / "tests/app/recorded_day"), str(day), str(int(time.time()))],
                   check=True)
    rack.start()
    rack.type("Form_D", "F3")
    rack.wait_open(HISTORY)
    wait_for(lambda: curve(rack, "Plot_Figure(0)") > 0.8, "the day's curve")
    album.take(rack.screen, "history_day")

    # Meanwhile the rack goes on, and its keys work.
    rack.wait_measuring()
    rack.click("Form1", "Image_Average")
    wait_for(lambda: rack.is_lit("Form1", "Image_Average"), "the rack to answer")

    rack.click(HISTORY, "Command_Again")
    rack.click(HISTORY, "Plot_Figure(1)", 0.6, 0.5)
    rack.steady_look(HISTORY, "Plot_Figure(1)")
    album.take(rack.screen, "history_last_week")

    rack.type(HISTORY, *["plus"] * 5)
    wait_for(lambda: curve(rack, "Plot_Figure(0)") > 0.8, "the curve of the zoomed time")
    rack.steady_look(HISTORY, "Plot_Figure(1)")
    album.take(rack.screen, "history_zoomed")

    # Its lower right corner makes the window smaller, and all that it shows with it.
    left, top, wide, high = rack.screen.box(rack.opened(HISTORY))
    corner = left + wide, top + high
    rack.screen.drag(corner, (corner[0] - wide // 5, corner[1] - high // 5))
    wait_for(lambda: abs(rack.screen.box(rack.wait_open(HISTORY))[2] - 0.8 * wide) < 0.03 * wide,
             "a smaller window")
    rack.steady_look(HISTORY, ".")
    wait_for(lambda: curve(rack, "Plot_Figure(0)") > 0.8, "the curve in the smaller window")
    album.take(rack.screen, "history_smaller")
    rack.type(HISTORY, "Escape")
    rack.wait_closed(HISTORY)


main()
