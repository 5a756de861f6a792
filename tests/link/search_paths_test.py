#!/usr/bin/env python3
"""Links tiny libraries with one search path each and sees which of them the checker reports.

search_paths_test.py CHECKER C++-COMPILER [FLAG...]
"""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ALLOWED = ["/usr/lib", "$ORIGIN", "$ORIGIN/../lib:/opt/lib"]
REPORTED = {"$ORIGIN/../lib::": "", "lib": "lib", "/usr/lib:./lib": "./lib", "$ORIGINAL": "$ORIGINAL"}


class SearchPaths(unittest.TestCase):
    def check(self, path):
        with tempfile.TemporaryDirectory() as directory:
            if path is not None:
                subprocess.run([*COMPILER, "-x", "c++", "/dev/null", "-shared", "-nostdlib", f"-Wl,-rpath,{path}",
                                "-o", str(Path(directory) / "libtiny.so")], check=True)
            return subprocess.run([CHECKER, directory], capture_output=True, text=True)

    def test_fixed_directories_pass(self):
        for path in ALLOWED:
            with self.subTest(path):
                result = self.check(path)
                self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_entries_that_depend_on_the_working_directory_are_reported(self):
        for path, entry in REPORTED.items():
            with self.subTest(path):
                result = self.check(path)
                self.assertIn(f'libtiny.so looks for libraries in "{entry}"', result.stdout, result.stderr)
                self.assertEqual(result.returncode, 1, result.stderr)

    def test_an_empty_tree_is_no_pass(self):
        self.assertEqual(self.check(None).returncode, 1)


if __name__ == "__main__":
    CHECKER, *COMPILER = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
