#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""packaging_test.py BUILD CMAKE SUITE: what an installed system has of the program."""
import configparser
import json
import os
import pathlib
import re
import signal
import stat
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

TOP = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = TOP / "packaging"
SIZES = [16, 22, 24, 32, 48, 64, 128, 256, 512]
COMMANDS = ["hmonitor", "hmonitor-radio", "hmonitor-simulated"]
TOOLS = ["hm16-probe", "hm16-synth"]


def said_by(*command):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)
    return done.returncode, done.stdout


class Installed(unittest.TestCase):
    """Everything that the lists name, and nothing else."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.root = pathlib.Path(cls.folder.name)
        code, said = said_by(cmake, "--install", build, "--prefix", cls.root / "usr")
        assert code == 0, said
        cls.files = {str(path.relative_to(cls.root)) for path in cls.root.rglob("*")
                     if path.is_file()}

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def mode(self, name):
        return stat.S_IMODE((self.root / name).stat().st_mode)

    def test_commands_and_tools(self):
        self.assertEqual({name for name in self.files if name.startswith("usr/bin/")},
                         {f"usr/bin/{name}" for name in COMMANDS + TOOLS})
        for name in COMMANDS + TOOLS:
            self.assertEqual(self.mode(f"usr/bin/{name}"), 0o755, name)

    def test_nothing_installed_reaches_for_a_network(self):
        looked = 0
        for name in sorted(self.files):
            if (self.root / name).read_bytes()[:4] != b"\x7fELF":
                continue
            code, said = said_by("nm", "--dynamic", "--undefined-only", self.root / name)
            self.assertEqual(code, 0, said)
            calls = {line.split()[-1].split("@")[0] for line in said.splitlines()}
            self.assertFalse(calls & {"socket", "connect", "bind", "listen", "getaddrinfo", "gethostbyname"},
                             name)
            libraries = said_by("readelf", "--dynamic", "--wide", self.root / name)[1]
            self.assertNotRegex(libraries, r"Qt6Network|libcurl|libssl", name)
            looked += 1
        self.assertGreaterEqual(looked, 7)

    def test_each_unit_has_program_library_help_and_first_contents(self):
        first = {path.name for path in (TOP / "install").glob("*") if path.is_file()} - {"hm-16.ini"}
        self.assertEqual(first, {"Hm-res.dat", "halden.dat", "hm-16.dat", "hm-16.hlp", "normal.hm",
                                 "scan.dat"})
        days = {path.name for path in (TOP / "drivers/simulated/logs").glob("*.log")}
        self.assertEqual(len(days), 3)
        program = {"hmonitor", "hm16-host"} | first
        units = {"unit": program,
                 "simulated": program | {"hm-16.so", "hm-16.ini"} | days,
                 "radio": program | {"hm-16.so", "hm-16.ini", "hm16-survey"}}
        self.assertEqual({name for name in self.files if name.startswith("usr/lib/")},
                         {f"usr/lib/hmonitor/{unit}/{name}" for unit in units for name in units[unit]})

    def test_the_program_would_load_the_libraries(self):
        for unit in ["simulated", "radio"]:
            self.assertEqual(self.mode(f"usr/lib/hmonitor/{unit}/hm-16.so") & 0o022, 0, unit)

    def test_the_radios_settings_ask_for_a_radio(self):
        settings = (self.root / "usr/lib/hmonitor/radio/hm-16.ini").read_text()
        self.assertEqual(re.findall(r"^source = (\w+)", settings, re.M), ["soapy"])

    def test_what_desktops_and_readers_look_for(self):
        for name in COMMANDS:
            self.assertIn(f"usr/share/applications/{name}.desktop", self.files)
        for size in SIZES:
            icon = (self.root / f"usr/share/icons/hicolor/{size}x{size}/apps/hmonitor.png").read_bytes()
            self.assertEqual(icon[:8], b"\x89PNG\r\n\x1a\n", size)
            self.assertEqual(struct.unpack(">II", icon[16:24]), (size, size))
        self.assertIn("usr/share/icons/hicolor/scalable/apps/hmonitor.svg", self.files)
        self.assertIn("usr/share/metainfo/org.hmonitor.hmonitor.metainfo.xml", self.files)
        for name in COMMANDS + TOOLS:
            self.assertIn(f"usr/share/man/man1/{name}.1.gz", self.files)
        for name in ["copyright", "changelog.gz", "driver.md"]:
            self.assertIn(f"usr/share/doc/hmonitor/{name}", self.files)


class Described(unittest.TestCase):
    """The files that describe the program agree with one another."""

    def version(self):
        return re.search(r"project\(hmonitor VERSION ([0-9.]+)", (TOP / "CMakeLists.txt").read_text())[1]

    def test_menu_entries(self):
        entries = sorted(PACKAGING.glob("*.desktop"), key=lambda path: path.stem)
        self.assertEqual([path.stem for path in entries], COMMANDS)
        code, said = said_by("desktop-file-validate", *entries)
        self.assertEqual((code, said), (0, ""))
        names = []
        for path in entries:
            entry = configparser.RawConfigParser()
            entry.optionxform = str
            entry.read(path)
            entry = entry["Desktop Entry"]
            names.append(entry["Name"])
            self.assertEqual((entry["Exec"], entry["TryExec"], entry["Icon"]),
                             (path.stem, path.stem, "hmonitor"))
            for key in ["Name", "GenericName", "Comment", "Keywords"]:
                self.assertTrue(entry[f"{key}[es]"], key)
        self.assertEqual(names, ["HMonitor", "HMonitor (radio)", "HMonitor (simulated unit)"])

    def test_metadata_of_stores(self):
        page = PACKAGING / "org.hmonitor.hmonitor.metainfo.xml"
        code, said = said_by("appstreamcli", "validate", "--no-net", "--pedantic", page)
        self.assertEqual(code, 0, said)
        tree = xml.etree.ElementTree.parse(page)
        self.assertEqual({binary.text for binary in tree.iter("binary")}, set(COMMANDS + TOOLS))
        self.assertEqual(tree.find("launchable").text, "hmonitor.desktop")
        self.assertEqual(tree.find("releases/release").get("version"), self.version())

    def test_pages_of_the_manual(self):
        for name in COMMANDS + TOOLS:
            page = PACKAGING / "man1" / f"{name}.1"
            code, said = said_by("groff", "-Tutf8", "-man", "-ww", "-z", "-I", PACKAGING, page)
            self.assertEqual((code, said), (0, ""), name)
        text = (PACKAGING / "man1/hmonitor.1").read_text()
        for option in ["folder", "help", "version"]:
            self.assertIn(f"\\-\\-{option}", text)
        for tool in TOOLS:
            page = (PACKAGING / "man1" / f"{tool}.1").read_text().replace("\\-", "-")
            found = list(pathlib.Path(build).rglob(tool))
            code, told = said_by(found[0], "--help")
            for option in set(re.findall(r"--[a-z]+", told)):
                self.assertIn(option, page, f"{tool} {option}")

    def test_versions_agree(self):
        version = self.version()
        self.assertTrue((PACKAGING / "changelog").read_text().startswith(f"hmonitor ({version}) "))
        for page in (PACKAGING / "man1").glob("*.1"):
            text = page.read_text()
            if ".TH " in text:
                self.assertIn(f'"HMonitor {version}"', text, page.name)


class Started(unittest.TestCase):
    """Which program each command starts, and in which folder."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.root = pathlib.Path(self.folder.name).resolve()
        (self.root / "bin").mkdir()
        for unit in ["unit", "radio", "simulated"]:
            self.program(unit, "hmonitor", 'printf "%s" "$0"; printf " [%s]" "$@"')
            (self.root / f"lib/hmonitor/{unit}/halden.dat").write_text("shipped")
        self.home = self.root / "home"
        self.home.mkdir()

    def tearDown(self):
        self.folder.cleanup()

    def program(self, unit, name, text):
        path = self.root / "lib/hmonitor" / unit / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("#!/bin/sh\n" + text + "\n")
        path.chmod(0o755)

    def start(self, command, *words, **environment):
        path = self.root / "bin" / command
        path.write_bytes((PACKAGING / "start").read_bytes())
        path.chmod(0o755)
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.home), **environment}
        done = subprocess.run([path, *words], env={key: value for key, value in environment.items() if value},
                              stdout=subprocess.PIPE, text=True, check=True)
        program, _, told = done.stdout.partition(" ")
        return pathlib.Path(program).resolve().parent.name, told

    def test_each_kind_has_its_folder(self):
        data = self.home / ".local/share"
        self.assertEqual(self.start("hmonitor"), ("unit", f"[--folder] [{data}/hmonitor]"))
        self.assertEqual(self.start("hmonitor-simulated"),
                         ("simulated", f"[--folder] [{data}/hmonitor-simulated]"))
        self.assertEqual(self.start("hmonitor-simulated", "-style", "a b", XDG_DATA_HOME="/data"),
                         ("simulated", "[--folder] [/data/hmonitor-simulated] [-style] [a b]"))
        self.assertEqual(self.start("hmonitor", XDG_DATA_HOME="not/absolute"),
                         ("unit", f"[--folder] [{data}/hmonitor]"))
        self.assertEqual(self.start("hmonitor", HOME=""), ("unit", "[]"))

    def test_a_folder_that_is_named_stands(self):
        for words in [["--folder", "a b"], ["--folder=a"], ["--version"], ["--help"]]:
            self.assertEqual(self.start("hmonitor", *words),
                             ("unit", " ".join(f"[{word}]" for word in words)))

    def test_a_link_to_a_command_finds_its_units(self):
        self.start("hmonitor-simulated")
        link = self.root / "elsewhere-simulated"
        link.symlink_to(self.root / "bin/hmonitor-simulated")
        said = subprocess.run([link, "--version"], stdout=subprocess.PIPE, text=True, check=True).stdout
        self.assertIn("/simulated/hmonitor [--version]", said)

    def test_a_radios_strongest_stations_are_its_first_presets(self):
        self.program("radio", "hm16-survey", 'case $1 in --radios) exit 0 ;; esac\nprintf found >"$3"')
        data = self.home / ".local/share/hmonitor-radio"
        self.assertEqual(self.start("hmonitor-radio"), ("radio", f"[--folder] [{data}]"))
        self.assertEqual([(path.name, path.read_text()) for path in data.iterdir()],
                         [("halden.dat", "found")])
        (data / "halden.dat").write_text("the user's")
        self.start("hmonitor-radio")
        self.assertEqual((data / "halden.dat").read_text(), "the user's")

    def test_without_a_radio_or_a_station_nothing_is_laid(self):
        for survey in ["exit 1", 'case $1 in --radios) exit 0 ;; esac\nexit 1']:
            self.program("radio", "hm16-survey", survey)
            self.assertEqual(self.start("hmonitor-radio")[0], "radio")
            self.assertFalse((self.home / ".local/share/hmonitor-radio").exists())
            self.assertFalse((self.home / ".local/share/hmonitor-radio.new").exists())


