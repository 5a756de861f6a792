#!/usr/bin/env python3
"""Breaks one rule of the link contract at a time in a tiny library and sees the checker report it.

link_contract_test.py CHECKER C++-COMPILER [FLAG...]
"""

import subprocess
import sys
import tempfile
import unittest
from collections import namedtuple
from pathlib import Path

SOURCE = """
#include <stdio.h>
#define EXPORT extern "C" __attribute__((visibility("default")))
EXPORT int platformCall(const char *text);
EXPORT void *cJSON_Parse(const char *text);
EXPORT void *mapd_interface_ctrl_open(const char *path);
EXPORT int sampleCount;
int sampleCount = 0;
EXPORT int sampleFormat(const char *name) {
  char text[64];
  snprintf(text, sizeof text, "<%s>", name);
  if (cJSON_Parse(text) == mapd_interface_ctrl_open(text)) return 0;
  sampleCount += platformCall(text);
  return sampleCount;
}
"""
CLIENT = 'extern "C" void *mapd_interface_ctrl_open(const char *) { return nullptr; }'
LAYOUT = "  FIELD(Text<32>, fieldName, 100);\n"

COMPILE = ["-std=c++20", "-Os", "-fPIC", "-fvisibility=hidden", "-fno-exceptions", "-fno-rtti",
           "-fno-threadsafe-statics", "-fstack-protector-strong", "-D_FORTIFY_SOURCE=2"]
LINK = ["-shared", "-static-libgcc", "-nodefaultlibs", "-Wl,-soname,libpmapi.so", "-Wl,--as-needed",
        "-Wl,-Bsymbolic-functions", "-Wl,-z,relro,-z,noexecstack,-z,lazy"]
# Behind the objects: what must come after what uses it.
LIBRARIES = ["-lmapd_interface_client", "-lc", "-lgcc"]

# Of the header of a 32-bit ELF file.
MACHINE_OFFSET = 18
FLAGS_OFFSET = 36

Break = namedtuple("Break", "report source compile link libraries exports",
                   defaults=("", (), (), LIBRARIES, ""))
BREAKS = {
    "extra export": Break("exports another, which no public header declares",
                          source="EXPORT int another() { return 1; }"),
    "lost export": Break("does not export lostCall", exports="lostCall"),
    "undeclared import": Break("imports otherCall, which neither",
                               source='extern "C" int otherCall();\n'
                                      'EXPORT int another() { return otherCall(); }', exports="another"),
    "unlisted cJSON function": Break("imports cJSON_Print, which neither",
                                     source='extern "C" char *cJSON_Print();\n'
                                            'EXPORT char *another() { return cJSON_Print(); }', exports="another"),
    "heap of C++": Break(r"imports _Zn\w+ of the C\+\+ runtime",
                         source="EXPORT int *another() { return new int[9]; }", exports="another"),
    "global destructor": Break(r"imports __(cxa|aeabi)_atexit of the C\+\+ runtime",
                               source="struct S { ~S() { platformCall(0); } };\n"
                                      "static S s;"),
    "C++ runtime linked in": Break(r"contains _ZSt9terminatev of the C\+\+ runtime",
                                   source="namespace std { void terminate() noexcept; }\n"
                                          "EXPORT void another() { std::terminate(); }", exports="another",
                                   libraries=["-Wl,--exclude-libs,ALL", "-l:libstdc++.a", "-lgcc_eh",
                                              *LIBRARIES]),
    "large files": Break("imports fopen64: file offsets",
                         source="EXPORT void *another() { return fopen64(\"x\", \"r\"); }",
                         compile=["-D_LARGEFILE64_SOURCE"], exports="another"),
    "needed library": Break("needs libcjson.so.1",
                            libraries=["-Wl,--no-as-needed", "-lcjson", *LIBRARIES]),
    "client not needed": Break("does not need libmapd_interface_client.so", libraries=["-lc", "-lgcc"]),
    "soname": Break("has the soname", link=["-Wl,-soname,libother.so"]),
    "search path": Break("carries a search path", link=["-Wl,-rpath,/opt/lib"]),
    "protected data": Break("exports guarded with protected visibility",
                            source='extern "C" __attribute__((visibility("protected"))) int guarded;\n'
                                   "int guarded = 1;\nEXPORT int another() { return guarded; }",
                            exports="another guarded"),
    "replaceable call": Break("looks for its own sampleFormat in the process",
                              source='EXPORT int another() { return sampleFormat("x"); }',
                              link=["-Wl,-Bno-symbolic"], exports="another"),
    "replaceable address": Break("looks for its own sampleFormat in the process",
                                 source="using Format = int (*)(const char *);\n"
                                        "EXPORT Format another() { return sampleFormat; }",
                                 link=["-Wl,-Bno-symbolic"], exports="another"),
    "symbolic binding": Break("is linked with -Bsymbolic", link=["-Wl,-Bsymbolic"]),
    "hidden alias of data": Break("binds aliased to its own copy",
                                  source="EXPORT int aliased; int aliased = 1;\n"
                                         'extern "C" __attribute__((visibility("hidden"), '
                                         'alias("aliased"))) int inner;\n'
                                         "EXPORT int another() { return ++inner; }", exports="another aliased"),
    "executable stack": Break("has an executable stack", link=["-Wl,-z,execstack"]),
    "no relro": Break("has no read-only relocations", link=["-Wl,-z,norelro"]),
    "binding at load": Break("binds at load", link=["-Wl,-z,now"]),
    "text relocations": Break("has text relocations", compile=["-fno-pic"], link=["-Wl,-z,notext"]),
    "address of a platform function": Break(
        "takes the address of platformCall: a daemon",
        source="using Call = int (*)(const char *);\nEXPORT Call another() { return platformCall; }",
        exports="another"),
    "no stack protector": Break("has no stack protector", compile=["-fno-stack-protector"]),
    "not fortified": Break("is not fortified", compile=["-U_FORTIFY_SOURCE"]),
    "field name": Break('carries the field name "fieldName"',
                        source='struct F { const char *name; int at; };\n'
                               'EXPORT const F another; const F another{"fieldName", 100};\n'
                               "EXPORT const F *other() { return &another; }", exports="another other"),
}


