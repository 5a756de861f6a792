#!/usr/bin/env python3
"""Checks what the ARM build of libpmapi.so takes of a gateway, and prints it.

budgets.py BUILD: text of the library, writable data, stack of each function and use of the heap, read
from the library, its object files and the compiler's stack figures (.su). Prints a table and one line
per violation; exits 1 when there are any.
"""

import argparse
import re
import subprocess
import sys
from collections import namedtuple
from pathlib import Path

KIB = 1024
TEXT_LIMIT = 80 * KIB
STACK_LIMIT = 96 * KIB
# The work areas that the platform wants beside its connection list need more stack than all the rest.
LARGEST_FRAME = "ubus_get_router_ip_host_ipv46"

# Writable besides the exported state.
OWN_DATA = {"cachedVersionCode"}

# Everything that allocates, by the one purpose it may serve and the files that may do so. Streams of
# stdio may be opened anywhere.
HEAP_USERS = {
    "mesh record": (r"calloc|free", {"object_nexmud_meshinfo_pmapi"}),
    "list nodes": (r"GetUB|RetUB", {"object_nexumd_limit_pmapi", "rate_samples"}),
    "cJSON": (r"cJSON_\w+", {"object_nexumd_config_pmapi", "object_nexumd_meshtopology_pmapi"}),
    "nothing": (r"malloc|realloc\w*|\w*memalign|aligned_alloc|valloc|strn?dup|\w*asprintf\w*|_*getline|"
                r"_*getdelim|open_memstream|mmap|s?brk|operator (new|delete).*", set()),
}

Symbol = namedtuple("Symbol", "name size type bind section")
Frame = namedtuple("Frame", "function size kind")
Row = namedtuple("Row", "what figure limit note")


class ElfFile:
    def __init__(self, path):
        self.path = Path(path)
        self.stem = self.path.name.split(".")[0]
        dump = subprocess.run(["readelf", "--wide", "--demangle", "--sections", "--syms", str(path)], check=True,
                              capture_output=True, text=True).stdout
        rows = re.findall(r"^\s*\[\s*(\d+)\]\s+(\S+)\s+\S+\s+[0-9a-f]+\s+[0-9a-f]+\s+([0-9a-f]+)\s+\w+\s+(\w*)",
                          dump, re.M)
        self.sections = {index: (name, int(size, 16), flags) for index, name, size, flags in rows}
        symbols = re.findall(r"^\s*\d+:\s+[0-9a-f]+\s+(\w+)\s+(\w+)\s+(\w+)\s+\w+\s+(\w+)\s+(.+)$", dump, re.M)
        self.symbols = [Symbol(name.split("@")[0].split("::")[-1], int(size, 0), kind, bind, section)
                        for size, kind, bind, section, name in symbols]

    def section_size(self, wanted):
        return sum(size for name, size, _ in self.sections.values() if name == wanted)

    def read_only_size(self):
        """What size(1) prints as text: code, constants, and the loader's tables of names."""
        return sum(size for _, size, flags in self.sections.values() if "A" in flags and "W" not in flags)

    def writable(self):
        """Objects in sections that stay writable once the loader is done."""
        for symbol in self.symbols:
            name, _, flags = self.sections.get(symbol.section, ("", 0, ""))
            common = symbol.section == "COM"
            if symbol.type in ("OBJECT", "TLS", "COMMON") and (
                    common or "W" in flags and not name.startswith(".data.rel.ro")):
                yield symbol

    def imports(self):
        return {symbol.name for symbol in self.symbols if symbol.section == "UND"}

    def frames(self):
        lines = self.path.with_suffix(".su").read_text(encoding="utf-8").splitlines()
        for line in lines:
            place, size, kind = line.split("\t")
            yield Frame(place.split(":", 3)[3], int(size), kind)


def check_text(library):
    size = library.section_size(".text")
    rows = [Row("text", size, TEXT_LIMIT, "the .text section; stripping changes none of the three"),
            Row("constants", library.section_size(".rodata"), None, "mostly the log lines"),
            Row("all that is mapped read-only", library.read_only_size(), None,
                "with the loader's tables, the text of size(1)")]
    return rows, [f"{size} bytes of text"] if size > TEXT_LIMIT else []


def check_data(objects, exported):
    own, state, problems = 0, 0, []
    for file in objects:
        for symbol in file.writable():
            if symbol.name in exported:
                state += symbol.size
            elif symbol.name in OWN_DATA:
                own += symbol.size
            else:
                problems.append(f"{file.stem} keeps {symbol.size} bytes of its own in {symbol.name}")
    return [Row("writable data, exported", state, None, ""),
            Row("writable data, the library's own", own, None, ", ".join(sorted(OWN_DATA)))], problems


def check_stack(objects):
    frames = [frame for file in objects for frame in file.frames()]
    if not frames:
        return [], ["there are no stack figures"]
    frames.sort(key=lambda frame: frame.size, reverse=True)
    problems = [f"{frame.function} takes {frame.size} bytes of stack"
                for frame in frames if frame.size > STACK_LIMIT]
    problems += [f"{frame.function} takes stack without a bound" for frame in frames if frame.kind == "dynamic"]
    if LARGEST_FRAME not in frames[0].function:
        problems.append(f"{frames[0].function} takes the most stack, not {LARGEST_FRAME}")
    rows = [Row(f"stack, {place}", frame.size, STACK_LIMIT, re.sub(r"\(.*", "", frame.function).split()[-1])
            for place, frame in zip(("largest", "second", "third"), frames)]
    return rows, problems


def check_heap(objects):
    rows, problems = [], []
    for purpose, (pattern, users) in HEAP_USERS.items():
        found = {file.stem for file in objects if any(re.fullmatch(pattern, name) for name in file.imports())}
        for file in objects:
            calls = sorted(name for name in file.imports() if re.fullmatch(pattern, name))
            if calls and file.stem not in users:
                problems.append(f"{file.stem} allocates: {', '.join(calls)}")
        if users:
            rows.append(Row(f"heap, {purpose}", len(found), len(users), ", ".join(sorted(found))))
    return rows, problems


def print_table(rows):
    print(f"{'budget of the ARM build':34} {'figure':>8} {'limit':>8}")
    for row in rows:
        print(f"{row.what:34} {row.figure:8} {'' if row.limit is None else row.limit:>8}  {row.note}".rstrip())


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=Path, help="a build directory of the arm preset")
    parser.add_argument("--exports", type=Path, help="the names that the library exports")
    options = parser.parse_args()

    library = ElfFile(options.build / "lib" / "libpmapi.so")
    paths = (options.build / "library_objects.txt").read_text(encoding="utf-8").split()
    objects = [ElfFile(path) for path in paths]
    exported = set((options.exports or options.build / "generated/exports.txt").read_text(encoding="utf-8").split())

    checks = [check_text(library), check_data(objects, exported), check_stack(objects), check_heap(objects)]
    print_table([row for rows, _ in checks for row in rows])
    problems = [problem for _, found in checks for problem in found]
    for problem in problems:
        print(f"budgets: {problem}")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
