#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader is told: the tree of each window over AT-SPI, with no unnamed control, in the
user's language. What was read out stands beside the pictures."""

import sys

sys.dont_write_bytecode = True
import screen_reader
from cases import case, main
from screen import wait_for

# The key that opens each window, on the rack or on the window before it.
DOORS = (
    ("Form_bSetMemories", "Form_B", "Image3"), ("Form_bTuner", "Form_B", "Image4"),
    ("Form_BandSCanner", "Form_D", "Image2"), ("Form_Dd3", "Form_D", "Image3"),
    ("FormD1a", "Form_D", "Image1"), ("Form_D4A", "Form_D", "Image4"),
    ("frmSpectrumAnalizer", "Form_D", "Image6"))


class Listener:
    def __init__(self, rack, album):
        self.rack, self.album = rack, album

    def tree(self):
        return wait_for(lambda: screen_reader.tree(self.rack.environment, self.rack.program.pid),
                        "the program on the bus")

    def hear(self, name, title, *words):
        """Reads the window of that title: everything has a name, and these words are among them."""

        def found():
            return [window for window in screen_reader.shown(self.tree())
                    if window["name"].startswith(title)]

        windows = wait_for(found, f"the window {title} on the bus")
        said = "".join(screen_reader.read_out(window) for window in windows)
        (self.album.folder / f"heard_{name}_{self.album.run}.txt").write_text(said)
        for window in windows:
            assert not screen_reader.unnamed(window), screen_reader.unnamed(window)
        for word in words:
            assert word in said, f"{word} is not said of {title}:\n{said}"


@case(started=False)
def every_window(rack, album):
    bus = screen_reader.Bus()
    try:
        rack.environment.update(bus.environment())
        rack.start()
        listener = Listener(rack, album)
        spanish = rack.spanish_panels
        # Figures are read with their values.
        listener.hear("rack", "HMonitor", *(
            ("Memoria siguiente", "Nivel izquierdo, dB: -", "Frecuencia, MHz: 98.50", "Sintonía")
            if spanish else
            ("Next memory", "Left level, dB: -", "Frequency, MHz: 98.50", "Tuning")))
        for form, panel, key in DOORS:
            rack.click(panel, key)
            rack.screen.activate(rack.wait_open(form))
            listener.hear(form, rack.title(form))
            rack.screen.close_window(rack.wait_open(form))
            rack.wait_closed(form)
            rack.wait_measuring()
        rack.type("Form1", "F1")
        listener.hear("manual", "Manual de HMonitor" if spanish else "HMonitor manual",
                      *(("Contenido", "Buscar en la página") if spanish else
                        ("Contents", "Find in the page")))
    finally:
        bus.close()


if __name__ == "__main__":
    main()
