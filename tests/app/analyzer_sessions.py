#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sessions of the analyzer as after an evening of measuring, made by the probe with a rack's own
unit, and a reader of sessions. Shares no code with the program.

    analyzer_sessions.py RACK SWEEPS NAME    writes RACK/Logs/NAME.3Ds and NAME.spc
"""
import collections
import pathlib
import struct
import subprocess
import sys

COLUMNS, ROWS = 801, 71
FIRST_LEVEL = 30


def measured(rack, sweeps):
    """The levels of so many whole sweeps of the rack's unit, in whole dB."""
    probe = subprocess.Popen(
        [str(rack / "hm16-probe"), str(rack), "sweep", "--from", "88", "--to", "108", "--step", "25",
         "--rounds", str(sweeps), "--seconds", "3600", "--every", "0.004"], stdout=subprocess.PIPE, text=True, cwd=rack)
    probe.stdout.readline()
    row, rows = [], 0
    for line in probe.stdout:
        row.append(int(float(line.rsplit(",", 1)[1]) // 1))
        if len(row) == COLUMNS:
            yield row
            row, rows = [], rows + 1
    if probe.wait() != 0 or row or rows != sweeps:
        raise RuntimeError(f"the probe measured {rows} of {sweeps} sweeps")


def session(sweeps, counted, comment):
    page = comment.encode("cp1252")
    head = struct.pack("<BHH", 1, 0, len(page)) + page
    head += struct.pack("<dffiddf", 46347.770833333336, 88, 108, sweeps, -34.608333, -58.3725, 25)
    cells = [float(counted.get((x, r), 0)) for r in range(ROWS) for x in range(COLUMNS)]
    return head + bytes(256) + struct.pack(f"<{COLUMNS * ROWS}d", *cells)


def sweep_text(levels):
    return f"800\r\n 25\r\n87.975\r\n{''.join(f'{level}{chr(13)}{chr(10)}' for level in levels)}\r\n"


def write(rack, sweeps, name, comment="North array at half power"):
    counted = collections.Counter()
    last = []
    if sweeps:
        for row in measured(rack, sweeps):
            last = [min(max(level, FIRST_LEVEL), FIRST_LEVEL + ROWS - 1) for level in row]
            counted.update((x, level - FIRST_LEVEL) for x, level in enumerate(last))
    logs = rack / "Logs"
    logs.mkdir(exist_ok=True)
    (logs / f"{name}.3Ds").write_bytes(session(sweeps, counted, comment))
    if last:
        (logs / f"{name}.spc").write_bytes(sweep_text(last).encode())


def acquisitions(file):
    """The count of sweeps in a session file; None while it is not whole."""
    try:
        data = file.read_bytes()
    except FileNotFoundError:
        return None
    if len(data) < 7:
        return None
    unused = struct.unpack_from("<H", data, 1)[0]
    comment = struct.unpack_from("<H", data, 3 + unused)[0]
    at = 5 + unused + comment
    whole = at + 40 + 256 + COLUMNS * ROWS * 8
    return struct.unpack_from("<i", data, at + 16)[0] if len(data) == whole else None


if __name__ == "__main__":
    write(pathlib.Path(sys.argv[1]), int(sys.argv[2]), sys.argv[3])
