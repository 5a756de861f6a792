#!/usr/bin/python3
"""Checks a built libpmapi.so against what daemon and platform may rely on.

Which names it may export and import the headers say. Prints one line per violation and exits 1, or one
summary line and exits 0.
"""

import argparse
import re
import sys
from pathlib import Path

from elftools.elf.elffile import ELFFile

MULTIAP_CLIENT = "libmapd_interface_client.so"
ALLOWED_LIBRARIES = {MULTIAP_CLIENT, "libc.so.6", "ld-linux.so.2", "ld-linux.so.3"}
TOOLCHAIN_WEAK = {"_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable", "__gmon_start__"}
# Defined in the library's own symbol table, these say that a part of the C++ runtime was linked in.
CXX_RUNTIME = re.compile(r"(_Zn[wa]|_Zd[la]|_ZSt9terminate|__cxa_|__gxx_personality)")
CXX_IMPORT = re.compile(r"(_Z|__cxa_(?!finalize$)|__aeabi_atexit$|__gxx_)")
# Functions that take a buffer or a format: with _FORTIFY_SOURCE at least one of them is a __*_chk.
FORTIFIABLE = {"printf", "fprintf", "sprintf", "snprintf", "vsnprintf", "fgets", "fread", "read"}
# For ARM the fifth EABI with soft floats.
ABI_FLAGS = {"EM_ARM": 0x05000200, "EM_386": 0}
SYMBOLIC, TEXTREL, BIND_NOW = 2, 4, 8
EXECUTABLE = 1


class Library:
    """What the loader reads of one shared library or executable."""

    def __init__(self, path):
        self.elf = ELFFile(open(path, "rb"))
        self.dynamic = list(self.elf.get_section_by_name(".dynamic").iter_tags())
        self.tags = {tag.entry.d_tag: tag.entry.d_val for tag in self.dynamic}
        self.flags = self.tags.get("DT_FLAGS", 0)
        self.symbols = list(self.elf.get_section_by_name(".dynsym").iter_symbols())
        self.exported = [one for one in self.symbols
                         if one["st_shndx"] != "SHN_UNDEF" and one["st_info"]["bind"] != "STB_LOCAL"]
        self.imported = [one for one in self.symbols if one["st_shndx"] == "SHN_UNDEF" and one.name]
        self.needed = self.texts("DT_NEEDED")
        # What is reached through the GOT or data is resolved at load, and elsewhere in the process if it is there.
        self.relocated = self.relocated_in(".rel.dyn")
        self.replaceable = self.relocated | self.relocated_in(".rel.plt")

    def texts(self, *names):
        return [getattr(tag, tag.entry.d_tag[3:].lower()) for tag in self.dynamic if tag.entry.d_tag in names]

    def relocated_in(self, section):
        found = self.elf.get_section_by_name(section)
        return {self.symbols[one["r_info_sym"]].name for one in found.iter_relocations()} if found else set()

    def libc_names(self):
        versions, needs = (self.elf.get_section_by_name(name) for name in (".gnu.version", ".gnu.version_r"))
        numbers = [(one.name, versions.get_symbol(index)["ndx"]) for index, one in enumerate(self.symbols)]
        return {name for name, number in numbers
                if isinstance(number, int) and needs.get_version(number)[1].name.startswith("GLIBC_")}

    def strings(self):
        return {text.decode() for text in re.findall(rb"[\x20-\x7e]+", self.elf.get_section_by_name(".rodata").data())}


def names_in(path):
    lines = Path(path).read_text(encoding="utf-8").splitlines()
    return {line for line in lines if line and not line.startswith("#")}


def found_in(directories, pattern, what):
    return {name for directory in directories for source in Path(directory).rglob(pattern)
            for name in re.findall(what, source.read_text(encoding="utf-8"))}


def check_exports(library, declared):
    exported = {one.name for one in library.exported}
    for name in sorted(exported - declared):
        yield f"exports {name}, which no public header declares"
    for name in sorted(declared - exported):
        yield f"does not export {name}"
    for one in library.exported:
        visibility, kind = one["st_other"]["visibility"], one["st_info"]["type"]
        if visibility != "STV_DEFAULT":
            yield f"exports {one.name} with {visibility[4:].lower()} visibility"
        if kind == "STT_OBJECT" and one.name not in library.relocated:
            yield f"binds {one.name} to its own copy: a daemon's copy would not be seen"
        if kind == "STT_FUNC" and one.name in library.replaceable:
            yield f"looks for its own {one.name} in the process: a daemon's function of that name would replace it"
    if "DT_SYMBOLIC" in library.tags or library.flags & SYMBOLIC:
        yield "is linked with -Bsymbolic"


