#!/usr/bin/env python3
"""Exceeds one budget at a time in a tiny library and sees the checker report it.

budgets_test.py CHECKER C++-COMPILER [FLAG...]
"""

import subprocess
import sys
import tempfile
import unittest
from collections import namedtuple
from pathlib import Path

CHECKER, COMPILER = sys.argv[1], sys.argv[2:]
COMPILE = ["-std=c++20", "-Os", "-fPIC", "-fno-exceptions", "-fstack-usage"]

SOURCE = """
#include <stddef.h>
#define EXPORT extern "C" __attribute__((visibility("default")))
EXPORT void fill(void *bytes, size_t size);
EXPORT void *malloc(size_t size);
EXPORT void *calloc(size_t count, size_t size);
EXPORT int sampleCount;
int sampleCount = 0;
static int cachedVersionCode = -1;
static const char *const texts[] = {"relocated", "but read only"};
EXPORT const char *next() { return texts[++cachedVersionCode & 1]; }
EXPORT void ubus_get_router_ip_host_ipv46() { char table[9000]; fill(table, sizeof table); }
"""

Case = namedtuple("Case", "report source file", defaults=("", "object_nexumd_port_pmapi"))
CASES = {
    "within": Case(None),
    "mesh record": Case(None, "EXPORT void *record() { return calloc(1, 9); }", "object_nexmud_meshinfo_pmapi"),
    "text": Case("bytes of text", 'asm(".text\\n.space 90000");'),
    "own data": Case("keeps 4 bytes of its own in calls",
                     "namespace { int calls; } EXPORT int count() { return ++calls; }"),
    "data of a function": Case("keeps 4 bytes of its own in ",
                               "EXPORT int count() { static int calls = 5; return ++calls; }"),
    "deep frame": Case("takes 1000.. bytes of stack",
                       "EXPORT void deep() { char table[100000]; fill(table, sizeof table); }"),
    "another largest frame": Case("takes the most stack, not ubus_get_router_ip_host_ipv46",
                                  "EXPORT void deep() { char table[9999]; fill(table, sizeof table); }"),
    "frame without a bound": Case("takes stack without a bound",
                                  "EXPORT void deep(size_t n) { fill(__builtin_alloca(n), n); }"),
    "heap": Case("object_nexumd_port_pmapi allocates: malloc", "EXPORT void *block() { return malloc(9); }"),
    "heap of another": Case("object_nexumd_port_pmapi allocates: calloc",
                            "EXPORT void *record() { return calloc(1, 9); }"),
    "heap of C++": Case("allocates: operator new", "EXPORT int *block() { return new int[9]; }"),
}


def run_checker(build, case):
    """Builds a library of two files, one of them with the case's source, and checks it."""
    (build / "lib").mkdir()
    (build / "exports.txt").write_text("sampleCount\n", encoding="utf-8")
    parts = {"sample": SOURCE, case.file: SOURCE.split("static int", 1)[0].replace("int sampleCount = 0;", "") +
             case.source}
    objects = []
    for name, text in parts.items():
        source, target = build / f"{name}.cpp", build / f"{name}.cpp.o"
        source.write_text(text, encoding="utf-8")
        subprocess.run([*COMPILER, *COMPILE, "-c", str(source), "-o", str(target)], check=True)
        objects.append(str(target))
    (build / "library_objects.txt").write_text("\n".join(objects), encoding="utf-8")
    subprocess.run([*COMPILER, "-shared", "-nostdlib", *objects, "-o", str(build / "lib" / "libpmapi.so")], check=True)
    return subprocess.run([CHECKER, str(build), "--exports", str(build / "exports.txt")],
                          capture_output=True, text=True)


class BudgetsTest(unittest.TestCase):
    def test_every_exceeded_budget_is_reported(self):
        for name, case in CASES.items():
            with self.subTest(name), tempfile.TemporaryDirectory() as directory:
                result = run_checker(Path(directory), case)
                reports = [line for line in result.stdout.splitlines() if line.startswith("budgets: ")]
                if case.report is None:
                    self.assertEqual((result.returncode, reports), (0, []), result.stderr)
                else:
                    self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
                    self.assertRegex("\n".join(reports), case.report)

    def test_missing_stack_figures_are_no_pass(self):
        with tempfile.TemporaryDirectory() as directory:
            build = Path(directory)
            self.assertEqual(run_checker(build, CASES["within"]).returncode, 0)
            for figures in build.glob("*.su"):
                figures.unlink()
            result = subprocess.run([CHECKER, str(build), "--exports", str(build / "exports.txt")],
                                    capture_output=True, text=True)
            self.assertNotEqual(result.returncode, 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
