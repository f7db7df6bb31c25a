#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The band scanner with its four choices of channels, on a unit that sweeps and on one that measures
channel by channel; results are read from the bytes of scan.dat and the pixels of the chart."""

import sys
import time

sys.dont_write_bytecode = True
from cases import SPANISH, case, main
from screen import wait_for

SCANNER = "Form_BandSCanner"
RUN, CLOSE = "Command3D1", "CommandClose"
ALL, EVEN, ODD, QUARTER = "Option_All", "Option_Pares", "Option_Impares", "Option_250Khz"
QUICK = ({"version": "1.8", "pace": "10"}, {"version": "2.0", "pace": "10"})
SLOW = ({"version": "1.8", "pace": "0.3"}, {"version": "2.0", "pace": "0.3"})

# Channels of a whole run: from 87.5 (even, swept: 87.4) to 108, swept: to 107.9.
SWEPT = {ALL: 205, EVEN: 103, ODD: 103, QUARTER: 82}
ONE_BY_ONE = {EVEN: 103, ODD: 103}
ONE_LEVEL = b"30\r\n"


def levels(rack):
    """scan.dat: whole numbers, one a line, each line closed."""
    try:
        data = (rack.folder / "scan.dat").read_bytes()
    except FileNotFoundError:
        return []
    lines = data.split(b"\r\n")
    return [int(line) for line in lines[:-1]] if lines[-1] == b"" else []


def open_scanner(rack):
    rack.click("Form_D", "Image2")
    rack.screen.activate(rack.wait_open(SCANNER))


def chart(rack):
    return rack.look(SCANNER, "ChartView")


def can_run(rack):
    """Whether the key that starts a run is lit."""
    return max(rack.colour(SCANNER, RUN, 0.1, 0.2)) > 60


def choose(rack, option):
    """Waits until the last scan is drawn again: no run can be started before that."""
    rack.click(SCANNER, option, 0.1)
    rack.screen.x.has_come_round(rack.opened(SCANNER), 20)
    for _ in range(100):  # it was drawn between two looks
        if not can_run(rack):
            break
        time.sleep(0.01)
    wait_for(lambda: can_run(rack), "a key that starts a run")


def begin_run(rack):
    """Presses the run's key until the key that closes says something else, as it does from the
    first moment of a run: while a chart fills the key is dead, and may be painted so a moment
    later."""
    before = rack.look(SCANNER, CLOSE)

    def began():
        rack.click(SCANNER, RUN)
        rack.screen.x.has_come_round(rack.opened(SCANNER), 20)
        seen = time.monotonic() + 1
        while time.monotonic() < seen:
            if rack.look(SCANNER, CLOSE) != before:
                return True
            time.sleep(0.01)
        return False

    wait_for(began, "a run that begins")


def start_run(rack):
    """Waits until the first levels are in the chart."""
    cleared = chart(rack)
    begin_run(rack)
    wait_for(lambda: chart(rack) != cleared, "a cleared chart")
    cleared = chart(rack)
    wait_for(lambda: chart(rack) != cleared, "a chart that fills")


def wait_levels(rack, count):
    wait_for(lambda: len(levels(rack)) == count, f"{count} levels in scan.dat")


def close_window(rack):
    """Closes the window by the window manager, and again while a run holds it open. A close cuts a
    frame short, which is then measured again, so it is not tried more often than frames come."""
    asked = [0.0]

    def closed():
        window = rack.opened(SCANNER)
        if window and time.monotonic() - asked[0] > 1:
            rack.screen.close_window(window)
            asked[0] = time.monotonic()
        return not window

    wait_for(closed, "the end of the window")
    rack.wait_back()


def at_band_end(rack):
    """Whether the thumb of the chart's scroll bar has left its start."""
    return max(rack.colour(SCANNER, "HScroll1", 0.03)) < 60


def sweeps(rack):
    return b"version = 1.8" in (rack.folder / "hm-16.ini").read_bytes()


