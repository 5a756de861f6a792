#!/usr/bin/env python3
"""Checks where the programs and libraries of a build tree look for their libraries.

An empty or relative entry of a search path means the directory that a program is started in: whoever can
write there has code run. Prints one line per such entry and exits 1, or one summary line and exits 0.
"""

import argparse
import re
import subprocess
import sys
from pathlib import Path

ELF_MAGIC = b"\x7fELF"


def linked_files(directory):
    for path in sorted(Path(directory).rglob("*")):
        if path.is_symlink() or not path.is_file() or path.suffix in (".o", ".a"):
            continue
        with path.open("rb") as file:
            if file.read(len(ELF_MAGIC)) == ELF_MAGIC:
                yield path


def search_path(path, readelf):
    dynamic = subprocess.run([readelf, "--wide", "--dynamic", str(path)], check=True, capture_output=True,
                             text=True).stdout
    for entries in re.findall(r"\((?:RPATH|RUNPATH)\).*?\[(.*)\]", dynamic):
        yield from entries.split(":")


def is_fixed(entry):
    return re.match(r"(/|\$ORIGIN(/|$)|\$\{ORIGIN\}(/|$))", entry) is not None


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("directory")
    parser.add_argument("--readelf", default="readelf")
    options = parser.parse_args()
    files = list(linked_files(options.directory))
    problems = [f"{path} looks for libraries in \"{entry}\""
                for path in files for entry in search_path(path, options.readelf) if not is_fixed(entry)]
    for problem in problems:
        print(f"search-paths: {problem}")
    if problems or not files:
        return 1
    print(f"search-paths: {len(files)} files")
    return 0


if __name__ == "__main__":
    sys.exit(main())
