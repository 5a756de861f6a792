#!/usr/bin/python3
"""search-paths.py DIRECTORY: checks where the programs and libraries of a build tree look for their libraries.

An empty or relative entry of a search path means the directory that a program is started in: whoever can
write there has code run. Prints one line per such entry and exits 1, or one summary line and exits 0.
"""

import re
import sys
from pathlib import Path

from elftools.common.exceptions import ELFError
from elftools.elf.elffile import ELFFile

FIXED = re.compile(r"/|\$ORIGIN(/|$)|\$\{ORIGIN\}(/|$)")


def search_path(file):
    """The entries of a linked file's search path; None for any other file."""
    try:
        dynamic = ELFFile(file).get_section_by_name(".dynamic")
    except ELFError:
        return None
    if dynamic is None:
        return None
    paths = [getattr(tag, "rpath", None) or getattr(tag, "runpath", None) for tag in dynamic.iter_tags()]
    return [entry for path in paths if path for entry in path.split(":")]


def main():
    files, problems = 0, 0
    for path in sorted(Path(sys.argv[1]).rglob("*")):
        if path.is_symlink() or not path.is_file() or path.suffix in (".o", ".a"):
            continue
        with path.open("rb") as file:
            entries = search_path(file)
        files += entries is not None
        for entry in entries or []:
            if not FIXED.match(entry):
                problems += 1
                print(f"search-paths: {path} looks for libraries in \"{entry}\"")
    if problems or not files:
        sys.exit(1)
    print(f"search-paths: {files} files")


if __name__ == "__main__":
    main()
