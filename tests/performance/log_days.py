#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Second calculation of what the on-air windows make of a day's log: the table of fields, the lines
of the six lists, the cells of the charts, the curves of the page and the text report.

Each line of the output is a word and its texts, parted by tabs and escaped as Python's strings are.
Run it again with:  log_days.py > log_days.txt
"""
import random
import re
from decimal import Decimal

# Word, field, offset, highest, base, scale of the page's eight curves, in the order of the page.
CURVES = (("modulation", 1, -25, 125, 4000, 24.8), ("second level", 2, 10, 20, 12400, 133.4),
          ("first level", 3, 10, 20, 12400, 133.4), ("phase", 4, 0, 180, 6800, 11.1),
          ("power", 5, 0, 5, 4000, 620), ("overmodulation", 7, 0, 300, 6800, 6.7),
          ("inverted", 9, 0, 10, 9600, 200), ("silence", 8, 0, 10, 9600, 200))
LISTS = ((13, 1), (13, 5), (6, 2, 3), (6, 4), (6, 7), (6, 8, 9))


def number(text):
    """The number at the head of a text."""
    found = re.match(r" *([+-]?(?:[0-9]+(?:\.[0-9]*)?|\.[0-9]+))", text)
    return float(found.group(1)) if found else 0.0


def plain(value):
    """At most 15 digits, no zeros behind, no exponent below 1e15."""
    if abs(value) >= 1e15:
        return format(value, ".15g").upper()
    text = format(Decimal(format(value, ".15g")), "f")
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def lines_of(data):
    lines = data.split("\n")
    if lines[-1] == "":
        lines.pop()
    return [line[:-1] if line.endswith("\r") else line for line in lines][:24]


def hours_of(data):
    hours = {}
    for line in lines_of(data):
        if not re.match("[0-9]", line):
            continue
        if line[1:2] in ("", " "):
            line = "0" + line
        hour = int(re.match("[0-9]{1,2}", line[:2]).group(0))
        if hour < 24:
            hours[hour] = line
    return hours


def table_of(data):
    hours = hours_of(data)
    table = []
    for hour in range(24):
        line = hours.get(hour)
        if line is None:
            fields = ["A"] * 9
        else:
            room = line[3:103]
            fields = (room + " " * (100 - len(room))).split(" ")[:9]
            fields += [""] * (9 - len(fields))
        table.append(["0" if field == "A" else field for field in fields])
    return table


def list_line(hour, fields, gap, first, second=0):
    line = f"{hour:02d}" + " " * gap + fields[first - 1]
    if not second:
        return line
    return line + " " * (17 - 2 - 6 - len(fields[first - 1])) + fields[second - 1]


def curve(table, hours, field, offset, highest, base, scale):
    points = ""
    for hour in range(24):
        if hour not in hours:
            points += f"{550 + 421 * hour} {base} "
            continue
        value = min(max(number(table[hour][field - 1]) + offset, 0.0), float(highest))
        points += f"{550 + 421 * hour} {round(base - scale * value)} "
    return points


def short(value):
    return value[:3] if value[3:4] == "." else value[:4]


def report(data, day, brand):
    head = {"Marvenia": "* MARVENIA  HM-36 Halden Monitor Report Date: ",
            "Teskel": " * TESKEL  TK-16 Halden Monitor Report Date: "}[brand]
    lines = []
    for line in lines_of(data):
        if line[1:2] in ("", " "):
            hour = line[:1]
        elif line[2:3] in ("", " "):
            hour = line[:2]
        else:
            hour = ""
        behind = line[len(hour):]
        fields = (behind[1:] if behind[:1] == " " else behind).split(" ")
        fields += [""] * (9 - len(fields))
        lines.append((hour, [short(field) for field in fields]))
    out = ["*" * 69, head + day + " *", "*" * 69,
           "hs|Modulation  Power     Left & Right   Silence  Reverse"]
    for hour, f in lines:
        out.append(f"{hour}|\t{f[0]}\t{f[4]}\t  {f[1]} {f[2]}\t  {f[7]}\t    {f[8]}")
    out += ["-" * 82, "hs|   Overmod   Stereo Phase    hs|Overmod   Stereo Phase"]
    left = [f"{hour}|\t{f[6]}\t    {f[3]}" for hour, f in lines[:12]]
    right = [f"\t\t{hour}|        {f[6]}\t  {f[3]}" for hour, f in lines[12:]]
    out += [kept + (right[i] if i < len(right) else "") for i, kept in enumerate(left)]
    return ["\t\t" + line for line in out]


def a_day(seed, hours=range(24), two_digits=False, end="\r\n"):
    dice = random.Random(seed)
    text = ""
    for hour in hours:
        fields = (dice.uniform(80, 112), dice.uniform(-9, -2), dice.uniform(-9, -2),
                  dice.uniform(35, 60), dice.uniform(3.5, 4.8), 60, dice.uniform(0, 90),
                  dice.randrange(0, 4), dice.randrange(0, 3))
        head = f"{hour:02d}" if two_digits else str(hour)
        text += head + " " + "".join(f"{round(field, 1):g} " for field in fields) + end
    return text


LONG = "5 " + "1" * 20 + " " + "2" * 20 + " " + "3" * 20 + " 4 5 6 7 8 "
NINTH = 102 - len(LONG)  # the rest of an aligned line of 103 characters
DAYS = {
    "20260301": a_day(1),
    "20260302": a_day(2, two_digits=True, end="\n"),
    "20260303": a_day(3, [0, 1, 2, 9, 10, 22, 23]),
    "20260304": "".join(f"{h} {v} {w} {w} {p} {q} 60 {o} {s} {s} \r\n" for h, v, w, p, q, o, s in (
        (0, 20, -12, 190, 6, 301, 11), (1, 151, 7, -1, -0.5, -3, -1), (2, 25, -10, 0, 0, 0, 0),
        (3, 150, 5, 180, 5, 300, 10), (4, 149.98, 10.5, 179.96, 4.999, 299.95, 9.99),
        (5, 12345678, 99999, 100000, 1000, 99999, 500))),
    "20260305": "7 1 2 3 4 5 6 7 8 9 \r\n08 9 8 7 6 5 4 3 2 1 \n13 A A A A A A A A A \r\n"
                "14 AA a A. 1A A1 A 0 A A \r\n",
    "20260306": "1  2 3 4 5 6 7 8 9 \r\n02  2  4  6  8 \r\n3   \r\n4\r\n05\r\n6 1 2 3\r\n",
    "20260307": LONG + "9" * (NINTH + 1) + "\r\n6" + LONG[1:] + "9" * NINTH + " \r\n7" + LONG[1:]
                + "9" * (NINTH + 2) + "\r\n8 " + "1" * 200 + " 2 3\r\n9 1 " + "2" * 200,
    "20260308": "5 1 1 1 1 1 1 1 1 1 \r\n05 2 2 2 2 2 2 2 2 2 \r\n23 3 3 3 3 3 3 3 3 3 \r\n"
                "23 4 4 4 4 4 4 4 4 4 \r\n",
    "20260309": "".join(f"{n % 24} {n} 1 2 3 4 5 6 7 8 \r\n" for n in range(30)),
    "20260310": "".join(f"{n % 24} {n} 1 2 3 4 5 6 7 8 \r\n" for n in range(25)),
    "20260311": "",
    "20260312": a_day(12, range(11)),
    "20260313": a_day(13, range(12)),
    "20260314": a_day(14, range(13)),
    "20260315": "hello\r\n\r\n 5 1 2 3\r\n24 1 2 3 4 5 6 7 8 9 \r\n99 1 \r\n-1 2 \r\n2x 7 6 5 4 3 2 "
                "1 2 3 \r\n123 4 5 6 7 8 9 1 2 3 \r\n2. 9 9 9 9 9 9 9 9 9 \r\n\t3 1 \r\n1\t2 3 4\r\n",
    "20260316": "0 100.5 12.34 1234 12.3 -10.5 A 12345 1.234 .5 \r\n"
                "1 -0 +5 007.50 1e3 0.30 x -.5 5. abc \r\n"
                "2 99.99999 -3.25 -3.75 45.045 2.0005 0 149.25 0.0025 0.0075",
    "20260317": "0 1 2 3 4 5 6 7 8 9 \r\n1 \xe9\xf1 \u20ac2 3\xb0 4 5 6 7 \xe9\xe9\xe9\xe9\xe9\xe9"
                "\xe9\xe9 9 \r\n2 1\t2 3 4 5 6 7 8 9 10 11 \r\n",
    "20260318": "".join("abcdefgh\r\n" for _ in range(23)) + "4 1 2 3 4 5 6 7 8 9 \r\n"
                "5 1 2 3 4 5 6 7 8 9 \r\n",
}


def say(word, *texts):
    print(word, *(text.encode("unicode_escape").decode() for text in texts), sep="\t")


for day, text in DAYS.items():
    say("day", day, text)
    filled = table_of(text)
    say("fields", *(field for fields in filled for field in fields))
    for place, columns in enumerate(LISTS):
        say(f"list{place + 1}",
            *(list_line(hour, filled[hour], *columns) for hour in range(24)))
    for word, field, *shape in CURVES:
        say("cells " + word, *(plain(number(fields[field - 1])) for fields in filled))
        say("curve " + word, curve(filled, hours_of(text), field, *shape))
    for brand in ("Marvenia", "Teskel"):
        say("report " + brand, *report(text, day, brand))
