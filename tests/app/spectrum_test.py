#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The channel spectrum and the modulation bandwidth from the rack's keys, on a unit that sweeps and
on one that measures point by point; results are read from the stored spectrum and the pixels."""

import sys

sys.dont_write_bytecode = True
from cases import SPANISH, case, main
from screen import wait_for

ASK, SHOWN, WIDTH = "Form_NewSpectro", "Form_D1", "FormD1a"
NEW, CLOSE = "Command3D1", "Command3D2"
SWEEPING, POINTS = {"version": "1.8"}, {"version": "2.0"}
SLOW = {"version": "1.8", "pace": "0.1"}

# Half span and step in kHz, points, MHz before the first, tuned to 98.5 MHz.
SPANS = ((200, 25, 17, 98.275), (300, 25, 25, 98.175), (350, 25, 29, 98.125),
         (500, 50, 21, 97.95), (600, 50, 25, 97.85), (800, 50, 33, 97.65),
         (1000, 100, 21, 97.4))


def spectrum_file(rack):
    """The lines of the stored spectrum of the station."""
    try:
        return (rack.folder / "0985.spc").read_text().split("\n")
    except FileNotFoundError:
        return []


def show_spectrum(rack):
    """Opens it by its key on the rack, unless it is still open from the start."""
    if not rack.opened(SHOWN):
        rack.screen.activate(rack.window)
        rack.screen.double_click(*rack.point("Form_D", "PictureGraph1"))
    rack.screen.activate(rack.wait_open(SHOWN))


def ask_for(rack, row):
    """Starts a run by its dialog, with a span chosen by keyboard."""
    show_spectrum(rack)
    rack.click(SHOWN, NEW)
    rack.screen.activate(rack.wait_open(ASK))
    if row:
        rack.open_list(ASK, "Combo1")
        rack.screen.type(*["Down"] * row, "Return")
        wait_for(lambda: not rack.screen.x.popups(), "the end of the list")


@case(units=(SWEEPING, POINTS))
def every_span(rack, album):
    for row, (half, step, points, before) in enumerate(SPANS):
        (rack.folder / "0985.spc").unlink(missing_ok=True)
        ask_for(rack, row)
        if row == 5:
            album.take(rack.screen, "ask")
        rack.type(ASK, "Return")
        wait_for(lambda: len(spectrum_file(rack)) == points + 5, f"the spectrum of {half} kHz")
        told = [line.strip() for line in spectrum_file(rack)]
        assert told[:2] == [str(points), str(step)], f"{half} kHz: {told[:2]}"
        assert abs(float(told[2]) - before) < 1e-9, f"{half} kHz begins at {told[2]}"
        levels = [int(level) for level in told[3:3 + points]]
        assert levels[points // 2] == 0, f"{half} kHz: the carrier stands {levels[points // 2]}"
        assert max(levels) > 20, f"{half} kHz: no level lies far under the carrier"
        rack.wait_closed(ASK)
    album.take(rack.screen, "spectrum")
    rack.type(SHOWN, "Escape")
    rack.wait_closed(SHOWN)
    rack.wait_back()
    thumbnail = rack.look("Form_D", "PictureGraph1")
    blue = sum(1 for at in range(0, len(thumbnail), 4) if thumbnail[at] > 200)
    assert blue > 100, "the rack's small graph does not show the spectrum"


@case(units=(SLOW,))
def a_run_is_alive(rack, album):
    """Bars come one by one; neither key nor window manager closes the window meanwhile."""
    ask_for(rack, 5)
    rack.type(ASK, "Return")
    window = rack.wait_open(SHOWN)
    box = rack.box(SHOWN, "Picture1")
    rack.screen.type("Escape")
    rack.screen.close_window(window)
    bars = set()

    def ended():
        bars.add(rack.screen.pixels.area(*box))
        return len(spectrum_file(rack)) == 33 + 5

    wait_for(ended, "the stored spectrum")
    assert len(bars) > 3, f"the bars came in {len(bars)} steps"
    if not rack.opened(SHOWN):  # closed by a key that came after the end
        rack.wait_back()
        return
    rack.type(SHOWN, "Escape")
    rack.wait_closed(SHOWN)
    rack.wait_back()


@case(units=(SWEEPING, POINTS))
def bandwidth(rack, album):
    """From the rack's key: the test pattern, a run that counts and draws, its stop, and back."""
    rack.click("Form_D", "Image1")
    rack.screen.activate(rack.wait_open(WIDTH))
    empty = rack.steady_look(WIDTH, "Picture1")
    rack.click(WIDTH, "Command1")
    wait_for(lambda: rack.look(WIDTH, "Picture1") != empty, "the test pattern")
    album.take(rack.screen, "pattern")
    rack.click(WIDTH, NEW)
    for _ in range(4):
        seen = rack.look(WIDTH, "Picture1")
        wait_for(lambda: rack.look(WIDTH, "Picture1") != seen, "samples that count up")
    # The key back waits for the end of a run.
    rack.type(WIDTH, "Escape")
    seen = rack.look(WIDTH, "Picture1")
    wait_for(lambda: rack.look(WIDTH, "Picture1") != seen, "samples behind the key back")
    rack.click(WIDTH, NEW)
    rack.steady_look(WIDTH, "Picture1")
    album.take(rack.screen, "stopped")
    rack.click(WIDTH, CLOSE)
    rack.wait_closed(WIDTH)
    rack.wait_back()
    # Closing the window ends the run.
    rack.click("Form_D", "Image1")
    rack.screen.activate(rack.wait_open(WIDTH))
    empty = rack.steady_look(WIDTH, "Picture1")
    rack.click(WIDTH, NEW)
    wait_for(lambda: rack.look(WIDTH, "Picture1") != empty, "samples of a second run")
    rack.screen.close_window(rack.wait_open(WIDTH))
    rack.wait_closed(WIDTH)
    rack.wait_back()


@case(languages=(SPANISH,), units=(SWEEPING, POINTS))
def bandwidth_from_the_spectrum(rack, album):
    """The bandwidth window replaces the spectrum; a second run starts from the beginning."""
    show_spectrum(rack)
    place = rack.screen.box(rack.wait_open(SHOWN))[:2]
    rack.click(SHOWN, "SSCommand2")
    rack.wait_open(WIDTH)
    rack.wait_closed(SHOWN)

    def in_its_place():
        left, top, _, height = rack.screen.box(rack.wait_open(WIDTH))
        # The taller window moves up just so far that it is fully on the screen, with its frame.
        lowest = min(place[1], rack.screen.height - height)
        return abs(left - place[0]) <= 4 and lowest - 40 <= top <= lowest + 4

    wait_for(in_its_place, "the bandwidth in the same place")
    for _ in range(2):
        rack.click(WIDTH, NEW)
        seen = rack.look(WIDTH, "Picture1")
        wait_for(lambda: rack.look(WIDTH, "Picture1") != seen, "samples that count up")
        rack.click(WIDTH, NEW)
        rack.steady_look(WIDTH, "Picture1")
    rack.type(WIDTH, "Escape")
    rack.wait_closed(WIDTH)
    rack.wait_back()


if __name__ == "__main__":
    main()
