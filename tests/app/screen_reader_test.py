#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader is told: the tree of each window over AT-SPI, with no unnamed control, in the
user's language. What was read out stands beside the pictures."""

import sys

sys.dont_write_bytecode = True
import screen_reader
from cases import case, main
from rack import PANELS
from screen import wait_for

# Each window: its form, the form with the key that opens it, the key, and the windows that are opened
# from it.
DOORS = (
    ("Form_bSetMemories", "Form_B", "Image3", ()), ("Form_bTuner", "Form_B", "Image4", ()),
    ("FormLimits", "Form_D", "KeyLimits", ()), ("Form_History", "Form_D", "KeyHistory", ()),
    ("Form_BandSCanner", "Form_D", "Image2",
     (("Form_PrintBandScan", "Form_BandSCanner", "SSCommand1", ()),)),
    ("Form_Dd3", "Form_D", "Image3", (("Form7", "Form_Dd3", "SSCommand1", ()),)),
    ("FormD1a", "Form_D", "Image1", (("FormD1aP", "FormD1a", "SSCommand1", ()),)),
    ("Form_D1", "Form_D", "PictureGraph1",
     (("Form_NewSpectro", "Form_D1", "Command3D1", ()), ("Form6", "Form_D1", "SSCommand1", ()))),
    ("Form_D4A", "Form_D", "Image4",
     (("Form15", "Form_D4A", "SSCommand2", ()), ("Form4", "Form_D4A", "SSCommand1", ()))),
    ("frmSpectrumAnalizer", "Form_D", "Image6",
     (("frmEditMeasurement", "frmSpectrumAnalizer", "picEditMeasurement", ()),)))


class Listener:
    def __init__(self, rack, album):
        self.rack, self.album = rack, album

    def tree(self):
        return wait_for(lambda: screen_reader.tree(self.rack.environment, self.rack.program.pid),
                        "the program on the bus")

    def go_through(self, doors):
        """Opens each window, reads it out, goes through those behind it and closes it."""
        rack = self.rack
        for form, opener, key, behind in doors:
            if form == "Form_D1":
                rack.screen.activate(rack.window)
                rack.screen.double_click(*rack.point(opener, key))
            else:
                rack.click(opener, key)
            rack.screen.activate(rack.wait_open(form))
            self.hear(form, rack.title(form))
            self.go_through(behind)
            rack.screen.close_window(rack.wait_open(form))
            rack.wait_closed(form)
            if opener in PANELS:
                rack.wait_measuring()

    def hear(self, name, title, *words):
        """Reads the windows of that title: everything has a name, and these words are among them."""
        heard = []

        def told():
            heard[:] = [window for window in screen_reader.shown(self.tree())
                        if window["name"].startswith(title)]
            said = "".join(screen_reader.read_out(window) for window in heard)
            return said if heard and all(word in said for word in words) else None

        said = wait_for(told, f"the window {title} on the bus, which says {words}")
        (self.album.folder / f"heard_{name}_{self.album.run}.txt").write_text(said)
        for window in heard:
            assert not screen_reader.unnamed(window), screen_reader.unnamed(window)


@case(started=False, shared=False)
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
        listener.go_through(DOORS)
        rack.type("Form1", "F1")
        listener.hear("manual", "Manual de HMonitor" if spanish else "HMonitor manual",
                      *(("Contenido", "Buscar en la página") if spanish else
                        ("Contents", "Find in the page")))
    finally:
        bus.close()


@case(started=False, shared=False)
def first_start(rack, album):
    """The card over the rack of a first start."""
    bus = screen_reader.Bus()
    try:
        (rack.folder / "rack.ini").unlink()
        rack.environment.update(bus.environment())
        rack.start()
        listener = Listener(rack, album)
        listener.hear("FormCard", "Para empezar" if rack.spanish else "To begin with",
                      "Entendido" if rack.spanish else "Got it", "F11", "F1", str(rack.folder))
    finally:
        bus.close()


@case(started=False, shared=False, units=({"version": "0"},))
def without_a_unit(rack, album):
    """The offer of the demo."""
    bus = screen_reader.Bus()
    try:
        rack.environment.update(bus.environment())
        rack.program = rack.launch()
        rack.screen.activate(wait_for(lambda: rack.opened("FormModoDemo"), "the demo offer"))
        listener = Listener(rack, album)
        words = (("Seguir en modo demo, sin unidad", "Salir del programa") if rack.spanish else
                 ("Go on in demo mode, without a unit", "Leave the program"))
        listener.hear("FormModoDemo", "HMonitor", *words)
    finally:
        bus.close()


if __name__ == "__main__":
    main()
