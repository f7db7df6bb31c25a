#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A second calculation of the bandwidth curve, in exact fractions. Shares no code with the program.

bandwidth_curves.txt: for each set of six peaks a line "peaks ...", then the percents at 1 to 150
kHz of the curve through them.
"""
import pathlib
from fractions import Fraction as F

SETS = [
    (0, 0, 0, 0, 0, 0),
    (100, 100, 100, 100, 100, 100),
    (90, 80, 70, 63, 56, 50),
    (100, 90, 45, 20, 10, 4),
    (80, 80, 40, 20, 20, 80),
    (4, 7, 10, 14, 16, 18),
    (0, 100, 0, 100, 0, 100),
    (63, 63, 63, 0, 0, 0),
    (100, 0, 0, 0, 0, 0),
    (10, 11, 13, 14, 13, 11),
    (50, 45, 45, 45, 45, 7),
    (25, 22, 25, 22, 25, 22),
    (100, 100, 99, 97, 90, 0),
]

# first kHz, last kHz, first segment, kHz at which the blend starts (None: it is over)
ROWS = [
    (16, 35, 0, 15), (36, 40, 0, None), (41, 60, 1, 40), (61, 65, 1, None), (66, 85, 2, 65),
    (86, 90, 2, None), (91, 110, 3, 90), (111, 115, 3, None), (116, 135, 4, 115),
    (136, 140, 4, None), (141, 150, 5, 140),
]


def curve(peaks):
    t = F(0)
    p = [F(100)] + [F(x) for x in peaks] + [F(0)]
    slope = [(p[k + 1] - p[k]) / 25 for k in range(7)]
    offset = [p[k] - 25 * k * slope[k] for k in range(7)]
    offset[0] = F(100)
    out = []
    for x in range(1, 151):
        a = 0
        for first, last, segment, start in ROWS:
            if first <= x <= last:
                a = segment
                t = F(1) if start is None else (x - start) * F(5, 100)
        s = 1 if slope[a] < 0 else -1
        if abs(slope[a]) < F(1, 10) and abs(slope[a + 1]) < F(1, 10):
            s = 0
        y = ((1 - t) * s * 15 * t + t * offset[a + 1] + (1 - t) * offset[a]
             + (slope[a + 1] * t + (1 - t) * slope[a]) * x)
        out.append(y)
    return out


if __name__ == "__main__":
    lines = []
    for peaks in SETS:
        lines.append("peaks " + " ".join(map(str, peaks)))
        lines.append(" ".join(f"{float(y):.6f}" for y in curve(peaks)))
    pathlib.Path(__file__).with_suffix(".txt").write_text("".join(x + "\n" for x in lines))
