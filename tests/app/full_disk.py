#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program on a disk that gets full while it records. Of scripts/history_full_disk, which gives it
a small disk; the rack's folder lies on it."""

import os
import signal
import sys
import time

sys.dont_write_bytecode = True
from cases import ENGLISH, case, main
from history_test import are_there, days, events, rows
from screen import wait_for

LOST = 11  # seconds that could not be kept
FULL_FOR = 40  # seconds; the recorder keeps 600 in memory


def fill(file):
    with open(file, "wb", buffering=0) as filler:
        try:
            while True:
                filler.write(bytes(1 << 16))
        except OSError:
            pass
        try:
            while True:
                filler.write(b"\0" * 512)
        except OSError:
            pass


def free(folder):
    disk = os.statvfs(folder)
    return disk.f_bavail * disk.f_frsize


@case(languages=(ENGLISH,), started=False)
def full_disk(rack, album):
    rack.start()
    wait_for(lambda: are_there(rack, 6), "the first seconds")
    album.take(rack.screen, "history_disk_with_little_room")
    filler = rack.folder / "filler"
    full = time.time()
    fill(filler)
    print(f"{free(rack.folder)} bytes are free")
    time.sleep(FULL_FOR)
    before = len(rows(rack))
    rack.wait_measuring()
    album.take(rack.screen, "history_disk_full")
    assert rack.program.poll() is None
    print(f"full for {time.time() - full:.0f} s, the file has {before} seconds")
    filler.unlink()
    freed = time.time()
    wait_for(lambda: int(rows(rack)[-1]["t"]) >= freed + 5, "the recording to go on")
    rack.wait_measuring()
    album.take(rack.screen, "history_disk_freed")
    rack.program.send_signal(signal.SIGTERM)
    rack.program.wait()
    told = [int(row["t"]) for row in rows(rack)]
    missing = sorted(set(range(told[0], told[-1] + 1)) - set(told))
    print(f"{len(told)} seconds, {len(missing)} missing, files {[day.name for day in days(rack)]}")
    assert not missing, missing
    assert LOST not in events(rack)
    assert not list((rack.folder / "history").glob("*.damaged"))


if __name__ == "__main__":
    main()
