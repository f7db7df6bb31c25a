#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Ends from outside the windows: signals, the end of the user's session, the loss of the display.
Each is in good order: the preset is stored, the unit is halted and closed."""

import os
import shutil
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True
from cases import ENGLISH, case, main
from rack import LOG, PRESET
from screen import wait_for

ORDERLY = 2.0  # seconds after the call in progress has returned
alone = case(languages=(ENGLISH,), started=False)


def lay_noting_unit(rack, **settings):
    """Installs a unit that notes its calls."""
    shutil.copy(rack.build / "tests/app/noting/hm-16.so", rack.folder / "hm-16.so")
    rack.environment["NOTING_UNIT"] = str(rack.folder / "calls.txt")
    for name, value in settings.items():
        rack.environment["NOTING_" + name.upper()] = str(value)


def calls(rack):
    try:
        return (rack.folder / "calls.txt").read_text().split("\n")[:-1]
    except FileNotFoundError:
        return []


def step_to_another_preset(rack):
    """Steps to another memory, which only an end in good order stores; returns its number."""
    before = rack.line(PRESET)
    rack.click("Form_B", "SSCommand1")
    wait_for(lambda: rack.memory() != int(before), "another memory")
    assert rack.line(PRESET) == before, "the preset is stored before the end"
    return str(rack.memory())


def start_scan(rack):
    rack.click("Form_D", "Image2")
    rack.wait_open("Form_BandSCanner")
    measured = calls(rack).count("HM_Super")
    rack.click("Form_BandSCanner", "Command3D1")
    wait_for(lambda: calls(rack).count("HM_Super") > measured + 1, "a level in progress")


def expect_order(rack, preset, status=0):
    start = time.monotonic()
    wait_for(lambda: rack.program.poll() is not None, "the end of the program")
    assert time.monotonic() - start < ORDERLY, f"it took {time.monotonic() - start:.1f} s"
    assert rack.program.returncode == status, f"it ended with {rack.program.returncode}"
    assert rack.line(PRESET) == preset, f"preset {rack.line(PRESET)} is stored, not {preset}"
    assert calls(rack)[-2:] == ["HM_Parar", "HM_Terminate"], f"the last calls: {calls(rack)[-4:]}"


@alone
def term(rack, album):
    end_by_signal(rack, signal.SIGTERM)


@alone
def interrupt(rack, album):
    end_by_signal(rack, signal.SIGINT)


@alone
def hang_up(rack, album):
    end_by_signal(rack, signal.SIGHUP)


def end_by_signal(rack, number):
    lay_noting_unit(rack)
    rack.start()
    preset = step_to_another_preset(rack)
    rack.program.send_signal(number)
    expect_order(rack, preset)


@alone
def kept_hang_up(rack, album):
    """Signals that the starter has set to be ignored stay ignored."""
    lay_noting_unit(rack)
    signal.signal(signal.SIGHUP, signal.SIG_IGN)
    rack.start()
    rack.program.send_signal(signal.SIGHUP)
    rack.wait_measuring()
    assert rack.program.poll() is None, "a hang-up that was kept from it ended it"


@alone
def in_a_run(rack, album):
    """A run that holds the thread ends as by its stop key, after the level in progress."""
    lay_noting_unit(rack, version="2.0", super_ms=200)
    rack.start()
    preset = step_to_another_preset(rack)
    start_scan(rack)
    rack.program.send_signal(signal.SIGTERM)
    sent = calls(rack).count("HM_Super")
    expect_order(rack, preset)
    assert calls(rack).count("HM_Super") <= sent + 1, "it went on measuring"


@alone
def twice(rack, album):
    """A second signal does not wait for the call in progress."""
    lay_noting_unit(rack, version="2.0", super_ms=30000)
    # The thread is held by the first level of the start.
    rack.program = rack.launch()
    wait_for(lambda: "HM_Super" in calls(rack), "a level in progress")
    rack.program.send_signal(signal.SIGTERM)
    time.sleep(0.5)
    assert rack.program.poll() is None, "one signal ended a call in progress"
    start = time.monotonic()
    rack.program.send_signal(signal.SIGTERM)
    rack.program.wait()
    assert time.monotonic() - start < 1, "the second signal had to wait"
    assert rack.program.returncode == -signal.SIGTERM


@alone
def at_the_demo_offer(rack, album):
    """No preset is loaded yet, and the stored one stays."""
    lay_noting_unit(rack, version="0")
    before = rack.line(PRESET)
    rack.program = rack.launch()
    wait_for(lambda: rack.screen.windows("HMonitor"), "the demo offer")
    wait_for(lambda: "HM_Init" in calls(rack), "the start")
    time.sleep(0.5)
    rack.program.send_signal(signal.SIGTERM)
    expect_order(rack, before)


@alone
def behind_a_box(rack, album):
    """Nobody has to answer it."""
    lay_noting_unit(rack)
    rack.start()
    preset = step_to_another_preset(rack)
    rack.screen.activate(rack.window)
    rack.screen.double_click(*rack.point("Form1", "Picture3", 0.02, 0.1))
    wait_for(rack.boxes, "the version box")
    rack.program.send_signal(signal.SIGTERM)
    expect_order(rack, preset)


@case(languages=(ENGLISH,), started=False, units=({"pace": 100, "clock": "2026-03-04 12:10:00"},))
def the_hours_line(rack, album):
    """The unfinished hour of the day's log is written by an end from outside too."""
    settings = (rack.folder / "hm-16.dat").read_bytes().split(b"\r\n")
    settings[LOG] = b"1"
    (rack.folder / "hm-16.dat").write_bytes(b"\r\n".join(settings))
    log = rack.folder / "20260304.log"
    rack.start()
    time.sleep(1)
    assert not log.exists(), "the hour is over before its end was asked for"
    rack.program.send_signal(signal.SIGTERM)
    rack.wait_end()
    lines = log.read_text().splitlines()
    assert len(lines) == 1 and lines[0].split()[0] in ("12", "13"), f"the log: {lines}"
    assert float(lines[0].split()[6]) >= 1, f"minutes measured: {lines}"


