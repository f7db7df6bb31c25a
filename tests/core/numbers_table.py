#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes numbers_table.txt: the number and text rules worked out a second time.

Run it in this folder after changing it; the table is kept beside it so that the tests need no
Python. It shares nothing with the program: exact fractions and the decimal module, no formatting
of binary numbers by the machine. Columns are separated by tabs:

  float32   bits as 8 hex digits    short text
  float64   bits as 16 hex digits   short text
  mask32    bits                    mask   text
  mask64    bits                    mask   text
  value     text                    bits of the double that it begins with
  whole     bits of a double        nearest even   floor   toward zero
"""
import random
import re
import struct
from decimal import Decimal, ROUND_HALF_EVEN, ROUND_HALF_UP, getcontext
from fractions import Fraction

getcontext().prec = 1200
MASKS = ["0.0", "0.00", "00.00", "#00.0", "####0", "#00", "0", "##0"]


def float32(bits):
    return struct.unpack(">f", bits.to_bytes(4, "big"))[0]


def float64(bits):
    return struct.unpack(">d", bits.to_bytes(8, "big"))[0]


def bits32(x):
    return int.from_bytes(struct.pack(">f", x), "big")


def bits64(x):
    return int.from_bytes(struct.pack(">d", x), "big")


def rounded(x, significant):
    exact = Decimal(x)
    if exact == 0:
        return Decimal(0)
    first = exact.adjusted()
    step = Decimal(1).scaleb(first - significant + 1)
    once = exact.quantize(step, rounding=ROUND_HALF_EVEN)
    # The place of the last decimal that is ever shown.
    last = Decimal(1).scaleb(-28)
    if once.adjusted() - significant + 1 < -28:
        once = Decimal(0) if abs(exact) < last else exact.quantize(last, rounding=ROUND_HALF_EVEN)
    return once


def plain(number, value):
    if number == 0:
        return "0"
    sign = "-" if number < 0 else ""
    number = abs(number)
    if abs(value) >= 10 ** 15:
        digits = "".join(str(d) for d in number.as_tuple().digits).rstrip("0")
        tail = "." + digits[1:] if len(digits) > 1 else ""
        return f"{sign}{digits[0]}{tail}E+{number.adjusted()}"
    fraction = Fraction(number)
    whole = fraction.numerator // fraction.denominator
    rest = fraction - whole
    decimals = ""
    while rest:
        rest *= 10
        digit = rest.numerator // rest.denominator
        decimals += str(digit)
        rest -= digit
    return f"{sign}{whole}" + ("." + decimals if decimals else "")


def masked(number, mask, value):
    if abs(value) >= 10 ** 15:
        return plain(number, value)
    wholes, _, decimals = mask.partition(".")
    shown = abs(number).quantize(Decimal(1).scaleb(-len(decimals)), rounding=ROUND_HALF_UP)
    units = int(shown.scaleb(len(decimals)))
    digits = str(units).rjust(len(decimals) + 1, "0")
    left = digits[: len(digits) - len(decimals)].lstrip("0").rjust(wholes.count("0"), "0")
    right = digits[len(digits) - len(decimals):]
    sign = "-" if number < 0 and units else ""
    return sign + left + ("." + right if decimals else "")


def value(text):
    match = re.match(r" *([+-]?)(\d*)(?:\.(\d*))?", text)
    sign, whole, decimals = match.group(1), match.group(2), match.group(3) or ""
    if not whole and not decimals:
        return 0.0
    exact = Fraction(int((whole + decimals) or "0"), 10 ** len(decimals))
    if exact >= Fraction(2) ** 1024 - Fraction(2) ** 970:
        result = float64(0x7FEFFFFFFFFFFFFF)
    else:
        result = exact.numerator / exact.denominator  # correctly rounded by the language
    return -result if sign == "-" and result else result


def saturated(n):
    return max(-(2 ** 31), min(2 ** 31 - 1, n))


def wholes(x):
    exact = Fraction(x)
    floor = exact.numerator // exact.denominator
    rest = exact - floor
    even = floor + (1 if rest > Fraction(1, 2) or (rest == Fraction(1, 2) and floor % 2) else 0)
    toward = floor if exact >= 0 or rest == 0 else floor + 1
    return [saturated(even), saturated(floor), saturated(toward)]


def samples32(rng):
    kept = [0.0, -0.0, 0.5, -0.5, 0.1, 0.2, 0.3, 0.7, 1.5, 9.95, 99.95, 0.05, 0.04, -0.04, -0.05,
            875.0, 1025.5, 1234566.5, 1234567.5, 9999999.5, 99999995.0, 1e15, 9.99999e14, 3.4e38,
            1e-7, 1.5e-10, 1e-27, 1e-28, 9.9e-29, 1e-40, 16777216.0, 0.25, 0.75, 2.675, 160.0,
            123456.25, 123456.75, 12345.625, 12345.375, 1.00000005, 0.001, 0.0001, 9.9999995e-5]
    result = [bits32(x) for x in kept]
    result += [bits32(n / 20) for n in range(-60, 220, 7)]
    result += [bits32(rng.uniform(-120, 120)) for _ in range(250)]
    result += [bits32(round(rng.uniform(-120, 120), 2)) for _ in range(150)]
    while len(result) < 800:
        bits = rng.getrandbits(32)
        if (bits >> 23) & 0xFF != 0xFF:
            result.append(bits)
    return result


def samples64(rng):
    kept = [0.0, 0.1 + 0.2, 1e15, 999999999999999.9, 99999999999999.95, 1e22, 1.7e308, 5e-324,
            28.999999999999996, 2.675, 1.005, 0.285, 1e-20 / 3, 2e-28 / 3, 1e-27 / 7, 0.125, -0.004,
            99999999999999.25, 99999999999999.75, 1234567890123.125, 1234567890123.375,
            123456789012345.5, 123456789012346.5, 1e-7, 1e-6, 1e-5, 1e-3, 0.00099999999999999999,
            9.99999999999999e-8]
    result = [bits64(x) for x in kept]
    result += [bits64(rng.uniform(-2000, 2000)) for _ in range(200)]
    result += [bits64(round(rng.uniform(-200, 200), 3)) for _ in range(200)]
    # Just beside a tie, where a product in floating point alone would go wrong.
    ties = [rng.randrange(10 ** 13, 10 ** 14) + rng.choice([0.25, 0.75]) for _ in range(50)]
    result += [bits64(x) + d for x in ties for d in (-1, 0, 1)]
    near = [(rng.randrange(10 ** 14, 10 ** 15) + 0.5) / 10 ** rng.randrange(8, 20) for _ in range(100)]
    result += [bits64(x) for x in near]
    result += [bits64(rng.uniform(-1, 1) * 10.0 ** rng.randrange(-30, 20)) for _ in range(200)]
    while len(result) < 1000:
        bits = rng.getrandbits(64)
        if (bits >> 52) & 0x7FF != 0x7FF:
            result.append(bits)
    return result


def texts(rng):
    result = ["", " ", "-", "+", ".", "-.", "+.", " 5", "   -3.5", "5 ", "1 2", "1.2.3", "0x10",
              "1e5", "1E+5", "inf", "nan", "xx", "cero", "si", "- 5", "--5", "+-5", "\\t5", "5\\t",
              ".5", "-.5", "5.", "-5.", "00875", "1025.5", "8755", "1,5", "+2", "-0", "-0.0",
              "0.1", "0.3", "179769313486231570000", "9" * 400, "." + "0" * 400 + "1", "1" + "0" * 308,
              "123456789012345678901234567890.5", "9007199254740993", "0.1" + "0" * 50 + "1"]
    alphabet = "0123456789.-+ eExX,\u00e9"
    result += ["".join(rng.choice(alphabet) for _ in range(rng.randrange(1, 12)))
               for _ in range(300)]
    result += [plain(rounded(x, 15), x) for x in (rng.uniform(-2000, 2000) for _ in range(100))]
    return result


def main():
    rng = random.Random(16)
    rows = []
    for bits in samples32(rng):
        exact_in = float32(bits)
        number = rounded(exact_in, 7)
        rows.append(["float32", f"{bits:08x}", plain(number, exact_in)])
        for mask in rng.sample(MASKS, 2):
            rows.append(["mask32", f"{bits:08x}", mask, masked(number, mask, exact_in)])
    for bits in samples64(rng):
        exact_in = float64(bits)
        number = rounded(exact_in, 15)
        rows.append(["float64", f"{bits:016x}", plain(number, exact_in)])
        rows.append(["mask64", f"{bits:016x}", (mask := rng.choice(MASKS)), masked(number, mask, exact_in)])
    for text in texts(rng):
        rows.append(["value", text, f"{bits64(value(text.replace(chr(92) + 't', chr(9)))):016x}"])
    halves = [n / 2 for n in range(-9, 10)] + [0.49999999999999994, 4503599627370497.5, 2147483647.5,
                                               2147483646.5, -2147483648.5, 1e300, -1e300]
    halves += [rng.uniform(-1e4, 1e4) for _ in range(100)]
    for x in halves:
        rows.append(["whole", f"{bits64(x):016x}"] + [str(n) for n in wholes(x)])
    with open("numbers_table.txt", "w", encoding="utf-8", newline="\n") as out:
        out.writelines("\t".join(row) + "\n" for row in rows)


main()
