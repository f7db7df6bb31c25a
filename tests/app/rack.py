# SPDX-License-Identifier: GPL-3.0-or-later
"""The program in a folder of its own on a screen: its windows and controls by their names."""

import pathlib
import subprocess
import tempfile
import time

from screen import wait_for

PANELS = ("Form1", "Form_B", "Form_C", "Form_D")
# Lines of hm-16.dat, from 0.
PRESET, CORRECTION, ODD, ALL, LOG, DETECTOR, AUDIO_MODE = range(7)


def told_places(build):
    """Where controls stand, in twips: {form: {control: (left, top, width, height)}}."""
    told = subprocess.run([str(build / "tests/app/control_places")], check=True,
                          capture_output=True, text=True).stdout
    places = {}
    for line in told.splitlines():
        form, rest = line.split(" ", 1)
        control, *box = rest.rsplit(" ", 4)
        places.setdefault(form, {})[control] = tuple(float(number) for number in box)
    return places


class Rack:
    """A folder with the program, its settings and a unit, and the program run in it."""

    def __init__(self, tree, build, screen, language, factor, unit):
        self.screen, self.language, self.build = screen, language, build
        self.places = told_places(build)
        self.spanish_panels = language[:2] in ("es", "pt")
        self.spanish = language.startswith("es")
        self.scratch = tempfile.TemporaryDirectory(prefix="rack-")
        self.folder = pathlib.Path(self.scratch.name)
        subprocess.run(
            ["bash", "-euc", '. "$1/scripts/lay_rack.sh"; lay_rack "$1" "$2" "$3" simulated', "lay",
             str(tree), str(build), str(self.folder)], check=True)
        self.set_unit(**unit)
        # The card of the first start is not shown.
        (self.folder / "rack.ini").write_text("card = seen\n")
        self.environment = dict(screen.environment, LANG=language + ".UTF-8",
                                LC_ALL=language + ".UTF-8", QT_SCALE_FACTOR=str(factor),
                                QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=str(self.folder))
        self.environment.pop("LANGUAGE", None)
        # No test may print on the tester's printer.
        self.environment["CUPS_SERVER"] = str(self.folder / "no-server")
        self.options = []
        self.program = None
        self.window = None

    def set_unit(self, **settings):
        """Settings of the simulated unit."""
        file = self.folder / "hm-16.ini"
        lines = [line for line in file.read_bytes().split(b"\r\n")
                 if line.split(b"=")[0].strip().decode() not in settings]
        lines[-1:-1] = [f"{key} = {value}".encode() for key, value in settings.items()]
        file.write_bytes(b"\r\n".join(lines))

    def launch(self):
        return subprocess.Popen([str(self.folder / "hmonitor"), *self.options], env=self.environment, cwd="/")

    def start(self):
        """Waits until the rack's bars move; windows that the start opens stay open."""
        self.program = self.launch()
        self.window = wait_for(self.find, "the rack")
        # The first tick of the readouts reads the settings; an earlier key would have no effect.
        wait_for(lambda: self.is_lit("Form1", "Image6"), "the settings on the keys")
        self.wait_measuring()

    def end(self):
        if self.program and self.program.poll() is None:
            self.program.kill()
        if self.program:
            self.program.wait()
        self.scratch.cleanup()

    def wait_end(self):
        wait_for(lambda: self.program.poll() is not None, "the end of the program")
        assert self.program.returncode == 0, f"the program ended with {self.program.returncode}"

    # Windows.

    def height(self, *panels):
        return sum(self.places[panel]["."][3] for panel in panels)

    def find(self):
        """The rack's window, once all its panels are in it."""
        return self.find_sized("HMonitor", self.places["Form1"]["."][2], self.height(*PANELS))

    def find_sized(self, title, wide, high):
        if self.program.poll() is not None:
            raise AssertionError(f"the program ended with {self.program.returncode}")
        for window in self.screen.windows(title):
            _, _, width, height = self.screen.box(window)
            if height and abs(width / height - wide / high) < 0.02:
                return window
        return None

    TITLES = {"FormModoDemo": "HMonitor", "Form_bTuner": "Remote Control",
              "Form_NewSpectro": "Spectrum", "Form_D1": "Spectrum",
              "FormD1a": "Modulation Bandwidth", "Form_Dd3": "Frecuency response",
              "Form_BandSCanner": "Band Scanner", "Form_D4A": "Analyze data",
              "Form15": "Text Mode", "Form4": "On-Air Performance Log",
              "frmSpectrumAnalizer": "3D Spectrum Analyzer", "Form_PrintBandScan": "Form5",
              "Form7": "Frecuency response", "Form6": "Spectrum",
              "FormD1aP": "Modulation Bandwidth"}

    def title(self, form):
        if form == "Form_bSetMemories":
            return "Memorias" if self.spanish else "Memory Presets"
        if form == "Form_History":
            return "HISTORIAL" if self.spanish_panels else "HISTORY"
        if form == "FormLimits":
            return "Límites de las medidas" if self.spanish_panels else "Limits of the figures"
        if form == "frmEditMeasurement":
            return ("Información de Medición Espectral" if self.spanish_panels
                    else "Spectral Mesaurement information")
        return self.TITLES[form]

    def opened(self, form):
        """The window of a form, or None."""
        if form in PANELS:
            return self.window
        _, _, wide, high = self.places[form]["."]
        found = self.find_sized(self.title(form), wide, high)
        if not found and form in self.UNFOLDED:
            found = self.find_sized(self.title(form), self.UNFOLDED[form], high)
        return found

    # Widths of windows that can be made wider, in twips.
    UNFOLDED = {"Form_bSetMemories": 7700}

    def wait_open(self, form):
        return wait_for(lambda: self.opened(form), f"the window of {form}")

    def wait_closed(self, form):
        """Until it is gone and the program has done what follows: in the moment of its going the
        windows below take no key yet."""
        wait_for(lambda: not self.opened(form), f"the end of the window of {form}")
        if self.window and self.program.poll() is None:
            self.screen.x.has_come_round(self.window, 2)

    # Controls.

    def box(self, form, control):
        """Where a control stands on the screen, in pixels."""
        window = wait_for(lambda: self.opened(form), f"the window of {form}")
        left, top, _, height = self.screen.box(window)
        panels = PANELS if form in PANELS else (form,)
        unit = height / self.height(*panels)
        x, y, wide, high = self.places[form][control]
        if form in PANELS:
            y += self.height(*PANELS[:PANELS.index(form)])
        return (round(left + x * unit), round(top + y * unit), round(wide * unit),
                round(high * unit))

    def point(self, form, control, across=0.5, down=0.5):
        left, top, width, height = self.box(form, control)
        return round(left + across * width), round(top + down * height)

    def click(self, form, control, across=0.5, down=0.5):
        self.screen.activate(self.wait_open(form))
        self.screen.click(*self.point(form, control, across, down))

    def open_list(self, form, control):
        """Opens a list by a click and waits until it stands. A release that the program sees long
        after the press chooses from the list and closes it: then it is opened again."""
        x = self.screen.x

        def stands():
            self.click(form, control)
            end = time.monotonic() + 3
            while not x.popups() and time.monotonic() < end:
                time.sleep(0.02)
            return x.has_come_round(self.window, 20) and x.popups()

        wait_for(stands, f"the list of {form}.{control}")

    def look(self, form, control):
        """The pixels of a control."""
        return self.screen.pixels.area(*self.box(form, control))

    def steady_look(self, form, control):
        """The pixels of a control once they stand still, so that nothing is half drawn."""
        seen = []

        def still():
            seen.append((self.box(form, control), self.look(form, control)))
            return len(seen) > 4 and len(set(seen[-4:])) == 1

        wait_for(still, f"{form}.{control} to stand still")
        return seen[-1][1]

    def colour(self, form, control, across=0.5, down=0.5):
        return self.screen.pixels.colour(*self.point(form, control, across, down))

    def is_lit(self, form, control):
        """Whether a key is chosen: light, not dark; checked beside its caption."""
        return max(self.colour(form, control, 0.1, 0.75)) > 140

    def is_signed(self, panel):
        """Whether there is amber text in the head of a panel."""
        area = self.look(panel, "Sign")
        return sum(1 for at in range(0, len(area), 4)
                   if area[at + 2] > 215 and 140 < area[at + 1] < 190 and area[at] < 60) > 30

    def type(self, form, *keys):
        self.screen.activate(self.wait_open(form))
        self.screen.type(*keys)

    def has_focus(self, form, control):
        """Whether a control shows the focus ring, which is amber."""
        left, top, width, height = self.box(form, control)
        area = self.screen.pixels.area(left, top, width, height)
        amber = sum(1 for at in range(0, len(area), 4)
                    if area[at + 2] > 215 and 140 < area[at + 1] < 215 and area[at] < 110)
        return amber > (width + height) / 2

    def expect_focus(self, form, control, key):
        """A key brings the focus to a control: its look changes."""
        before = self.look(form, control)
        self.screen.type(key)
        wait_for(lambda: self.look(form, control) != before, f"the focus on {form}.{control}")

    def tab_to(self, form, control):
        """Presses Tab until a control has the focus."""
        for _ in range(40):
            if self.has_focus(form, control):
                return
            before = self.look(form, ".")
            self.screen.type("Tab")
            wait_for(lambda: self.look(form, ".") != before, "the focus further on")
        raise AssertionError(f"no Tab leads to {form}.{control}")

    def wait_focus(self, form, control):
        wait_for(lambda: self.has_focus(form, control), f"the focus on {form}.{control}")

    # Message boxes of the program; they are titled as it is.

    def boxes(self):
        return [window for window in self.screen.windows("HMonitor") if window != self.window]

    def answer_box(self, said, look=lambda: None, title=None):
        """Waits for a message box, checks it and answers it by keyboard."""

        def standing():
            return self.screen.windows(title) if title else self.boxes()

        def has_keyboard():
            boxes = standing()
            if boxes and self.screen.x.active() in boxes:
                return True
            if boxes:
                self.screen.x.activate(boxes[0])
            return False

        wait_for(has_keyboard, said)
        look()
        self.screen.type("Return")
        wait_for(lambda: not standing(), "the end of " + said)

    def answer_dialog(self, title, text, look=lambda: None):
        """Types a text in place of the one that a dialog proposes, and accepts it."""

        def has_keyboard():
            standing = self.screen.windows(title)
            if standing and self.screen.x.active() in standing:
                return True
            if standing:
                self.screen.x.activate(standing[0])
            return False

        wait_for(has_keyboard, f"the dialog {title}")
        look()
        self.screen.type("ctrl+a")
        self.screen.type_text(text)
        self.screen.type("Return")
        wait_for(lambda: not self.screen.windows(title), f"the end of the dialog {title}")

    # What the rack does.

    def line(self, number):
        """A line of the panel settings; empty while the file is being rewritten."""
        try:
            lines = (self.folder / "hm-16.dat").read_bytes().split(b"\r\n")
        except FileNotFoundError:
            return ""
        return lines[number].decode() if len(lines) == 9 else ""

    def wait_line(self, number, wanted, said):
        wait_for(lambda: self.line(number) == wanted, said)

    def wait_measuring(self):
        """Waits until level bars move: the unit is tuned and the panel's timer runs."""
        before = self.look("Form_B", "LevelWell")
        wait_for(lambda: self.look("Form_B", "LevelWell") != before, "level bars that move")

    def wait_back(self):
        """Waits until the rack takes keys again, and measures."""
        wanted = "1" if self.line(DETECTOR) == "0" else "0"
        key = "Image_Average" if wanted == "1" else "Image6"

        def taken():
            self.click("Form1", key)
            return self.line(DETECTOR) == wanted

        wait_for(taken, "a rack that takes keys again")
        self.wait_measuring()

    def digit(self, form, lines):
        """The figure that seven segments show, None for none, a text while they change. Lines are
        the names of the segments' controls."""
        lit = "".join(str(place) for place, name in enumerate(lines)
                      if max(self.colour(form, name)) > 160)
        return {"": None, "012346": 0, "34": 1, "02456": 2, "23456": 3, "1345": 4, "12356": 5,
                "012356": 6, "346": 7, "1346": 7, "0123456": 8, "123456": 9, "13456": 9}.get(lit, lit)

    def memory(self):
        """The memory number on the rack's digits, None while they are dark."""
        units = self.digit("Form_B", [f"Line{n}" for n in range(22, 29)])
        ten = max(self.colour("Form_B", "Line46")) > 160
        return units + (10 if ten else 0) if isinstance(units, int) else units

    def presets(self):
        """The memories that hold a station: {number: frequency text}."""
        block = (self.folder / "halden.dat").read_bytes()
        stored = {n: block[16 * n + 11:16 * n + 16].decode().strip() for n in range(1, 17)}
        return {n: text for n, text in stored.items() if text}