class Hardened(unittest.TestCase):
    """What ./run and the package are built with, seen on a program with a hole."""

    HOLE = """#include <cstdio>
#include <cstring>
int main(int, char** words) {
    char room[16];
    std::strcpy(room, words[1]);
    std::puts(room);
}
"""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        tree = pathlib.Path(cls.folder.name)
        (tree / "hole.cpp").write_text(cls.HOLE)
        (tree / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.16)\nproject(hole LANGUAGES CXX)\n"
            f'include("{PACKAGING}/hardening.cmake")\nadd_executable(hole hole.cpp)\n')
        for words in (["-S", tree, "-B", tree / "built", "-DCMAKE_BUILD_TYPE=Release"],
                      ["--build", tree / "built"]):
            code, said = said_by(cmake, *words)
            assert code == 0, said
        cls.hole = tree / "built/hole"

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_an_overflow_ends_the_program(self):
        self.assertEqual(said_by(self.hole, "fits"), (0, "fits\n"))
        code, said = said_by("env", "LC_ALL=C", self.hole, "x" * 100)
        self.assertEqual(code, -signal.SIGABRT)
        self.assertIn("buffer overflow detected", said)

    def test_stack_relocations_and_address_are_guarded(self):
        code, said = said_by("env", "LC_ALL=C", "readelf", "--file-header", "--segments", "--dynamic", "--syms", "--wide", self.hole)
        self.assertEqual(code, 0, said)
        for guard in (r"Type:\s+DYN", r"GNU_RELRO", r"BIND_NOW|FLAGS_1.*NOW", r"__stack_chk_fail",
                      r"__strcpy_chk"):
            self.assertRegex(said, guard)

    def test_what_is_started_and_packed_is_built_so(self):
        presets = json.loads((TOP / "CMakePresets.json").read_text())["configurePresets"]
        run = next(preset for preset in presets if preset["name"] == "run")["cacheVariables"]
        self.assertEqual(run["HMONITOR_HARDENED"], "ON")
        self.assertEqual(run["CMAKE_BUILD_TYPE"], "Release")
        for name in ("run", "scripts/package"):
            self.assertIn("build_run", (TOP / name).read_text(), name)


