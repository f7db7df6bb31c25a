# SPDX-License-Identifier: GPL-3.0-or-later
"""Works out digits_table.txt, which figures_table_test.cpp reads: what the digits of the quality
panel show for every reading in their range.

    python3 tests/panels/quality/digits_table.py > tests/panels/quality/digits_table.txt

A second calculation: floats are rounded to 32 bits by struct, texts come from Python's own
formatting, and digits are divided out of whole numbers. Columns, divided by tabs: kind, the
reading's 32 bits, then for "error" the sign and the three places, for the others the three
places; "." is a dark place.
"""
import struct


def single(value):
    return struct.unpack("<f", struct.pack("<f", value))[0]


def bits(value):
    return "%08x" % struct.unpack("<I", struct.pack("<f", value))[0]


def cut_to_whole(text):
    return int(text.split(".")[0])


def places(whole, unused):
    """Three places of a whole number; unused ones in front show `unused`."""
    shown = [whole // 100 % 10, whole // 10 % 10, whole % 10]
    digits = [str(digit) for digit in shown]
    if whole < 100:
        digits[0] = unused
    if whole < 10:
        digits[1] = unused
    return "".join(digits)


def error_row(tenths):
    reading = single(tenths / 10)
    product = min(single(reading * 10), 999.0)
    sign = "-" if product < 0 else "+"
    whole = cut_to_whole("%.7g" % abs(product))
    return ("error", bits(reading), sign, places(whole, "."))


def pilot_row(tenths):
    reading = single(tenths / 10)
    return ("pilot", bits(reading), places(abs(int(single(reading * 10))), "."))


def distortion_row(hundredths):
    reading = single(hundredths / 100)
    figure = float("%.7g" % reading) * 100
    return ("distortion", bits(reading), places(cut_to_whole("%.15g" % figure), "0"))


def main():
    rows = [error_row(tenths) for tenths in range(-999, 1000)]
    rows += [pilot_row(tenths) for tenths in range(0, 1000)]
    rows += [distortion_row(hundredths) for hundredths in range(0, 1000)]
    for row in rows:
        print("\t".join(row))


main()
