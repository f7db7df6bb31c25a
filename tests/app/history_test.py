#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The history that the program records: a run that is killed, the next one that ends in order, and
every second as the unit gave it."""

import csv
import pathlib
import shutil
import signal
import sqlite3
import subprocess
import sys
import time

sys.dont_write_bytecode = True
from cases import ENGLISH, case, main
from screen import wait_for

STATION = 98500  # kHz, the first memory
LOST = 5  # seconds that a killed program may lose at most
START, STOP, TUNED, HELD = 1, 2, 3, 14
TREE = pathlib.Path(__file__).resolve().parents[2]


def days(rack):
    return sorted((rack.folder / "history").glob("*.hm16day"))


def rows(rack):
    """The seconds of the station as the reader prints them, oldest first."""
    told = []
    for day in days(rack):
        text = subprocess.run(["/usr/bin/python3", str(TREE / "scripts/history_day.py"),
                               "--station", str(STATION), str(day)],
                              check=True, capture_output=True, encoding="utf-8",
                              env={"PYTHONIOENCODING": "utf-8"}).stdout
        told += csv.DictReader(text.splitlines())
    return sorted(told, key=lambda row: int(row["t"]))


def events(rack):
    told = []
    for day in days(rack):
        file = sqlite3.connect(f"file:{day}?mode=ro", uri=True)
        told += file.execute("SELECT kind FROM event ORDER BY rowid").fetchall()
        file.close()
    return [kind for kind, in told]


def are_there(rack, seconds):
    try:
        return len(rows(rack)) >= seconds
    except subprocess.CalledProcessError:
        return False  # the file is being made


def run_until(rack, seconds, ending):
    """Runs the program and ends it by a signal when so many seconds are on the disk. Returns the
    time."""
    rack.start()
    wait_for(lambda: are_there(rack, seconds), f"{seconds} recorded seconds")
    rack.program.send_signal(ending)
    rack.program.wait()
    return time.time()


@case(languages=(ENGLISH,), started=False)
def kept_through_a_kill(rack, album):
    killed = run_until(rack, 6, signal.SIGKILL)
    first = rows(rack)
    assert (rack.folder / "history").stat().st_mode & 0o7777 == 0o700
    assert int(first[-1]["t"]) >= killed - 1 - LOST, "more is lost than the last seconds"
    assert START in events(rack) and TUNED in events(rack) and STOP not in events(rack)
    known = [row for row in first if row["field (dBµV)"]]
    assert len(known) >= 4, f"{len(known)} seconds are known"
    for row in known:  # a strong station
        assert abs(float(row["field (dBµV)"]) - 88) < 2, row["field (dBµV)"]
        assert 30 < float(row["deviation_peak (kHz)"]) < 90, row["deviation_peak (kHz)"]

    # Its figures follow from the time.
    shutil.copy(rack.build / "tests/app/noting/hm-16.so", rack.folder / "hm-16.so")
    rack.environment["NOTING_SLOTS"] = "1"
    ended = run_until(rack, len(first) + 6, signal.SIGTERM)
    assert rack.program.returncode == 0
    assert rows(rack)[:len(first)] == first, "what stood there was changed"
    second = rows(rack)[len(first):]
    assert int(second[-1]["t"]) >= ended - 3, "the last seconds of an orderly end are missing"
    assert events(rack)[-1] == STOP, "the stop is told"
    assert not list((rack.folder / "history").glob("*.damaged"))
    for row, after in zip(second, second[1:]):
        assert int(after["t"]) == int(row["t"]) + 1, "a second is missing"
    expect_as_given(second)


def stand_still(rack, seconds):
    """Stops the program for a while, and not the process of its unit. Answers from when to when."""
    begin = time.time()
    rack.program.send_signal(signal.SIGSTOP)
    time.sleep(seconds)  # it is the length of the stop that counts
    rack.program.send_signal(signal.SIGCONT)
    end = time.time()
    wait_for(lambda: are_known(rack, end + 2), "measuring to go on")
    return begin, end


def are_known(rack, until):
    try:
        return any(int(row["t"]) >= until and row["field (dBµV)"] for row in rows(rack))
    except subprocess.CalledProcessError:
        return False


def inside(stop, told):
    """The rows of whole seconds of a stop, but for the half second for which a reading holds."""
    begin, end = stop
    return [row for row in told if int(row["t"]) > begin + 0.5 and int(row["t"]) + 1 < end]


@case(languages=(ENGLISH,), started=False)
def what_it_stood_still_for_is_told_and_not_made_up(rack, album):
    # A unit without slots: nobody but the program knows its readings.
    shutil.copy(rack.build / "tests/app/noting/hm-16.so", rack.folder / "hm-16.so")
    rack.start()
    wait_for(lambda: are_there(rack, 4), "the first seconds")
    short = stand_still(rack, 4)
    long = stand_still(rack, 12)
    rack.program.send_signal(signal.SIGTERM)
    rack.program.wait()
    told = rows(rack)
    slow = inside(short, told)
    assert len(slow) >= 2, "a short stop has its seconds"
    for row in slow:
        assert row["field state"] == "too slow" and not row["field (dBµV)"], row["t"]
    assert not inside(long, told), "nobody recorded in a long one"
    assert HELD in events(rack), "and an event says so"


def expect_as_given(seconds):
    """Each second has the twenty slots that ended in it, and its cause where they had one."""
    whole = [row for row in seconds if row["pilot_level known_ms"] == "1000"]
    assert len(whole) >= 5, f"{len(whole)} seconds are whole"
    for row in whole:
        slots = range(int(row["t"]) * 20, int(row["t"]) * 20 + 20)
        peak = max(10 + n * 7 % 601 / 10 for n in slots)
        mean = sum(5 + n % 40 / 10 for n in slots) / 20
        assert abs(float(row["deviation_peak (kHz)"]) - peak) < 0.0051, (row["t"], peak)
        assert abs(float(row["pilot_level (%)"]) - mean) < 0.0051, (row["t"], mean)
        if int(row["t"]) % 10 == 0:
            assert row["field state"] == "multipath" and not row["field (dBµV)"], row["t"]
        else:
            assert abs(float(row["field (dBµV)"]) - 60) < 0.051, row["t"]
        assert row["distortion state"] == "not measured", "the unit does not have it"


if __name__ == "__main__":
    main()
