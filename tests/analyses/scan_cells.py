#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Second calculation of the band scanner's channels and cells, in exact fractions.

Walks each loop over the band as a person would with pencil and paper. Each line of the output is
one way of filling the chart: its name, the choice of channels, how many cells it writes, and then
row,column,MHz of each. Run it again with:  scan_cells.py > scan_cells.txt
"""
from fractions import Fraction as F

STEP = {"all": F(1, 10), "even": F(1, 5), "odd": F(1, 5), "quarter": F(1, 4)}
COLUMNS = {"all": 10, "even": 5, "odd": 5, "quarter": 4}
OPTION_START = {"all": F(87), "even": F(87), "odd": F("87.5"), "quarter": F("87.5")}
OPTION_COLUMN = {"all": 0, "even": 0, "odd": 2, "quarter": 2}
BAND_STOP = F(108)


def walk(first, last, step, column, wrap):
    """Cells of the frequencies from first to last, both included."""
    row, cells, mhz = 1, [], first
    while mhz <= last:
        column += 1
        if column == wrap + 1:
            column, row = 1, row + 1
        cells.append((row, column, mhz))
        mhz += step
    return cells


def say(fill, spacing, cells):
    text = " ".join(f"{r},{c},{float(m):.2f}" for r, c, m in cells)
    print(fill, spacing, len(cells), text)


for name in ("odd", "even", "quarter", "all"):
    tenth = F(1, 10)
    say("clear", name, walk(F("87.1"), BAND_STOP, STEP[name], 0, COLUMNS[name]))
    say("run", name, walk(F("87.5"), BAND_STOP, STEP[name], 2, 5))
    begin = F("87.4") if name == "even" else F("87.5")
    limit = F("89.5")
    while True:
        say(f"frame{float(limit):.1f}", name,
            walk(begin, limit - tenth, STEP[name], 2, COLUMNS[name]))
        if limit >= BAND_STOP:
            break
        limit = min(limit + 2, BAND_STOP)
    say("option", name, walk(OPTION_START[name], BAND_STOP - tenth, STEP[name],
                             OPTION_COLUMN[name], COLUMNS[name]))

# The stored scan: lines while a counter from 87.5 by 0.2 is under 108.
stored, mhz, row, column = [], F("87.5"), 1, 2
while mhz < BAND_STOP:
    column += 1
    if column == 6:
        column, row = 1, row + 1
    stored.append((row, column, mhz))
    mhz += F(1, 5)
say("stored", "odd", stored)
