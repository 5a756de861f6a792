#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a configured build, in parallel. Tests are left out: they are a third
of the sources, and what clang-tidy finds there the tests themselves would show.

What passed is remembered by content, so that a second run has nothing to do: a source is checked again when
it, a header of the tree or the list of checks has changed.
"""

import hashlib
import json
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "sanitize"
STAMPS = ROOT / "build" / "tidy"


def sources():
    commands = json.loads((BUILD / "compile_commands.json").read_text())
    files = {Path(entry["file"]) for entry in commands}
    left_out = {BUILD, ROOT / "tests"}
    return sorted(file for file in files if left_out.isdisjoint(file.parents))


def shared_digest():
    digest = hashlib.sha256((ROOT / ".clang-tidy").read_bytes())
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h", "*.hpp"],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()
    for header in listed:
        path = ROOT / header
        if path.exists():
            digest.update(header.encode() + path.read_bytes())
    return digest


def check(file, shared):
    digest = shared.copy()
    digest.update(str(file.relative_to(ROOT)).encode() + file.read_bytes())
    stamp = STAMPS / digest.hexdigest()
    if stamp.exists():
        return 0, ""
    result = subprocess.run(["clang-tidy", "--quiet", "-p", str(BUILD), str(file)],
                            capture_output=True, text=True)
    if result.returncode == 0:
        stamp.touch()
    return result.returncode, result.stdout


def main():
    STAMPS.mkdir(parents=True, exist_ok=True)
    shared = shared_digest()
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda file: check(file, shared), sources()))
    failed = [output for status, output in results if status != 0]
    print("".join(failed), end="")
    print(f"clang-tidy: {len(results)} files, {len(failed)} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
