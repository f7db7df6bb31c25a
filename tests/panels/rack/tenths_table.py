# SPDX-License-Identifier: GPL-3.0-or-later
"""Works out tenths_table.txt, which tenths_table_test.cpp reads: what labels and digits of the rack
show for every tenth from -99.9 to 99.9, and for every hundredth of the distortion.

    python3 tests/panels/rack/tenths_table.py > tests/panels/rack/tenths_table.txt

A second calculation: a reading is taken as its exact decimal value, cut to seven figures and then
rounded as a person does, half up by size; digits are divided out of whole numbers. Columns, divided
by tabs, of a "tenth": the reading's 32 bits, a label with one decimal, the same with its plus, the
digits of the pilot error with their sign, of the pilot level, of one noise and of one separation
channel. Of a "hundredth": bits, a label with two decimals, the three digits. "." is a dark place.
"""
import math
import struct
from decimal import ROUND_DOWN, ROUND_HALF_EVEN, ROUND_HALF_UP, Context, Decimal

SEVEN = Context(prec=7, rounding=ROUND_HALF_EVEN)


def single(value):
    return struct.unpack("<f", struct.pack("<f", value))[0]


def bits(value):
    return struct.pack(">f", value).hex()


def seven(value):
    return SEVEN.create_decimal(Decimal(value))


def label(reading, step):
    rounded = seven(reading).quantize(Decimal(step), rounding=ROUND_HALF_UP)
    return str(abs(rounded) if rounded == 0 else rounded)


def cut(decimal):
    return int(decimal.quantize(Decimal(1), rounding=ROUND_DOWN))


def two(whole):
    return "%d%d" % divmod(whole, 10)


def three(whole, unused):
    text = "%d" % whole
    return unused * (3 - len(text)) + text


def error_digits(reading):
    product = min(single(reading * 10), 999.0)
    return ("-" if product < 0 else "+") + three(cut(abs(seven(product))), ".")


def pilot_digits(reading):
    return three(abs(math.trunc(single(reading * 10))), ".")


def tenth_row(number):
    reading = single(number / 10)
    plain = label(reading, "0.1")
    signed = "+" + plain if reading > 0 else plain
    noise = min(99, int(abs(reading)))
    separation = max(0, min(99, math.floor(reading)))
    return ("tenth", bits(reading), plain, signed, error_digits(reading), pilot_digits(reading),
            two(noise), two(separation))


def hundredth_row(number):
    reading = single(number / 100)
    return ("hundredth", bits(reading), label(reading, "0.01"), three(cut(seven(reading) * 100), "0"))


for row in [tenth_row(n) for n in range(-999, 1000)] + [hundredth_row(n) for n in range(1000)]:
    print("\t".join(row))
