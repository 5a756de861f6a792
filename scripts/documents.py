#!/usr/bin/env python3
"""Keeps what README.md and docs/*.md show of the command equal to what it prints.

documents.py           runs the commands of every ```console block and writes their output below them
documents.py --check   compares instead, and ends with an error where they differ

A block's commands share one gateway directory. `$ make run` stands for the tour.
"""

import difflib
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BLOCK = re.compile(r"^```console\n(.*?)^```$", re.MULTILINE | re.DOTALL)
# Where in its source a log line stands changes with every edit of that source.
SOURCE_LINE = re.compile(r"(_pmapi\.c|_samples\.c):\d+ ")


def output_of(command, directory):
    if command == "make run":
        command = "examples/../scripts/tour.sh"
    script = f'pmapi() {{ "$PMAPI" --root "$PWD/root" "$@"; }}\n{command}\n'
    done = subprocess.run(["bash", "-c", script], cwd=directory, text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT,
                          env={**os.environ, "PMAPI": str(ROOT / "build/host/bin/pmapi")})
    return done.stdout if done.stdout.endswith("\n") or not done.stdout else done.stdout + "\n"


def commands_of(block):
    lines = block.splitlines()
    # The tour prints commands of its own.
    return [lines[0]] if lines[0] == "$ make run" else [line for line in lines if line.startswith("$ ")]


def played(match):
    with tempfile.TemporaryDirectory() as directory:
        (Path(directory) / "examples").symlink_to(ROOT / "examples")
        (Path(directory) / "root").mkdir()
        block = "".join(f"{line}\n{output_of(line[2:], directory)}" for line in commands_of(match[1]))
    block = "\n".join(line.rstrip() for line in block.splitlines())
    return f"```console\n{block}\n```"


def main():
    check = "--check" in sys.argv
    different = False
    for page in [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]:
        old = page.read_text()
        new = BLOCK.sub(played, old)
        if not check:
            page.write_text(new)
            continue
        before, after = (SOURCE_LINE.sub(r"\1: ", text).splitlines() for text in (old, new))
        for line in difflib.unified_diff(before, after, str(page.relative_to(ROOT)), "what is printed", lineterm=""):
            different = True
            print(line)
    if different:
        sys.exit("documents: a page does not show what the command prints; run scripts/documents.py")


if __name__ == "__main__":
    main()