class LinkContract(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.root = Path(cls.scratch.name)
        (cls.root / "layouts.hpp").write_text(LAYOUT)
        (cls.root / "imports.txt").write_text("mapd_interface_ctrl_open\nplatformCall\n")
        (cls.root / "cjson.txt").write_text("# in use\ncJSON_Parse\n")
        cls.build("libmapd_interface_client.so", CLIENT, ["-fPIC"],
                  ["-shared", "-nodefaultlibs", "-Wl,-soname,libmapd_interface_client.so"])

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    @classmethod
    def build(cls, name, source, compile_flags, link_flags):
        path = cls.root / "source.cpp"
        path.write_text(source)
        subprocess.run([*COMPILER, *compile_flags, str(path), "-o", str(cls.root / name),
                        f"-L{cls.root}", *link_flags], check=True)

    def check(self, case, *options):
        self.build("libpmapi.so", SOURCE + case.source, [*COMPILE, *case.compile],
                   [*LINK, *case.link, *case.libraries])
        (self.root / "exports.txt").write_text("\n".join(["sampleCount", "sampleFormat", *case.exports.split()]))
        return self.run_checker(*options)

    def run_checker(self, *options):
        return subprocess.run(
            [CHECKER, str(self.root / "libpmapi.so"), "--generated", str(self.root), "--layouts", str(self.root),
             "--cjson", str(self.root / "cjson.txt"), *options], capture_output=True, text=True)

    def test_a_library_that_keeps_the_contract_passes(self):
        result = self.check(Break(""))
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertRegex(result.stdout, "2 names exported")

    def test_every_breach_is_reported(self):
        for name, case in BREAKS.items():
            with self.subTest(name):
                result = self.check(case)
                self.assertRegex(result.stdout, case.report, result.stderr)
                self.assertEqual(result.returncode, 1, result.stderr)

    def test_another_machine_or_float_abi_is_reported(self):
        self.check(Break(""))
        library = self.root / "libpmapi.so"
        for machine, flags, report in ((8, 0, "is built for EM_MIPS"),
                                       (40, 0x05000400, "has the ABI flags 0x5000400")):
            with self.subTest(report):
                image = bytearray(library.read_bytes())
                image[MACHINE_OFFSET:MACHINE_OFFSET + 2] = machine.to_bytes(2, "little")
                image[FLAGS_OFFSET:FLAGS_OFFSET + 4] = flags.to_bytes(4, "little")
                library.write_bytes(image)
                result = self.run_checker()
                self.assertRegex(result.stdout, report, result.stderr)
                self.assertEqual(result.returncode, 1, result.stderr)

    def test_headers_without_fields_are_reported(self):
        (self.root / "layouts.hpp").rename(self.root / "layouts.txt")
        self.assertRegex(self.check(Break("")).stdout, "cannot be searched for field names")
        (self.root / "layouts.txt").rename(self.root / "layouts.hpp")

    def test_a_process_without_a_platform_function_is_reported(self):
        client = str(self.root / "libmapd_interface_client.so")
        result = self.check(Break(""), "--process", client)
        self.assertRegex(result.stdout, "no part of the process supplies platformCall")
        self.assertNotIn("mapd_interface_ctrl_open", result.stdout)
        self.assertEqual(result.returncode, 1)


if __name__ == "__main__":
    CHECKER, *COMPILER = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