class Built(unittest.TestCase):
    """What ./run says while it builds, and what it does only once."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.tree = pathlib.Path(self.folder.name).resolve()
        (self.tree / "CMakePresets.json").write_text("{}")
        self.cmake('for n in " 10" " 19" " 20" " 21" "100"; do echo "$n%|[1/9] a file"; done')

    def tearDown(self):
        self.folder.cleanup()

    def cmake(self, build):
        """A stand-in for CMake that notes its calls: the first configures, the second builds."""
        path = self.tree / "bin/cmake"
        path.parent.mkdir(exist_ok=True)
        path.write_text(f"""#!/bin/bash
echo "$@" >>'{self.tree}/calls'
case $1 in
  --preset) mkdir -p build/run; touch build/run/build.ninja ;;
  --build) {build} ;;
esac
""")
        path.chmod(0o755)

    def bash(self, line):
        done = subprocess.run(["bash", "-c", f"set -euo pipefail; . '{TOP}/scripts/packages.sh'; . '{TOP}/scripts/building.sh'; {line}"],
                              cwd=self.tree, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              env={**os.environ, "PATH": f"{self.tree}/bin:{os.environ['PATH']}"})
        return done.returncode, done.stdout

    def calls(self):
        return (self.tree / "calls").read_text().splitlines()

    def test_percents_are_said(self):
        self.assertEqual(self.bash("build_run"), (0, "Preparing the build\n" + "".join(
            f"Building HMonitor: {percent} %\n" for percent in [10, 20, 100])))
        self.assertEqual(self.calls(), ["--preset run", "--build build/run"])

    def test_what_was_prepared_is_not_prepared_again(self):
        self.bash("build_run")
        self.cmake("echo 'ninja: no work to do.'")
        self.assertEqual(self.bash("build_run"), (0, ""))
        self.assertEqual(self.calls()[2:], ["--build build/run"])
        later = (self.tree / "build/run/.prepared").stat().st_mtime + 5
        os.utime(self.tree / "CMakePresets.json", (later, later))
        self.bash("build_run")
        self.assertEqual(self.calls()[3:], ["--preset run", "--build build/run"])

    def test_a_failure_is_shown_and_ends_it(self):
        self.cmake("echo '  5%|[1/9] one'; echo 'FAILED: two.o'; echo 'two.cpp:1: error: no'; exit 1")
        code, said = self.bash("build_run && echo went on")
        self.assertEqual(code, 1)
        self.assertIn("FAILED: two.o\ntwo.cpp:1: error: no\n", said)
        self.assertIn(f"all that was said: {self.tree}/build/run/build.log", said)
        self.assertNotIn("went on", said)

    def test_missing_packages_are_named(self):
        self.assertEqual(self.bash("missing_packages bash no-such-package dpkg"), (0, "no-such-package\n"))
        self.assertEqual(self.bash("missing_packages bash dpkg"), (0, ""))


if __name__ == "__main__":
    build, cmake, suite = sys.argv[1:4]
    unittest.main(argv=[sys.argv[0], suite, *sys.argv[4:]])
