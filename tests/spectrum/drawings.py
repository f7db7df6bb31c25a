#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A second calculation of what the graph draws, one line a mark, for the tests to compare with.

Shares no code with the program. Writes one text for each drawing into drawings/.
"""
import pathlib

GRID, RED = 0x808080, 0x0000FF


def rounded(x):
    """Nearest whole number, halves to even."""
    return int(round(x))


def number(x):
    text = f"{x:.2f}"
    return "0.00" if text == "-0.00" else text


class Paper:
    def __init__(self, width, height, frame=0):
        self.w, self.h, self.frame = width, height, frame
        self.marks = []

    @property
    def inner(self):
        return self.w - 2 * self.frame, self.h - 2 * self.frame

    def box(self, colour, *ends):
        self.marks.append(f"box {colour:06x} " + " ".join(map(number, ends)))

    def line(self, colour, *ends):
        self.marks.append(f"line {colour:06x} w1 " + " ".join(map(number, ends)))

    def text(self, colour, x, y, text, bold=False):
        weight = "bold" if bold else "thin"
        self.marks.append(f"text {colour:06x} {weight} {number(x)} {number(y)} |{text}|")


def geometry(paper, g):
    w, h = paper.inner
    return (rounded((w - g["gap"] - g["left"]) / g["columns"]),
            rounded((h - g["top"] - g["foot"]) / g["rows"]))


def grid(paper, g, px, py):
    kind, left, top = g["kind"], g["left"], g["top"]
    if kind == 0:
        return
    c = 17 if kind == 3 else 1
    right = paper.inner[0] if kind == 3 else paper.w
    for i in range((10 if kind == 1 else 14) + 1):
        y = top + 5 * i * py
        if i % 2:
            paper.line(GRID, left - 50 / c, y, right, y)
        else:
            paper.box(GRID, left - 50 / c, y + 6 / c, right, y - 8 / c)
    step = max(1, rounded(0.1 / (20 / g["columns"])))
    if kind == 2:
        y = py * g["rows"] + top - 10
        for i in range(0, g["columns"] + 1, step):
            x = 300 + i * px
            if i % 20:
                paper.line(GRID, x, y, x, y + 60)
            else:
                paper.box(GRID, x, y, x + 14, y + 70)
    if kind == 3:
        y = py * g["rows"] + top
        for i in range(0, g["columns"] + 1, step):
            x = 23 + i * px
            if i % 20:
                paper.line(GRID, x, y, x, y + 4)
            else:
                paper.box(GRID, x, y, x, y + 5)


def labels(paper, g, px, py):
    kind, ink = g["kind"], g["ink"]
    if kind == 0:
        return
    w, h = (paper.inner if kind == 3 else (paper.w, paper.h))
    # Levels.
    for i in range(7 if kind == 1 else 9):
        last = i == (6 if kind == 1 else 8)
        y = g["top"] + 10 * i * py
        if kind == 3:
            y -= 100 / 17 if last else 7
        else:
            y -= 100 if last else 90
        if kind == 1:
            paper.text(ink, 10, y, "  0" if i == 0 else "-" + str(10 * i))
        else:
            paper.text(ink, 0, y, (str(100 - 10 * i) + " ")[-3:])
    # Vertical lines.
    if kind == 3:
        y1, y2, x2 = g["top"] - 3, h - g["foot"] + 12, w - 5
    else:
        y1, y2, x2 = g["top"], h - g["foot"], w - 10
    paper.line(ink, g["left"], y1, g["left"], y2)
    paper.line(ink, x2, y1, x2, y2)
    # Units.
    if kind == 1:
        paper.text(ink, 8800, h - 180, "Khz", bold=True)
        paper.text(ink, 40, 60, "dB", bold=True)
    elif kind == 2:
        paper.text(ink, 8800, h - 180, "MHz", bold=True)
        paper.text(ink, 40, 80, "dB/uV", bold=True)
    else:
        paper.text(ink, 8800 / 17, h - 15, "MHz", bold=True)
        paper.text(ink, 40 / 17, 80 / 17, "dB/uV", bold=True)
    # Frequencies.
    foot = py * g["rows"] + g["top"]
    if kind == 1:
        centre = g["columns"] // 2
        said = True
        for i in range(g["columns"]):
            x, y = 350 + i * px, foot + 40
            if i == centre:
                paper.text(RED, x, y, "  F0")
            elif said or not g["skip"]:
                offset = (i - centre) * g["step"]
                paper.text(ink, x, y, f" {offset}" if offset < 0 else f"  {offset}")
                said = False
            else:
                said = True
    else:
        per = 20 / g["columns"]
        for i in range(0, g["columns"] + 1, max(1, rounded(0.5 / per))):
            x = (100 if kind == 2 else 12) + i * px
            paper.text(ink, x, foot + (70 if kind == 2 else 6), f"{88 + per * i:.1f} ")


def bar(paper, g, px, py, x, y):
    y = min(abs(y), g["rows"])
    colour = RED if g["kind"] == 1 and g["columns"] // 2 == x - 1 else g["trace"]
    paper.box(colour, (x - 1) * px + g["gap"] + g["left"], py * y + g["top"],
              px * x + g["left"], paper.h - g["foot"])


def drawing(paper, g, bars):
    px, py = geometry(paper, g)
    paper.box(g["back"], 0, 0, paper.w, paper.h)
    grid(paper, g, px, py)
    labels(paper, g, px, py)
    for x, y in bars:
        bar(paper, g, px, py, x, y)
    return paper.marks


def channel(columns, step):
    return dict(kind=1, columns=columns, rows=50, back=0xFFFFFF, trace=49152, ink=0, gap=200,
                left=300, top=400, foot=490, skip=columns > 25, step=step)


BARE = dict(kind=0, columns=8, rows=50, back=0, trace=16754077, ink=0, gap=50, left=0, top=0,
            foot=0, skip=False, step=0)
BAND = dict(kind=2, columns=800, rows=70, back=0, trace=49152, ink=16777215, gap=10, left=300,
            top=400, foot=640, skip=True, step=25)
SMALL = dict(BAND, kind=3, gap=1, left=18, top=24, foot=38)

DRAWINGS = {
    "bare_8": drawing(Paper(2400, 900), BARE, [(i, 5 * i) for i in range(1, 9)]),
    "offset_17": drawing(Paper(9600, 6300), channel(17, 25),
                         [(i, -3 * abs(9 - i) * abs(9 - i)) for i in range(1, 18)]),
    "offset_33": drawing(Paper(9600, 6300), channel(33, 50), [(17, 0)]),
    "offset_41": drawing(Paper(9600, 6300, 30), channel(41, 25), [(1, 60), (21, 0), (41, -60)]),
    "band_800": drawing(Paper(9600, 4000), BAND, [(1, 70), (400, 35), (800, 1)]),
    "band_33": drawing(Paper(9600, 4000), dict(BAND, columns=33), [(33, 10)]),
    "small_800": drawing(Paper(840, 240, 2), SMALL, [(1, 70), (400, 35), (800, 1)]),
}

if __name__ == "__main__":
    folder = pathlib.Path(__file__).parent / "drawings"
    folder.mkdir(exist_ok=True)
    for name, marks in DRAWINGS.items():
        (folder / f"{name}.txt").write_text("".join(m + "\n" for m in marks))
