# SPDX-License-Identifier: GPL-3.0-or-later
"""Cases of the program on a screen: each is one test, in each of its languages and sizes.

    FILE list                    names what there is, one a line
    FILE RUN TREE BUILD [FOLDER] runs it; pictures go to FOLDER, BUILD/pictures if not given
"""

import os
import pathlib
import sys
from dataclasses import dataclass, field

from rack import Rack
from screen import Screen

SPANISH, PORTUGUESE, ENGLISH = "es_AR", "pt_BR", "en_US"
THREE = (SPANISH, PORTUGUESE, ENGLISH)
TWO = (SPANISH, ENGLISH)


@dataclass
class Case:
    """How a case is run. Sizes of the screen are in pixels, at factor 1 if it grows with it."""
    steps: callable
    languages: tuple
    factors: tuple
    sizes: tuple
    grows: bool
    units: tuple = field(default_factory=lambda: ({},))  # settings of the unit; one run each
    started: bool = True
    managed: bool = True  # a window manager runs
    shared: bool = True  # the screen may be one that another case used

    def runs(self):
        for language in self.languages:
            for size in self.sizes:
                for factor in self.factors:
                    for unit in self.units:
                        name = [self.steps.__name__, language]
                        if len(self.sizes) > 1:
                            name.append("x".join(str(side) for side in size))
                        if len(self.factors) > 1:
                            name.append(str(factor))
                        if len(self.units) > 1:
                            name += [str(value) for value in unit.values()]
                        scaled = factor if self.grows else 1
                        yield (".".join(name), language, factor, unit,
                               tuple(round(side * scaled) for side in size))


class Album:
    """Where the pictures of a run go."""

    def __init__(self, folder, run):
        self.folder, self.run = folder, run.replace(".", "_")

    def take(self, screen, name):
        screen.picture(self.folder / f"{name}_{self.run}.png")


CASES = []


def case(languages=TWO, factors=(1,), sizes=((1300, 900),), grows=True, units=({},),
         started=True, managed=True, shared=True):
    """Makes a function of (rack, album) a case."""

    def register(steps):
        CASES.append(Case(steps, languages, factors, sizes, grows, units, started, managed,
                          shared))
        return steps

    return register


def run_case(chosen, name, language, factor, unit, size, paths):
    tree, build, folder = paths
    folder.mkdir(parents=True, exist_ok=True)
    album = Album(folder, name)
    screen = Screen(*size, managed=chosen.managed, shared=chosen.shared)
    rack, clean = None, False
    try:
        rack = Rack(tree, build, screen, language, factor, unit)
        if chosen.started:
            rack.start()
        chosen.steps(rack, album)
        clean = True
    except AssertionError:
        screen.picture(folder / f"failed_{name}.png")
        raise
    finally:
        if rack:
            rack.end()
        screen.close(clean)


def main():
    runs = {run[0]: (one, *run) for one in CASES for run in one.runs()}
    if sys.argv[1] == "list":
        print("\n".join(runs))
        return
    os.umask(0o077)
    tree, build = (pathlib.Path(path).resolve() for path in sys.argv[2:4])
    folder = pathlib.Path(sys.argv[4]).resolve() if len(sys.argv) > 4 else build / "pictures"
    run_case(*runs[sys.argv[1]], (tree, build, folder))
