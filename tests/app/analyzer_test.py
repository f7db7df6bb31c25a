#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The spectrum analyzer on a unit that sweeps and on one that measures point by point: its key, its
views, a scan that fills a session, the editor, deleting, and closing in the middle. Results are read
from the bytes of the session and the pixels of the window."""

import sys

sys.dont_write_bytecode = True
import analyzer_sessions
from cases import SPANISH, case, main
from screen import wait_for

ANALYZER, EDITOR = "frmSpectrumAnalizer", "frmEditMeasurement"
QUICK = ({"version": "1.8", "pace": "100"}, {"version": "1.5", "pace": "100"})
SWEEPING = ({"version": "1.8", "pace": "100"},)


def count_of(rack, name="Sin Nombre"):
    return analyzer_sessions.acquisitions(rack.folder / "Logs" / f"{name}.3Ds")


def open_analyzer(rack):
    rack.click("Form_D", "Image6")
    rack.screen.activate(rack.wait_open(ANALYZER))


def view(rack):
    return rack.look(ANALYZER, "Panel3D1")


def close_window(rack):
    rack.screen.close_window(rack.wait_open(ANALYZER))
    rack.wait_closed(ANALYZER)
    rack.wait_back()


@case(units=QUICK)
def scan_and_both_views(rack, album):
    """A scan draws, both views differ, and the rack measures again after the close."""
    open_analyzer(rack)
    rack.steady_look(ANALYZER, "Panel3D1")
    made_up = view(rack)
    rack.click(ANALYZER, "butStart_BW")
    wait_for(lambda: view(rack) != made_up, "bars of a scan")
    if b"version = 1.8" in (rack.folder / "hm-16.ini").read_bytes():
        wait_for(lambda: (count_of(rack) or 0) >= 5, "five sweeps in the session")
        rack.click(ANALYZER, "butSpecMode")
        album.take(rack.screen, "analyzer_map_running")
    else:
        wait_for(lambda: (rack.folder / "Logs" / "Sin Nombre.spc").exists(), "a whole round")
    album.take(rack.screen, "analyzer_running")
    rack.click(ANALYZER, "butPause_BW")
    rack.steady_look(ANALYZER, "Panel3D1")
    before = view(rack)
    rack.click(ANALYZER, "butSpecMode")
    wait_for(lambda: view(rack) != before, "the other view")
    close_window(rack)


@case(languages=(SPANISH,), units=QUICK)
def closed_in_a_scan(rack, album):
    open_analyzer(rack)
    made_up = view(rack)
    rack.click(ANALYZER, "butStart_BW")
    wait_for(lambda: view(rack) != made_up, "bars of a scan")
    close_window(rack)


@case(units=SWEEPING)
def edited_and_deleted(rack, album):
    """A session is renamed in the editor and then deleted behind its question."""
    analyzer_sessions.write(rack.folder, 6, "Evening")
    open_analyzer(rack)
    rack.click(ANALYZER, "picEditMeasurement")
    rack.wait_open(EDITOR)
    rack.steady_look(EDITOR, ".")
    album.take(rack.screen, "analyzer_editor")
    rack.screen.type("ctrl+a")
    rack.screen.type_text("Night")
    rack.screen.type("Return")
    rack.wait_closed(EDITOR)
    wait_for(lambda: count_of(rack, "Night") == 6, "the renamed session")
    assert count_of(rack, "Evening") is None, "the old file stayed"
    rack.screen.activate(rack.wait_open(ANALYZER))
    rack.click(ANALYZER, "picDelMeasurement")
    rack.answer_box("the question", lambda: album.take(rack.screen, "analyzer_question"), "ATENCION!")
    wait_for(lambda: count_of(rack, "Night") is None, "the end of the session")
    close_window(rack)


@case(units=SWEEPING, sizes=((1366, 768), (1920, 1080)), grows=False)
def an_evening(rack, album):
    """Sessions of few and of many sweeps, in both views."""
    for sweeps in (0, 1, 4, 500):
        analyzer_sessions.write(rack.folder, sweeps, f"{sweeps:04} sweeps")
    open_analyzer(rack)
    for sweeps in (500, 4, 1, 0):
        rack.steady_look(ANALYZER, "Panel3D1")
        album.take(rack.screen, f"analyzer_{sweeps}")
        rack.click(ANALYZER, "butSpecMode")
        rack.steady_look(ANALYZER, "Panel3D1")
        album.take(rack.screen, f"analyzer_{sweeps}_other")
        rack.click(ANALYZER, "butSpecMode")
        rack.steady_look(ANALYZER, "Panel3D1")
        rack.open_list(ANALYZER, "cboCurrentMeasurementFile")
        rack.screen.type("Up", "Return")
    close_window(rack)


if __name__ == "__main__":
    main()
