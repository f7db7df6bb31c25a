#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A driver library that crashes or hangs: a box with keys, and the program goes on or ends in
order."""

import shutil
import sys

sys.dont_write_bytecode = True
from cases import TWO, case, main
from rack import DETECTOR, PRESET
from screen import wait_for

SPLASH = (5600, 2600)  # twips

def launch_on(rack, wrong):
    """The program on a library that does wrong what it is told to."""
    shutil.copy(rack.build / "tests/drivers/host/told/hm-16.so", rack.folder / "hm-16.so")
    (rack.folder / "hm-16.so").chmod(0o755)
    (rack.folder / "wrong.txt").write_text(wrong)
    rack.program = rack.launch()


def stand_before_box(rack):
    """The box, once it has the keyboard: the only window that is neither rack nor splash."""

    def has_keyboard():
        known = {rack.window, rack.find_sized("HMonitor", *SPLASH)} - {None}
        if not known:
            return None  # the splash has not its size yet
        boxes = [window for window in rack.screen.windows("HMonitor") if window not in known]
        if boxes and rack.screen.x.active() in boxes:
            return boxes[0]
        if boxes:
            rack.screen.x.activate(boxes[0])
        return None

    return wait_for(has_keyboard, "the box about the library")


def end_by_key(rack):
    """Clicks the last key of the box, in its lower right corner."""
    left, top, width, height = rack.screen.box(stand_before_box(rack))
    rack.screen.click(left + width - 60, top + height - 25)
    rack.wait_end()


@case(languages=TWO, started=False)
def crashed_and_started_again(rack, album):
    launch_on(rack, "crash HM_DataRDS 0\nonce\n")
    rack.window = wait_for(rack.find, "the rack")
    stand_before_box(rack)
    album.take(rack.screen, "library_crashed")
    rack.screen.type("Return")
    wait_for(lambda: not rack.boxes(), "the end of the box")
    wanted = "1" if rack.line(DETECTOR) == "0" else "0"
    rack.click("Form1", "Image_Average" if wanted == "1" else "Image6")
    rack.wait_line(DETECTOR, wanted, "a key that the rack takes")
    calls = (rack.folder / "calls.txt").read_text().splitlines()
    assert calls.count("HM_Init") == 2, "the library did not start again"
    told = (rack.folder / "hm-16.fault.txt").read_text()
    assert "HM_DataRDS" in told.splitlines()[0], told
    assert told.rstrip().endswith("did not return"), told


@case(languages=TWO, started=False)
def ended_by_key_while_the_start_hangs(rack, album):
    launch_on(rack, "hang HM_Super\n")
    preset = rack.line(PRESET)
    stand_before_box(rack)
    album.take(rack.screen, "unit_does_not_answer")
    end_by_key(rack)
    assert rack.line(PRESET) == preset


@case(languages=TWO, started=False)
def slow_levels_at_the_start_are_waited_for(rack, album):
    """Each level takes longer than the 5 s after which the box comes; it goes by itself when the
    level is there."""
    launch_on(rack, "slow HM_Super 9000\n")
    box = stand_before_box(rack)
    wait_for(lambda: box not in rack.screen.windows("HMonitor"), "the end of the box")
    end_by_key(rack)
    assert (rack.folder / "calls.txt").read_text().count("HM_Super") == 2


def is_written(area):
    """Words in the colour of notices."""
    return sum(1 for at in range(0, len(area), 4)
               if area[at + 2] > 200 and 120 < area[at + 1] < 215 and area[at] < 110) > 60


@case(languages=TWO, started=False)
def a_crash_in_the_opening_is_told_by_the_offer(rack, album):
    launch_on(rack, "crash HM_Init\n")
    window = wait_for(lambda: rack.opened("FormModoDemo"), "the demo offer")
    rack.screen.activate(window)
    wait_for(lambda: is_written(rack.look("FormModoDemo", "Reason")), "the sentence in the offer")
    album.take(rack.screen, "offer_after_a_crash")
    rack.screen.type("Escape")
    rack.wait_end()


if __name__ == "__main__":
    main()
