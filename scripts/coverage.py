#!/usr/bin/env python3
"""Prints the lines and branches per source that the coverage build's tests have reached, and names the rest.

coverage.py [DIRECTORY...]   (default: frame objects, the library)

Of the library every line must be reached and 95 % of the branches, and a branch that is not must be excused
in tests/unreached.txt, with the reason; so must nothing else. Ends with an error otherwise.
"""

import argparse
import json
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "coverage"
EXCUSES = ROOT / "tests" / "unreached.txt"
LIBRARY = ["frame", "objects"]
BRANCHES_WANTED = 95


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


def print_table(sources):
    """Prints a row per source; returns the total's [lines, all lines, branches, all branches]."""
    total = [0, 0, 0, 0]
    print(f"{'':48} {'lines':>19} {'branches':>19}")
    for source, lines in sorted(sources.items()):
        branches = [hits for line in lines.values() for hits in line[1].values()]
        row = [sum(1 for line in lines.values() if line[0]), len(lines),
               sum(1 for hits in branches if hits), len(branches)]
        total = [a + b for a, b in zip(total, row)]
        print(f"{source:48} {share(*row[:2]):>19} {share(*row[2:]):>19}")
    print(f"{'total':48} {share(*total[:2]):>19} {share(*total[2:]):>19}")
    return total


def unreached(sources):
    """(source, line number, what is not reached, text of the line) for each line and branch without a hit."""
    for source, lines in sorted(sources.items()):
        texts = (ROOT / source).read_text(encoding="utf-8").splitlines()
        for number, (hits, branches) in sorted(lines.items()):
            missed = sum(1 for count in branches.values() if not count)
            if not hits:
                yield source, number, "line", texts[number - 1].strip()
            elif missed:
                yield source, number, f"{missed} of {len(branches)} branches", texts[number - 1].strip()


def excuses():
    """{(source, text of the line): reason}, from blocks of "SOURCE: TEXT" and an indented reason."""
    found = {}
    for line in EXCUSES.read_text(encoding="utf-8").splitlines():
        if line.startswith("#") or not line.strip():
            continue
        if not line.startswith(" "):
            source, text = line.split(": ", 1)
            place = (source, text)
            found[place] = ""
        else:
            found[place] = f"{found[place]} {line.strip()}".strip()
    return found


def judge(sources, total):
    """Prints what is left with its reason; returns what is wrong with it."""
    excused = excuses()
    wrong = []
    print("\nnot reached:")
    for source, number, what, text in unreached(sources):
        reason = excused.get((source, text), "")
        print(f"{source}:{number}: {what}: {text}\n    {reason or '(no reason given)'}")
        if what == "line" or not reason:
            wrong.append(f"{source}:{number}: {what} not reached")
    left = {(source, text) for source, _, _, text in unreached(sources)}
    wrong += [f"{source}: is reached, but excused: {text}" for source, text in excused if (source, text) not in left]
    if 100 * total[2] < BRANCHES_WANTED * total[3]:
        wrong.append(f"less than {BRANCHES_WANTED} % of the branches are reached")
    return wrong


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("directories", nargs="*", default=LIBRARY)
    options = parser.parse_args()
    sources = collect(options.directories)
    if not sources:
        sys.exit("coverage: nothing was measured; scripts/coverage.sh builds and runs the tests")
    total = print_table(sources)
    if options.directories != LIBRARY:
        return
    wrong = judge(sources, total)
    for problem in wrong:
        print(f"coverage: {problem}")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
