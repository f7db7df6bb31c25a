#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What ./test may leave out: programs that passed and depend on nothing that has changed."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "passed_before.py"
LOG = """      Start 1: core.Numbers.Round
1/3 Test #1: core.Numbers.Round ............   Passed    0.01 sec
2/3 Test #2: audio.Bar.Falls ............{}    0.01 sec
3/3 Test #3: audio.All/Bar.Rises/Spanish  # GetParam() = "es_AR" ...   Passed    0.01 sec
"""


class PassedBefore(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.tree = pathlib.Path(self.folder.name).resolve()
        subprocess.run(["git", "init", "-q", self.tree], check=True)
        self.build = self.tree / "build"
        self.build.mkdir()
        self.library = self.write("build/hm-16.so", "a library")
        self.core = self.program("test_core", "")
        self.audio = self.program("test_audio", f"# loads {self.library}")
        self.write("build/CTestTestfile.cmake",
                   f'add_test(core.Numbers.Round "{self.core}")\n'
                   f'add_test(audio.Bar.Falls "{self.audio}")\n'
                   f'add_test([==[audio.All/Bar.Rises/Spanish  # GetParam() = "es_AR"]==] "{self.audio}")\n')
        self.write(".gitignore", "build/\n")
        self.data = self.write("install/table.txt", "1")
        self.source = self.write("core/numbers.cpp", "int one();")

    def tearDown(self):
        self.folder.cleanup()

    def write(self, name, text):
        path = self.tree / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text)
        return path

    def program(self, name, text):
        path = self.write(f"build/{name}", f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)
        return path

    def run_script(self, act, *more):
        done = subprocess.run([sys.executable, SCRIPT, act, self.build, self.build / "notes.json", *more],
                              cwd=self.tree, capture_output=True, text=True, check=True)
        return done.stdout.strip()

    def note(self, audio="   Passed"):
        self.run_script("note", self.write("build/log", LOG.format(audio)))

    def skipped(self):
        return self.run_script("skip")

    def test_runs_everything_at_first(self):
        self.assertEqual(self.skipped(), "")

    def test_leaves_out_what_passed(self):
        self.note()
        self.assertEqual(self.skipped(), r"^(audio\.|core\.)")

    def test_a_folder_with_a_script_of_its_own_is_left_out_by_suites(self):
        with open(self.build / "CTestTestfile.cmake", "a") as listed:
            listed.write('add_test(audio.ItCompiles "/bin/true")\n')
        self.note()
        self.assertEqual(self.skipped(), r"^(audio\.All/Bar\.|audio\.Bar\.|core\.)")

    def test_runs_again_what_failed(self):
        self.note(audio="***Failed")
        self.assertEqual(self.skipped(), r"^(core\.)")

    def test_a_later_failure_takes_a_pass_back(self):
        self.note()
        self.note(audio="***Failed")
        self.assertEqual(self.skipped(), r"^(core\.)")

    def test_runs_a_program_that_was_built_anew(self):
        self.note()
        self.program("test_core", "echo more")
        self.assertEqual(self.skipped(), r"^(audio\.)")

    def test_runs_what_names_a_library_that_was_built_anew(self):
        self.note()
        self.write("build/hm-16.so", "another library")
        self.assertEqual(self.skipped(), r"^(core\.)")

    def test_runs_everything_after_a_change_of_data(self):
        self.note()
        self.write("install/table.txt", "2")
        self.assertEqual(self.skipped(), "")

    def test_a_source_counts_by_what_is_built_of_it(self):
        self.note()
        self.write("core/numbers.cpp", "int two();")
        self.assertEqual(self.skipped(), r"^(audio\.|core\.)")

    def test_runs_everything_where_its_notes_are_torn(self):
        self.note()
        self.write("build/notes.json", '{"half')
        self.assertEqual(self.skipped(), "")


if __name__ == "__main__":
    unittest.main()