def whole_run(rack, album, option):
    """As many levels are stored as there are channels, or none if a run one by one does not match
    its legend."""
    open_scanner(rack)
    choose(rack, option)
    (rack.folder / "scan.dat").write_bytes(ONE_LEVEL)
    begin_run(rack)
    wait_for(lambda: at_band_end(rack), "the chart moved to the band's end")
    stored = SWEPT[option] if sweeps(rack) else ONE_BY_ONE.get(option)
    if stored:
        wait_levels(rack, stored)
        told = levels(rack)
        assert max(told) > 60 and min(told) < 40, f"levels from {min(told)} to {max(told)}"
    wait_for(lambda: can_run(rack), "the end of the run")
    rack.steady_look(SCANNER, "ChartView")
    album.take(rack.screen, "band_end")
    at_end = rack.look(SCANNER, "HScroll1")
    rack.click(SCANNER, "HScroll1", 0.02)
    wait_for(lambda: rack.look(SCANNER, "HScroll1") != at_end, "the chart a page back")
    rack.screen.type("Home")
    wait_for(lambda: not at_band_end(rack), "the chart at the band's start, by hand")
    album.take(rack.screen, "band_start")
    close_window(rack)
    if not stored:
        kept = (rack.folder / "scan.dat").read_bytes()
        assert kept == ONE_LEVEL, "a run of channels that lie under no legend was stored"


@case(units=QUICK)
def all_channels(rack, album):
    whole_run(rack, album, ALL)


@case(languages=(SPANISH,), units=QUICK)
def even_channels(rack, album):
    whole_run(rack, album, EVEN)


@case(units=QUICK)
def odd_channels(rack, album):
    whole_run(rack, album, ODD)


@case(languages=(SPANISH,), units=QUICK)
def each_250_khz(rack, album):
    whole_run(rack, album, QUARTER)


@case(units=SLOW)
def stop_and_next_run(rack, album):
    """A stopped run stores nothing; the next one begins at once, and stops too; the rack is back.
    A sweep is stopped by its own key, a run one by one by the key that closes."""
    before = (rack.folder / "scan.dat").read_bytes()
    stop = RUN if sweeps(rack) else CLOSE
    open_scanner(rack)
    for _ in range(2):
        start_run(rack)
        album.take(rack.screen, "running")
        waiting = rack.look(SCANNER, CLOSE)
        rack.click(SCANNER, stop)
        wait_for(lambda: rack.look(SCANNER, CLOSE) != waiting, "the end of the run")
        rack.steady_look(SCANNER, "ChartView")
    assert (rack.folder / "scan.dat").read_bytes() == before, "a stopped run was stored"
    rack.type(SCANNER, "Escape")
    rack.wait_closed(SCANNER)
    rack.wait_back()


@case(languages=(SPANISH,), units=SLOW)
def closed_while_idle(rack, album):
    open_scanner(rack)
    close_window(rack)


@case(languages=(SPANISH,), units=SLOW)
def closed_in_a_run(rack, album):
    """A sweep goes on until its own key stops it; a run one by one ends at the first close."""
    open_scanner(rack)
    start_run(rack)
    rack.screen.close_window(rack.wait_open(SCANNER))
    if sweeps(rack):
        seen = chart(rack)
        wait_for(lambda: chart(rack) != seen, "a sweep that goes on")
        rack.click(SCANNER, RUN)
    close_window(rack)


@case(languages=(SPANISH,), units=SLOW)
def closed_while_a_choice_fills(rack, album):
    """Choosing channels asks the unit for all of them: a unit without sweeps takes its time."""
    open_scanner(rack)
    choose(rack, ALL)
    close_window(rack)


@case(languages=(SPANISH,), units=QUICK)
def closed_after_a_run(rack, album):
    (rack.folder / "scan.dat").write_bytes(ONE_LEVEL)
    open_scanner(rack)
    begin_run(rack)
    wait_levels(rack, 103)
    close_window(rack)
    assert len(levels(rack)) == 103


@case(languages=(SPANISH,), units=({"version": "2.0", "super_fails_after": "50"},))
def a_unit_that_fails(rack, album):
    """The run ends as if stopped: nothing is stored, and the rack is enabled."""
    before = (rack.folder / "scan.dat").read_bytes()
    open_scanner(rack)
    begin_run(rack)
    rack.steady_look(SCANNER, "ChartView")
    close_window(rack)
    assert (rack.folder / "scan.dat").read_bytes() == before, "a broken run was stored"


if __name__ == "__main__":
    main()
