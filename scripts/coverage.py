#!/usr/bin/env python3
"""Prints lines and branches reached per source, from what the coverage build's tests left behind.

coverage.py [--uncovered] [DIRECTORY...]   (default: frame objects gateway tools)
"""

import argparse
import json
import subprocess
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "coverage"


def reports():
    data = sorted(str(path) for path in BUILD.rglob("*.gcda"))
    if not data:
        return
    command = ["i686-linux-gnu-gcov", "--json-format", "--stdout", "--branch-probabilities", *data]
    output = subprocess.run(command, cwd=BUILD, check=True, capture_output=True, text=True).stdout
    for line in output.splitlines():
        if line.strip():
            yield from json.loads(line)["files"]


def collect(directories):
    """{source: {line: [hits, {branch: hits}]}}, the same line of several translation units added up."""
    sources = defaultdict(lambda: defaultdict(lambda: [0, defaultdict(int)]))
    for report in reports():
        path = (BUILD / report["file"]).resolve()
        if not path.is_relative_to(ROOT) or path.relative_to(ROOT).parts[0] not in directories:
            continue
        for line in report["lines"]:
            entry = sources[str(path.relative_to(ROOT))][line["line_number"]]
            entry[0] += line["count"]
            for index, branch in enumerate(line["branches"]):
                if not branch["throw"]:
                    entry[1][index] += branch["count"]
    return sources


def share(reached, total):
    return f"{reached:5d}/{total:<5d} {100 * reached / total if total else 100:5.1f}%"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--uncovered", action="store_true", help="name the lines that no test reaches")
    parser.add_argument("directories", nargs="*", default=["frame", "objects", "gateway", "tools"])
    options = parser.parse_args()
    total = [0, 0, 0, 0]
    print(f"{'':48} {'lines':>19} {'branches':>19}")
    for source, lines in sorted(collect(options.directories).items()):
        branches = [hits for line in lines.values() for hits in line[1].values()]
        row = [sum(1 for line in lines.values() if line[0]), len(lines),
               sum(1 for hits in branches if hits), len(branches)]
        total = [a + b for a, b in zip(total, row)]
        print(f"{source:48} {share(*row[:2]):>19} {share(*row[2:]):>19}")
        if options.uncovered:
            for number in sorted(n for n, line in lines.items() if not line[0]):
                print(f"  {source}:{number}")
    print(f"{'total':48} {share(*total[:2]):>19} {share(*total[2:]):>19}")


if __name__ == "__main__":
    main()
