#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The rack fits the usual screens with a task bar, at every scale of the desktop."""

import pathlib
import subprocess
import sys

sys.dont_write_bytecode = True
from cases import SPANISH, case, main
from rack import PANELS
from screen import wait_for

BAR = 40  # pixels


@case(languages=(SPANISH,), factors=(1, 1.25, 1.5, 2), sizes=((1366, 768), (1920, 1080)),
      grows=False, started=False, shared=False)  # the bar changes the screen itself
def whole(rack, album):
    """The task bar is there before the program starts."""
    screen = rack.screen
    bar = subprocess.Popen(
        [sys.executable, str(pathlib.Path(__file__).with_name("task_bar.py")), str(BAR)],
        env=screen.environment)
    try:
        free = screen.height - BAR
        wait_for(lambda: screen.x.values(screen.x.root, "_NET_WORKAREA")[2:4] ==
                 [screen.width, free], "the room that the task bar leaves")
        rack.start()

        def inside():
            left, top, width, height = screen.box(rack.window)
            return left >= 0 and top >= 0 and left + width <= screen.width and top + height <= free

        wait_for(inside, "the whole rack above the task bar")
        left, top, width, height = screen.box(rack.window)
        wide, high = rack.places["Form1"]["."][2], rack.height(*PANELS)
        assert abs(width / wide - height / high) < 0.001, "the rack is drawn out of shape"
        room = max(width / screen.width, height / free)
        assert room > 0.9, f"the rack uses {room:.0%} of the screen"
        album.take(screen, "rack")
    finally:
        bar.terminate()
        bar.wait()


if __name__ == "__main__":
    main()
