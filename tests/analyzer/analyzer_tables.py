#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A second calculation of the analyzer's rules, for the tests to compare with.

Shares no code with the program. Writes analyzer_tables.txt, a line a case: the rule, its
input, its result. Of a session the table has the size and the FNV-1a hash of all its bytes.
"""
import datetime
import math
import pathlib
import struct
from fractions import Fraction


def single(x):
    """The nearest 32-bit float."""
    return struct.unpack("<f", struct.pack("<f", x))[0]


def fnv(data):
    value = 0xCBF29CE484222325
    for byte in data:
        value = (value ^ byte) * 0x100000001B3 & 0xFFFFFFFFFFFFFFFF
    return value


def session(comment, created, start, stop, count, latitude, longitude, altitude, cell):
    page = comment.encode("cp1252", "replace")[:65535]
    data = struct.pack("<BHH", 1, 0, len(page)) + page
    data += struct.pack("<dffiddf", created, start, stop, count, latitude, longitude, altitude)
    data += bytes(256)
    data += b"".join(struct.pack("<d", cell(x, r)) for r in range(71) for x in range(801))
    return data


def spread(x, r):
    return float((7 * x + 13 * r) % 97)


def sessions():
    cases = {
        "spanish": ("Señal de la mañana, 3 €", 46347.770833333336, 88, 108, 528,
                    -34.608333, -58.3725, 25, spread),
        "empty": ("", 0.5, 87.5, 89, 0, 0, 0, -777, lambda x, r: 0.0),
        "longest": ("é" * 65535, 1.0, 88, 108, 2147483647, -777, -777, -777, spread),
        "cut": ("Ω" + "x" * 70000, 1.0, 88, 108, 1, 89.9, 180, 8848.86, lambda x, r: 1.0),
    }
    for name, case in cases.items():
        data = session(*case)
        yield f"session {name} {len(data)} {fnv(data):016x}"


def colours():
    """Red, green and blue of every entry, each ramp from its two ends."""
    ends = [(255, 0, 0), (255, 0, 255), (0, 0, 255), (0, 255, 255), (0, 255, 0), (255, 255, 0)]
    for ramp in range(5):
        for i in range(256):
            rgb = [a + (b - a) * i // 255 for a, b in zip(ends[ramp], ends[ramp + 1])]
            yield "colour %d %02x%02x%02x" % (256 * ramp + i, *rgb)
    yield "colour 1280 000000"


def levels():
    for raw in (-100, 0, 12, 29.4, 29.7, 29.9, 30, 30.1, 33.5, 64.99, 99.7, 99.9, 100, 100.1, 103.5,
                150, 10000):
        for tenths in (-35, 0, 3, 35):
            total = single(single(tenths / 10) + single(raw))
            yield f"level {raw} {tenths} {min(max(math.floor(total), 30), 100)}"


def limits():
    for start, stop in ((88, 108), (87, 108), (87.5, 0), (88, 88.5), (88, 88.99), (88, 89), (90, 110),
                        (107, 89), (109, 120), (-5, -5), (0, 0), (100, 100), (87.5, 108)):
        low, high = max(start, 87.5), 108 if stop == 0 else stop
        high = min(max(high, 89), 108)
        first, last = (round(Fraction(f) * 40 - 3520) for f in (low, high))
        yield f"limit {start} {stop} {low} {high} {first} {last}"


def points():
    for i in range(-20, 801):
        yield f"point {i} {float(880 + Fraction(i, 4))}"


# Degrees to four decimals: north, south, east, west, the meridian, the equator, both poles.
PLACES = """
-34.6083 -58.3712|40.4168 -3.7038|51.4779 0.0000|-33.8568 151.2153|35.6586 139.7454|64.1466 -21.9426
-54.8019 -68.3030|78.2232 15.6267|0.0000 -78.4558|-0.1807 -78.4678|1.3521 103.8198|-1.2921 36.8219
19.4326 -99.1332|-12.0464 -77.0428|4.7110 -74.0721|-16.4897 -68.1193|-25.2637 -57.5759
-34.9011 -56.1645|-33.4489 -70.6693|-15.7939 -47.8828|10.4806 -66.9036|8.9824 -79.5199
14.6349 -90.5069|13.6929 -89.2182|18.4861 -69.9312|23.1136 -82.3666|38.7223 -9.1393|41.9028 12.4964
48.8566 2.3522|52.5200 13.4050|55.7558 37.6173|59.3293 18.0686|60.1699 24.9384|30.0444 31.2357
-26.2041 28.0473|28.6139 77.2090|39.9042 116.4074|37.5665 126.9780|-41.2866 174.7756|21.3069 -157.8583
-90.0000 180.0000|90.0000 -180.0000|-17.7134 178.0650|-13.8333 -171.7667|12.9999 59.9999
""".replace("\n", "|")


def places():
    for pair in filter(None, PLACES.split("|")):
        for text in pair.split():
            size = abs(Fraction(text))
            degrees = int(size)
            minutes = int((size - degrees) * 60)
            seconds = ((size - degrees) * 60 - minutes) * 60
            yield f"place {text} {degrees} {minutes} {float(seconds):.6f}"


def dates():
    origin = datetime.datetime(1899, 12, 30)
    for text in ("1899-12-30 00:00:00", "1899-12-31 12:00:00", "1900-02-28 06:00:00",
                 "1900-03-01 00:00:00", "1999-12-31 23:59:59", "2000-02-29 12:34:56",
                 "2026-03-28 23:59:00", "2026-03-29 01:59:59", "2026-03-29 02:30:00",
                 "2026-03-29 03:00:00", "2026-10-25 01:59:59", "2026-10-25 02:30:00",
                 "2026-10-25 03:00:00", "2026-11-21 18:30:00", "2100-02-28 00:00:01",
                 "9999-12-31 23:59:59"):
        span = datetime.datetime.fromisoformat(text) - origin
        yield f"date {text.replace(' ', '-').replace(':', '-')} {span.total_seconds() / 86400!r}"


def main():
    lines = [*sessions(), *colours(), *levels(), *limits(), *points(), *places(), *dates()]
    target = pathlib.Path(__file__).with_suffix(".txt")
    target.write_text("\n".join(lines) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
