#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes typed_frequencies.txt: what both dialogs make of typed texts, worked out a second time.

Run it in this folder after changing it; the table is kept beside it so that the tests need no
Python. It shares nothing with the program: regular expressions and exact fractions, no binary
numbers. Columns are separated by tabs:

  typed     in UTF-8, each byte outside 21 to 7E and each % as %XX
  record    what memory 5 keeps, or "wrong"
  shown     what the memory editor shows of it again, or "-"
  tuned     frequency of the rack then, 100 kHz units, or "-"
  keypad    frequency of the rack after the keypad's enter, from 108.1 MHz; "-" if nothing happens
  memfreq   frequency that the keypad hands on, without the half step, or "-"
"""
import math
import random
import re
from decimal import Decimal
from fractions import Fraction

NUMBER = re.compile(rb" *([+-]?)([0-9]*)(?:\.([0-9]*))?")


def number(text):
    sign, whole, part = NUMBER.match(text).groups()
    digits = (whole or b"") + (part or b"")
    if not digits:
        return Fraction(0)
    value = Fraction(int(digits), 10 ** len(part or b""))
    return -value if sign == b"-" else value


def written(value):
    """Decimal text of at most 15 significant digits."""
    with_digits = Decimal(value.numerator) / Decimal(value.denominator)
    text = format(Decimal(f"{with_digits:.14E}").normalize(), "f")
    return text.encode()


def characters(typed):
    return typed.encode("cp1252", errors="replace")


def without_point(text):
    four = re.fullmatch(rb".{3}5", text, re.S) and number(text) > 8700
    five = re.fullmatch(rb".{4}5", text, re.S)
    return (text[:-1], True) if four or five else (text, False)


def with_point(text):
    behind = text.split(b".", 1)[1]
    return (text[:-1], True) if re.match(rb".5", behind, re.S) else (text, False)


def record(typed):
    text = characters(typed)
    text, half = with_point(text) if b"." in text else without_point(text)
    x = number(text) * 10
    if x < 875:
        return None
    if x > 8740:
        x /= 10
    if x > 1080:
        return None
    kept = written(x) + (b"5" if half else b"")
    return kept[:5]


def stored(field):
    value = number(field)
    return (Fraction(math.floor(value / 10)), True) if value >= 8755 else (value, False)


def shown(field):
    frequency, half = stored(field)
    digits = written(frequency).decode()
    cut = 2 if frequency < 1000 else 3
    return digits[:cut] + "." + digits[cut : cut + 1] + ("5" if half else "")


def on_rack(frequency, half):
    """The tuning bar takes whole steps only; halves are rounded to the even one."""
    bar = min(max(round(frequency - 875), 0), 206)
    return written(875 + bar + (Fraction(1, 2) if half else 0)).decode()


def keypad(typed):
    text, half = without_point(characters(typed))
    value = number(text)
    return (value, half) if 875 <= value <= 1080 else None


def row(typed):
    kept = record(typed)
    asked = keypad(typed)
    coded = "".join(
        chr(b) if 0x21 <= b <= 0x7E and b != 0x25 else f"%{b:02X}" for b in typed.encode()
    )
    editor = (
        ["wrong", "-", "-"] if kept is None else [kept.decode(), shown(kept), on_rack(*stored(kept))]
    )
    pad = ["-", "-"] if asked is None else [on_rack(*asked), written(asked[0]).decode()]
    return "\t".join([coded] + editor + pad)


EDGES = """
87.4 87.40 87.45 87.49 87.5 87.50 87.55 87.555 87.550 87.6 87.65 88 88. 88.0 88.05 90 95.95 99.95
99.9 100 100. 100.0 100.05 100.1 100.15 102.5 102.55 102.6 107.5 107.55 107.9 107.95 107.99 108
108. 108.0 108.00 108.04 108.05 108.06 108.1 108.15 108.9 109 110 200 500 800 870 873.9 874 874.0
874.01 874.05 874.1 874.5 874.55 875 875.0 875.05 875.5 876 900 981 981.5 981.55 982.5 999 999.5
1000 1000.5 1005 1024 1025 1025.5 1030 1034 1035 1074.9 1075 1079.9 1080 1080.0 1080.1 1081 1085
1100 1500 2000 5000 8000 8699 8700 8701 8705 8710 8715 8735 8739 8740 8741 8745 8749 8750 8755 8760
8765 8805 9000 9005 9805 9810 9811 9815 9825 9995 9999 10000 10005 10050 10055 10245 10250 10255
10705 10755 10795 10800 10801 10805 10810 10815 10855 10995 11005 20005 87505 87555 98105 98155
98.10 98.11 98.12 98.14 98.16 98.19 98.100 98.150 98.151 98.155 98.1555 98.15555 98.25 98.35 98.5
98.50 98.51 98.55 98.95 98.05 98.0 98.00 98.01 98.005 98.0005 097.5 0981 00981 009815 098.15
""".split()

ODD = [
    "", " ", "     ", ".", "..", ".5", "..5", "-", "+", "+.", "5", "05", "0", "00000", "00005", "98.", "98..5", "98.1.5",
    "98.15.5", "98.1.", "+98.1", "+98.15", "-98.1", "-9815", "--98.1", "+-98.1", "+981", "+9815",
    "+8755", " 98.1", "  98.15", " 981", " 9815", "98.1 ", "98.15 ", "981 ", "9815 ", "9 815",
    "9 8.1", "\t98.1", "98.1\t", "98,1", "98,15", "98,05", "100,5", "102,55", "1e2", "1E2", "1e3",
    "9.81e1", "98.1e0", "981e0", "9e15", "0x62", "&H62", "98.1 MHz", "98.15MHz", "981MHz", "MHz",
    "nan", "inf", "infinity", "si", "cero", "99999999999999999999", "0.0000000001",
    "98.10000000", "98.150000000", "108.000000001", "87.49999999", "\u00e98.1", "98\u00e91",
    "98.\u00e95", "98.1\u00e9", "98.15\u00e9", "981\u00e95", "8\u00e905", "88\u20ac5", "\u4e5d15",
    "981\u4e5d5", "\uff19\uff18.1", "\u0669\u0668", "98.1\n", "98\u00b75", "'98.1'", '"981"',
    "98.1;", "98/1", "1,025", "1.025", "10.25", "1.0255", "%d", "%s98.1", "98.1%",
]


def texts():
    chance = random.Random(98150)
    yield from EDGES
    yield from ODD
    for _ in range(40):
        tenths = chance.randrange(875, 1081)
        yield f"{tenths // 10}.{tenths % 10}"
        yield f"{tenths // 10}.{tenths % 10}5"
        yield f"{tenths}"
        yield f"{tenths}5"
    for _ in range(120):
        length = chance.randrange(1, 8)
        yield "".join(chance.choice("0123456789985501..-+ ,e") for _ in range(length))


def main():
    with open("typed_frequencies.txt", "w", encoding="ascii", newline="\n") as table:
        for typed in dict.fromkeys(texts()):
            table.write(row(typed) + "\n")


main()
