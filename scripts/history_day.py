#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints a day of history as CSV (RFC 4180), with nothing but Python's standard library.

    history_day.py FILE.hm16day                    one line a second
    history_day.py --span 60 FILE.hm16day          one line a minute, hour (3600) or the whole
                                                   file (day), worked out of the seconds
    history_day.py --station 98500 FILE.hm16day    one station (kHz) alone

A second has for each figure its value, its state and the milliseconds for which it was known; a
span has lowest, mean, highest, 1st and 99th percentile, known milliseconds, and the longest cause of
what is not known. Empty fields are not known. docs/history.md tells the format.
"""
import argparse
import csv
import datetime
import math
import sqlite3
import struct
import sys
import urllib.parse
import zlib
from pathlib import Path

STATES = ("known", "settling", "no carrier", "too noisy", "multipath", "no pilot", "overload", "gap",
          "unit away", "stale", "not measured", "out of range", "too slow")
GAP, AWAY, NOT_MEASURED = 7, 8, 10
PEAK, LEVEL, MEAN, ANGLE, SHARE, COUNT, STATE = range(7)
NO_LENGTH = 1e-4  # a shorter mean vector is none: the angles cancel one another
OPPOSITE = 1e-3  # degrees; within this an angle across from the mean counts as below it


class Damaged(Exception):
    """A block does not match its row."""


class Numbers:
    """Reads packed numbers: seven bits a byte, lowest first."""

    def __init__(self, data):
        self.data = data
        self.at = 0

    def byte(self):
        if self.at >= len(self.data):
            raise Damaged("cut")
        self.at += 1
        return self.data[self.at - 1]

    def unsigned(self):
        value = shift = 0
        while True:
            byte = self.byte()
            value |= (byte & 0x7F) << shift
            if byte < 0x80:
                return value
            shift += 7
            if shift > 62:
                raise Damaged("number too long")

    def signed(self):
        folded = self.unsigned()
        return (folded >> 1) ^ -(folded & 1)

    def take(self, size):
        if self.at + size > len(self.data):
            raise Damaged("cut")
        self.at += size
        return self.data[self.at - size:self.at]

    def ended(self):
        return self.at == len(self.data)


def offsets_of(numbers):
    """Which seconds of the minute a block has."""
    offsets, at = [], 0
    for _ in range(numbers.unsigned()):
        at += numbers.unsigned()
        run = numbers.unsigned()
        offsets.extend(range(at, at + run))
        at += run
    if not offsets or offsets[-1] > 59:
        raise Damaged("no seconds, or too many")
    return offsets


def column_of(data, count):
    """One figure: for each second (steps or None, state, known milliseconds)."""
    numbers, runs = Numbers(data), []
    while len(runs) < count:
        run, state = numbers.unsigned(), numbers.byte()
        known = 1000 if state == 0 else numbers.unsigned()
        if run == 0 or len(runs) + run > count or state >= len(STATES) or known > 1000:
            raise Damaged("states")
        runs.extend([(state, known)] * run)
    column, steps = [], 0
    for state, known in runs:
        if known:
            steps += numbers.signed()
        column.append((steps if known else None, state, known))
    if not numbers.ended():
        raise Damaged("too long")
    return column


def block_of(data):
    """Offsets, and the columns by the figure's number."""
    numbers = Numbers(data)
    if numbers.byte() != 1:
        raise Damaged("version")
    body = Numbers(numbers.take(numbers.unsigned()))
    if not numbers.ended():
        raise Damaged("length")
    offsets, columns = offsets_of(body), {}
    while not body.ended():
        figure = body.unsigned()
        columns[figure] = column_of(body.take(body.unsigned()), len(offsets))
    return offsets, columns


class Day:
    """The seconds of a file, as {(station, epoch, t): {figure: (steps, state, known)}}."""

    def __init__(self, path):
        # Opened alone and read-only, since the file may come from anywhere.
        self.base = sqlite3.connect("file:%s?mode=ro" % urllib.parse.quote(str(path)), uri=True)
        self.base.execute("PRAGMA trusted_schema=OFF")
        self.base.execute("PRAGMA query_only=ON")
        if self.base.execute("PRAGMA application_id").fetchone()[0] != 0x484D3136:
            raise SystemExit("%s: not a day of history" % path)
        if self.base.execute("PRAGMA user_version").fetchone()[0] > 1:
            raise SystemExit("%s: made by a newer version" % path)
        self.figures = self.base.execute(
            "SELECT id,key,unit,kind,step FROM figure ORDER BY id").fetchall()

    def seconds(self, station=None):
        found = {}
        for row in self.base.execute("SELECT station,minute,epoch,n,data,crc FROM second"):
            self.add(found, *row)
        for khz, t, epoch, data in self.base.execute("SELECT station,t,epoch,data FROM tail"):
            _, columns = block_of(data)
            found[khz, epoch, t] = {figure: column[0] for figure, column in columns.items()}
        return {key: found[key] for key in sorted(found) if station in (None, key[0])}

    def add(self, found, station, minute, epoch, n, data, crc):
        try:
            if zlib.crc32(data) != crc:
                raise Damaged("CRC")
            offsets, columns = block_of(data)
            if len(offsets) != n:
                raise Damaged("n")
        except Damaged as fault:
            print("minute %d of %d: %s" % (minute, station, fault), file=sys.stderr)
            offsets = range(60)
            columns = {figure[0]: [(None, GAP, 0)] * 60 for figure in self.figures}
        for i, offset in enumerate(offsets):
            found[station, epoch, minute + offset] = {
                figure: column[i] for figure, column in columns.items()}


