#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Exports: numbers and pictures of charts, and pages as PDFs, saved by keys through a dialog."""

import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree

sys.dont_write_bytecode = True
from cases import TWO, case, main
from screen import wait_for

SCANNER, LOG, PAGE = "Form_BandSCanner", "Form_D4A", "Form4"


def words_of(pdf):
    told = subprocess.run(["pdftotext", "-layout", str(pdf), "-"], check=True, capture_output=True,
                          text=True).stdout
    return " ".join(told.split())


def save_as(rack, album, title, name):
    """Types a name into the dialog of that title and waits for the file."""
    file = rack.folder / name
    rack.answer_dialog(title, str(file), lambda: album.take(rack.screen, "dialog_" + name))
    wait_for(lambda: file.exists() and file.stat().st_size > 0, "the file " + name)
    left = [other.name for other in rack.folder.iterdir() if other.name.startswith(name + ".")]
    assert not left, f"left beside {name}: {left}"
    shutil.copy(file, album.folder / f"{file.stem}_{album.run}{file.suffix}")
    return file


@case(languages=TWO)
def numbers_and_pictures_of_a_chart(rack, album):
    rack.click("Form_D", "Image2")
    rack.screen.activate(rack.wait_open(SCANNER))
    rack.steady_look(SCANNER, "ChartView")
    title = "Guardar" if rack.spanish_panels else "Save"
    head = "Frecuencia (MHz),Nivel (dBuV)" if rack.spanish_panels else "Frequency (MHz),Level (dBuV)"

    rack.type(SCANNER, "ctrl+s")
    csv = save_as(rack, album, title, "scan.csv").read_bytes().decode()
    lines = csv.split("\r\n")
    assert lines[-1] == "" and len(lines) == 105, f"{len(lines)} lines"
    assert re.fullmatch(re.escape(head) + r",.* \d+(\.\d+)? MHz \d{4}-\d\d-\d\d", lines[0]), lines[0]
    for line in lines[1:-1]:
        assert re.fullmatch(r"(\d+(\.\d+)?)?,-?\d+,", line), line

    rack.type(SCANNER, "ctrl+s")
    png = save_as(rack, album, title, "scan.png").read_bytes()
    assert png.startswith(b"\x89PNG"), "no PNG"
    wide = int.from_bytes(png[16:20], "big")
    _, _, width, _ = rack.box(SCANNER, "ChartWell")
    assert wide > 3 * width, f"{wide} pixels for a chart twice as wide as its well of {width}"

    rack.type(SCANNER, "ctrl+s")
    svg = xml.etree.ElementTree.fromstring(save_as(rack, album, title, "scan.svg").read_bytes())
    texts = {text.text for text in svg.iter("{http://www.w3.org/2000/svg}text")}
    assert {"100", "30", "dB", "88.1", "107.1", ".9"} <= texts, f"the words are {texts}"
    assert "Print Mode" not in texts, "keys stand in the picture"


@case(languages=TWO)
def pages_as_pdf(rack, album):
    title = "Guardar como PDF" if rack.spanish_panels else "Save as PDF"
    album.take(rack.screen, "rack")
    rack.click("Form1", "KeyPdf")
    words = words_of(save_as(rack, album, title, "rack.pdf"))
    for word in ("MHz", "GOOD", "PRINT", "Multipath"):
        assert word in words, f"{word} is not on the rack's page"

    rack.click("Form_D", "Image4")
    rack.wait_open(LOG)
    rack.click(LOG, "SSCommand1")
    rack.wait_open(PAGE)
    rack.click(PAGE, "KeyPdf")
    words = words_of(save_as(rack, album, title, "day.pdf"))
    for word in ("On-Air Performance Log:", "Modulation", "Inverted Phase"):
        assert word in words, f"{word} is not on the day's page"
    album.take(rack.screen, "page")


main()
