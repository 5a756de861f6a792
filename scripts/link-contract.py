#!/usr/bin/env python3
"""Checks a built libpmapi.so against what daemon and platform may rely on.

Everything is read from the ELF file with readelf; the expected names come from lists and headers in the
tree. Prints one line per violation and exits 1, or one summary line and exits 0.
"""

import argparse
import re
import subprocess
import sys
from collections import namedtuple
from pathlib import Path

MULTIAP_CLIENT = "libmapd_interface_client.so"
ALLOWED_LIBRARIES = {MULTIAP_CLIENT, "libc.so.6", "ld-linux.so.2", "ld-linux.so.3"}
TOOLCHAIN_WEAK = {"_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable", "__gmon_start__"}
# Defined in the library's own symbol table, these say that a part of the C++ runtime was linked in.
CXX_RUNTIME = re.compile(r"^(_Zn[wa]|_Zd[la]|_ZSt9terminate|__cxa_|__gxx_personality)")
CXX_IMPORT = re.compile(r"^(_Z|__cxa_(?!finalize$)|__aeabi_atexit$|__gxx_)")
# Functions that take a buffer or a format: with _FORTIFY_SOURCE at least one of them is a __*_chk.
FORTIFIABLE = {"printf", "fprintf", "sprintf", "snprintf", "vsnprintf", "fgets", "fread", "read"}
ABI_FLAGS = {"ARM": "Version5 EABI, soft-float ABI", "Intel 80386": ""}

Symbol = namedtuple("Symbol", "name version type bind visibility section")


class Library:
    """What readelf tells of one shared library or executable."""

    def __init__(self, path, readelf):
        self.path = path
        self.readelf = readelf
        self.header = self._read("--file-header")
        self.segments = self._read("--segments")
        self.dynamic = re.findall(r"\((\w+)\)\s+(.*)", self._read("--dynamic"))
        self.dynamic_symbols = self._symbols("--dyn-syms")
        self.needed = re.findall(r"\[(.+?)\]", "\n".join(v for t, v in self.dynamic if t == "NEEDED"))
        self.exported = [s for s in self.dynamic_symbols if s.section != "UND" and s.bind != "LOCAL"]
        self.imported = [s for s in self.dynamic_symbols if s.section == "UND" and s.name]

    def _read(self, *options):
        command = [self.readelf, "--wide", *options, str(self.path)]
        return subprocess.run(command, check=True, capture_output=True, text=True,
                              errors="replace").stdout

    def _symbols(self, option):
        row = re.compile(
            r"^\s*\d+:\s+[0-9a-f]+\s+\S+\s+(\w+)\s+(\w+)\s+(\w+)\s+(?:\[.*?\]\s+)?(\w+) ([^\s@]+)(?:@+(\S+))?",
            re.M)
        return [Symbol(name, version, kind, bind, visibility, section)
                for kind, bind, visibility, section, name, version in row.findall(self._read(option))]

    def all_symbols(self):
        return self._symbols("--syms")

    def tags(self, *names):
        return [f"{tag} {value}".strip() for tag, value in self.dynamic if tag in names]

    def relocated_names(self):
        """Names that the loader resolves to an address: what the library reaches through its GOT or data."""
        rows = re.findall(r"R_\w+_(?:GLOB_DAT|ABS32|32)\s+[0-9a-f]+\s+([^\s@]+)", self._read("--relocs"))
        return set(rows)

    def replaceable_names(self):
        """Names that the loader may find elsewhere in the process, those of lazily bound calls included."""
        rows = re.findall(r"R_\w+_JUMP_SLOT?\s+[0-9a-f]+\s+([^\s@]+)", self._read("--relocs"))
        return self.relocated_names() | set(rows)

    def strings(self):
        dump = self._read("--string-dump=.rodata")
        return set(re.findall(r"^\s*\[\s*[0-9a-f]+\]\s+(.*)$", dump, re.M))


def names_in(path):
    lines = Path(path).read_text(encoding="utf-8").splitlines()
    return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


def without_comments(text):
    return re.sub(r"/\*.*?\*/|//[^\n]*", " ", text, flags=re.S)


def platform_functions(directory):
    """Functions declared behind PLATFORM_IMPORT in the headers of `directory`."""
    found = set()
    for header in sorted(Path(directory).rglob("*.h")):
        text = without_comments(header.read_text(encoding="utf-8"))
        text = re.sub(r"^\s*#(?:[^\n]*\\\n)*[^\n]*", "", text, flags=re.M)
        found.update(re.findall(r"\bPLATFORM_IMPORT\b[^;()]*?\b(\w+)\s*\(", text))
    return found


def field_names(directory):
    found = set()
    for header in sorted(Path(directory).rglob("*.hpp")):
        text = without_comments(header.read_text(encoding="utf-8"))
        found.update(re.findall(r"\b\w+\s*\{\s*\"(\w+)\"\s*,", text))
    return found


def literals(directories):
    found = set()
    for directory in directories:
        for source in Path(directory).rglob("*.[ch]*"):
            found.update(re.findall(r'"((?:[^"\\\n]|\\.)*)"', source.read_text(encoding="utf-8")))
    return found


def check_exports(library, declared):
    exported = {s.name for s in library.exported}
    for name in sorted(exported - declared):
        yield f"exports {name}, which no public header declares"
    for name in sorted(declared - exported):
        yield f"does not export {name}"