def check_imports(library, platform, cjson):
    libc = library.libc_names()
    for one in library.imported:
        name, weak = one.name, one["st_info"]["bind"] == "STB_WEAK"
        if CXX_IMPORT.match(name):
            yield f"imports {name} of the C++ runtime"
        elif name in libc:
            if re.search(r"64(_chk|_2)?$", name):
                yield f"imports {name}: file offsets are 32 bits wide"
        elif not (weak and name in TOOLCHAIN_WEAK) and name not in platform | cjson:
            yield f"imports {name}, which neither the platform's headers nor the list of cJSON functions name"
        # A function whose address is taken is looked up at load, however lazily calls are bound.
        if name in library.relocated and not weak and name not in libc:
            yield f"takes the address of {name}: a daemon without it could not load the library"
    for one in library.elf.get_section_by_name(".symtab").iter_symbols():
        if one["st_shndx"] != "SHN_UNDEF" and CXX_RUNTIME.match(one.name):
            yield f"contains {one.name} of the C++ runtime"


def check_needed(library):
    for name in sorted(set(library.needed) - ALLOWED_LIBRARIES):
        yield f"needs {name}"
    uses_client = any(one.name.startswith("mapd_interface_") for one in library.imported)
    if uses_client and MULTIAP_CLIENT not in library.needed:
        yield f"uses the multi-AP client, but does not need {MULTIAP_CLIENT}"
    if library.texts("DT_SONAME") != ["libpmapi.so"]:
        yield f"has the soname {library.texts('DT_SONAME')}"
    for path in library.texts("DT_RPATH", "DT_RUNPATH"):
        yield f"carries a search path: {path}"


def check_hardening(library):
    if not any(not one["p_flags"] & EXECUTABLE for one in library.elf.iter_segments("PT_GNU_STACK")):
        yield "has an executable stack"
    if not any(library.elf.iter_segments("PT_GNU_RELRO")):
        yield "has no read-only relocations (relro)"
    if "DT_BIND_NOW" in library.tags or library.flags & BIND_NOW or library.tags.get("DT_FLAGS_1", 0) & 1:
        yield "binds at load: a daemon without one platform call could not load the rest"
    if "DT_TEXTREL" in library.tags or library.flags & TEXTREL:
        yield "has text relocations"
    imported = {one.name for one in library.imported}
    if "__stack_chk_fail" not in imported:
        yield "has no stack protector"
    if imported & FORTIFIABLE and not any(re.match(r"__\w+_chk$", name) for name in imported):
        yield "is not fortified"


def check_machine(library):
    machine, flags = library.elf["e_machine"], library.elf["e_flags"]
    if library.elf.elfclass != 32 or machine not in ABI_FLAGS:
        yield f"is built for {machine}"
    elif flags != ABI_FLAGS[machine]:
        yield f"has the ABI flags {flags:#x}"


def check_field_names(library, fields, literals):
    if not fields:
        yield "cannot be searched for field names: the platform's headers have none"
    for name in sorted(fields & library.strings() - literals):
        yield f"carries the field name \"{name}\""


def check_process(paths, platform):
    """The executables and libraries of `paths` must together supply every function of the platform."""
    supplied = {one.name for path in paths for one in Library(path).exported}
    for name in sorted(platform - supplied):
        yield f"no part of the process supplies {name}"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("library")
    parser.add_argument("--generated", required=True, type=Path, help="directory of exports.txt and imports.txt")
    parser.add_argument("--cjson", required=True, help="list of the cJSON functions in use")
    parser.add_argument("--layouts", required=True, help="directory of the platform's headers")
    parser.add_argument("--sources", nargs="*", default=[], help="directories of the library's sources")
    parser.add_argument("--process", nargs="*", default=[], help="files that must supply the whole platform")
    options = parser.parse_args()
    library = Library(options.library)
    platform = names_in(options.generated / "imports.txt")
    fields = found_in([options.layouts], "*.hpp", r"\bFIELD\(\w+(?:<[^>]*>)?,\s*(\w+)")
    literals = found_in(options.sources, "*.[ch]*", r'"((?:[^"\\\n]|\\.)*)"')
    problems = [
        *check_machine(library),
        *check_exports(library, names_in(options.generated / "exports.txt")),
        *check_imports(library, platform, names_in(options.cjson)),
        *check_needed(library),
        *check_hardening(library),
        *check_field_names(library, fields, literals),
        *(check_process(options.process, platform) if options.process else []),
    ]
    for problem in problems:
        print(f"link-contract: {options.library} {problem}")
    if problems:
        sys.exit(1)
    print(f"link-contract: {len(library.exported)} names exported, {len(library.imported)} imported")


if __name__ == "__main__":
    main()