def mean_of(kind, values):
    """The mean of (value, milliseconds) by the figure's kind."""
    weight = sum(known for _, known in values)
    if kind == LEVEL:
        return 10 * math.log10(sum(known * 10 ** (value / 10) for value, known in values) / weight)
    if kind == ANGLE:
        x = sum(known * math.cos(math.radians(2 * value)) for value, known in values)
        y = sum(known * math.sin(math.radians(2 * value)) for value, known in values)
        if math.hypot(x, y) / weight < NO_LENGTH:
            return 0.0
        axis = math.degrees(math.atan2(y, x) / 2)
        return axis + 180 if axis < -1e-6 else max(axis, 0.0)
    if kind == STATE:
        held = {}
        for value, known in values:
            held[value] = held.get(value, 0) + known
        return min(held, key=lambda value: (-held[value], value))
    return sum(known * value for value, known in values) / weight


def rank(values, share):
    return values[max(1, math.ceil(share * len(values) - 1e-9)) - 1]


def span_of(kind, step, column):
    """Lowest, mean, highest, percentiles, known milliseconds, cause of a column of seconds."""
    values = [(steps * step, known) for steps, _, known in column if known]
    causes = {}
    for _, state, known in column:
        if known < 1000:
            causes[state] = causes.get(state, 0) + 1000 - known
    cause = min(causes, key=lambda state: (-causes[state], state)) if causes else 0
    if not values:
        return ["", "", "", "", "", 0, STATES[cause]]
    mean = mean_of(kind, values)
    row = [value for value, _ in values]
    if kind == ANGLE:
        row = [value - 180 * math.floor((value - mean + 90 + OPPOSITE) / 180) for value in row]
    row.sort()
    return [short(row[0]), repr(mean), short(row[-1]), short(rank(row, 0.01)),
            short(rank(row, 0.99)), sum(known for _, known in values), STATES[cause]]


def short(value):
    return "%.10g" % value


def utc(t):
    return (datetime.datetime(1970, 1, 1) + datetime.timedelta(seconds=t)).isoformat() + "Z"


def print_seconds(day, seconds, out):
    head = ["utc", "t", "khz", "epoch"]
    for _, key, unit, _, _ in day.figures:
        head += ["%s (%s)" % (key, unit) if unit else key, key + " state", key + " known_ms"]
    out.writerow(head)
    for (station, epoch, t), columns in seconds.items():
        line = [utc(t), t, station, epoch]
        for figure, _, _, _, step in day.figures:
            steps, state, known = columns.get(figure, (None, NOT_MEASURED, 0))
            line += ["" if steps is None else short(steps * step), STATES[state], known]
        out.writerow(line)


def print_spans(day, seconds, length, out):
    head = ["utc", "t", "khz", "epoch"]
    for _, key, unit, _, _ in day.figures:
        first = "%s lowest (%s)" % (key, unit) if unit else key + " lowest"
        head += [first] + [key + " " + word for word in
                           ("mean", "highest", "p1", "p99", "known_ms", "cause")]
    out.writerow(head)
    spans = {}
    for (station, epoch, t), columns in seconds.items():
        begin = t - t % length if length else 0
        spans.setdefault((station, epoch, begin), []).append(columns)
    for (station, epoch, begin), rows in sorted(spans.items()):
        line = [utc(begin), begin, station, epoch]
        for figure, _, _, kind, step in day.figures:
            column = [columns.get(figure, (None, NOT_MEASURED, 0)) for columns in rows]
            line += span_of(kind, step, column)
        out.writerow(line)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("file", type=Path)
    parser.add_argument("--span", choices=("60", "3600", "day"))
    parser.add_argument("--station", type=int)
    chosen = parser.parse_args()
    day = Day(chosen.file)
    seconds = day.seconds(chosen.station)
    out = csv.writer(sys.stdout)
    if chosen.span:
        print_spans(day, seconds, 0 if chosen.span == "day" else int(chosen.span), out)
    else:
        print_seconds(day, seconds, out)


if __name__ == "__main__":
    main()
