#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Windows closed in the middle of a run, in an order that a seed draws: by Escape, by the window
manager, by the run's own key. However it goes, the rack comes back enabled and measuring."""

import random
import sys
import time

sys.dont_write_bytecode = True
from cases import SPANISH, case, main
from rack import DETECTOR
from screen import wait_for

WINDOWS = ("Form_NewSpectro", "Form_D1", "FormD1a", "Form_BandSCanner", "Form_Dd3")
RUN = "Command3D1"


def start_spectrum(rack):
    if not rack.opened("Form_D1"):
        rack.screen.activate(rack.window)
        rack.screen.double_click(*rack.point("Form_D", "PictureGraph1"))
        rack.wait_open("Form_D1")
    rack.click("Form_D1", RUN)
    rack.wait_open("Form_NewSpectro")
    rack.type("Form_NewSpectro", "Return")


def start_bandwidth(rack):
    rack.click("Form_D", "Image1")
    rack.wait_open("FormD1a")
    rack.click("FormD1a", RUN)


def start_scan(rack):
    rack.click("Form_D", "Image2")
    rack.wait_open("Form_BandSCanner")
    rack.click("Form_BandSCanner", RUN)


def standing(rack):
    return [form for form in WINDOWS if rack.opened(form)]


def close_somehow(rack, form, chance):
    window = rack.opened(form)
    if not window:
        return
    if chance.random() < 0.5:
        rack.screen.close_window(window)
    else:
        rack.screen.x.activate(window)
        rack.screen.type("Escape")


def close_all(rack, chance):
    """Closes until all is closed and the rack takes keys: a run's own window can come up after the
    one that asked for it has gone. A bandwidth run is stopped by its own key first."""
    asked = [0.0]
    averages = rack.line(DETECTOR) == "0"

    def closed():
        forms = standing(rack)
        # A user tries again when nothing has happened for a while.
        if forms and time.monotonic() - asked[0] > 0.6:
            form = chance.choice(forms)
            if form == "FormD1a" and chance.random() < 0.4:
                rack.screen.click(*rack.point(form, RUN))
            else:
                close_somehow(rack, form, chance)
            asked[0] = time.monotonic()
        if forms:
            return False
        rack.click("Form1", "Image_Average" if averages else "Image6")
        return rack.line(DETECTOR) == str(int(averages))

    wait_for(closed, "the end of every window and a rack that takes keys")


UNITS = tuple({"version": version, "pace": "0.5", "seed": str(seed)}
              for version in ("1.8", "2.0") for seed in (1, 2, 3))


@case(languages=(SPANISH,), units=UNITS)
def in_a_drawn_order(rack, album):
    settings = (rack.folder / "hm-16.ini").read_bytes()
    chance = random.Random(settings)
    starts = [start_spectrum, start_bandwidth, start_scan]
    chance.shuffle(starts)
    for start in starts:
        start(rack)
        close_all(rack, chance)
        rack.wait_measuring()


if __name__ == "__main__":
    main()