class NoServer:
    """Replaces a connection whose server has gone."""

    def close(self):
        pass


def kill_screen(rack):
    os.kill(rack.screen.server, signal.SIGKILL)
    rack.screen.x = NoServer()


@case(languages=(ENGLISH,), started=False, shared=False)
def screen_is_lost(rack, album):
    lay_noting_unit(rack)
    rack.start()
    preset = step_to_another_preset(rack)
    kill_screen(rack)
    expect_order(rack, preset, status=1)


@case(languages=(ENGLISH,), started=False, shared=False)
def screen_is_lost_in_a_run(rack, album):
    lay_noting_unit(rack, version="2.0", super_ms=100)
    rack.start()
    preset = step_to_another_preset(rack)
    start_scan(rack)
    kill_screen(rack)
    expect_order(rack, preset, status=1)


class SessionManager:
    def __init__(self, rack):
        self.process = subprocess.Popen([str(rack.build / "tests/app/session_end")],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                        env=dict(os.environ, HOME=str(rack.folder)))
        rack.environment["SESSION_MANAGER"] = self.process.stdout.readline().strip()

    def expect(self, line):
        while (told := self.process.stdout.readline().strip()) != line:
            assert told, f"the session manager never said {line}"

    def tell(self, order):
        self.process.stdin.write(order + "\n")
        self.process.stdin.flush()

    def end(self):
        self.process.stdin.close()
        self.process.wait()


@alone
def logout(rack, album):
    """The preset is stored when the session asks for it, and the program ends with the session."""
    lay_noting_unit(rack)
    manager = SessionManager(rack)
    try:
        rack.start()
        manager.expect("saved")
        preset = step_to_another_preset(rack)
        manager.tell("save")
        manager.expect("saved")
        rack.wait_line(PRESET, preset, "the preset, at the session's save")
        manager.tell("cancel")
        rack.wait_measuring()
        preset = step_to_another_preset(rack)
        manager.tell("save")
        manager.expect("saved")
        manager.tell("die")
        expect_order(rack, preset)
    finally:
        manager.end()


if __name__ == "__main__":
    main()