def check_data(library):
    relocated = library.relocated_names()
    for symbol in library.exported:
        if symbol.visibility != "DEFAULT":
            yield f"exports {symbol.name} with {symbol.visibility.lower()} visibility"
        if symbol.type == "OBJECT" and symbol.name not in relocated:
            yield f"binds {symbol.name} to its own copy: a daemon's copy would not be seen"
    if library.tags("SYMBOLIC") or any("SYMBOLIC" in flags for flags in library.tags("FLAGS")):
        yield "is linked with -Bsymbolic"


def check_own_functions(library):
    replaceable = library.replaceable_names()
    for symbol in library.exported:
        if symbol.type == "FUNC" and symbol.name in replaceable:
            yield f"looks for its own {symbol.name} in the process: a daemon's function of that name would replace it"


def check_imports(library, platform, cjson):
    for symbol in library.imported:
        name, version = symbol.name, symbol.version
        if CXX_IMPORT.match(name):
            yield f"imports {name} of the C++ runtime"
        elif version.startswith("GLIBC_"):
            if re.search(r"64(_chk|_2)?$", name):
                yield f"imports {name}: file offsets are 32 bits wide"
        elif name in TOOLCHAIN_WEAK and symbol.bind == "WEAK":
            continue
        elif name not in platform and name not in cjson:
            yield f"imports {name}, which neither the platform's headers nor the list of cJSON functions name"
    for symbol in library.all_symbols():
        if symbol.section != "UND" and CXX_RUNTIME.match(symbol.name):
            yield f"contains {symbol.name} of the C++ runtime"


def check_lazy_binding(library):
    """A function whose address is taken is looked up at load, however lazily calls are bound."""
    at_load = library.relocated_names()
    for symbol in library.imported:
        if symbol.name in at_load and symbol.bind != "WEAK" and not symbol.version.startswith("GLIBC_"):
            yield f"takes the address of {symbol.name}: a daemon without it could not load the library"


def check_needed(library):
    for name in library.needed:
        if name not in ALLOWED_LIBRARIES:
            yield f"needs {name}"
    uses_client = any(s.name.startswith("mapd_interface_") for s in library.imported)
    if uses_client and MULTIAP_CLIENT not in library.needed:
        yield f"uses the multi-AP client, but does not need {MULTIAP_CLIENT}"
    soname = re.findall(r"\[(.+?)\]", "".join(library.tags("SONAME")))
    if soname != ["libpmapi.so"]:
        yield f"has the soname {soname}"
    for tag in library.tags("RPATH", "RUNPATH"):
        yield f"carries a search path: {tag}"


def check_hardening(library):
    stack = re.search(r"GNU_STACK(?:\s+\S+){5}\s+([RWE]+)", library.segments)
    if not stack or "E" in stack.group(1):
        yield "has an executable stack"
    if "GNU_RELRO" not in library.segments:
        yield "has no read-only relocations (relro)"
    flags = " ".join(library.tags("FLAGS", "FLAGS_1", "BIND_NOW"))
    if re.search(r"\bBIND_NOW\b|\bNOW\b", flags):
        yield "binds at load: a daemon without one platform call could not load the rest"
    if "TEXTREL" in flags or library.tags("TEXTREL"):
        yield "has text relocations"
    imported = {s.name for s in library.imported}
    if "__stack_chk_fail" not in imported:
        yield "has no stack protector"
    if imported & FORTIFIABLE and not any(re.match(r"__\w+_chk$", name) for name in imported):
        yield "is not fortified"


def check_machine(library):
    machine = re.search(r"Machine:\s+(.*)", library.header).group(1).strip()
    flags = re.search(r"Flags:\s+(.*)", library.header).group(1)
    if "ELF32" not in library.header or machine not in ABI_FLAGS:
        yield f"is built for {machine}"
    elif ABI_FLAGS[machine] not in flags:
        yield f"has the ABI flags {flags}"


def check_field_names(library, platform_headers, sources):
    for name in sorted(field_names(platform_headers) & library.strings() - literals(sources)):
        yield f"carries the field name \"{name}\""


def check_process(paths, readelf, platform):
    """The executables and libraries of `paths` must together supply every function of the platform."""
    supplied = {s.name for path in paths for s in Library(path, readelf).exported}
    for name in sorted(platform - supplied):
        yield f"no part of the process supplies {name}"


def check(options):
    library = Library(options.library, options.readelf)
    declared = names_in(options.exports)
    platform = platform_functions(options.platform_headers)
    problems = [
        *check_machine(library),
        *check_exports(library, declared),
        *check_data(library),
        *check_own_functions(library),
        *check_imports(library, platform, names_in(options.cjson)),
        *check_lazy_binding(library),
        *check_needed(library),
        *check_hardening(library),
        *check_field_names(library, options.platform_headers, options.sources),
    ]
    if options.process:
        problems += check_process(options.process, options.readelf, platform)
    summary = f"{len(library.exported)} names exported, {len(library.imported)} imported"
    return problems, summary


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("library")
    parser.add_argument("--exports", required=True, help="list of the names that the public headers declare")
    parser.add_argument("--platform-headers", required=True, help="directory of the imported functions")
    parser.add_argument("--cjson", required=True, help="list of the cJSON functions in use")
    parser.add_argument("--sources", nargs="*", default=[], help="directories of the library's sources")
    parser.add_argument("--process", nargs="*", default=[], help="files that must supply the whole platform")
    parser.add_argument("--readelf", default="readelf")
    options = parser.parse_args()
    problems, summary = check(options)
    for problem in problems:
        print(f"link-contract: {options.library} {problem}")
    if problems:
        return 1
    print(f"link-contract: {summary}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
