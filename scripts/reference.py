#!/usr/bin/env python3
"""Makes docs/reference/: one page per object of the daemon, and their index.

reference.py           writes the pages
reference.py --check   compares them with what would be written, and ends with an error where they differ

What stands on a page is read from the public headers (build/host/generated/api.json), from the command's
catalogue (`pmapi list --json`) and from the examples there, which are really called: once as they are, once
traced, and once for each platform call that can fail.
"""

import argparse
import collections
import concurrent.futures
import difflib
import json
import re
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PAGES = ROOT / "docs" / "reference"
BUILD = ROOT / "build" / "host"
USUAL_PROFILE = "home_router.json"

WIDE_ANSWER = 160
LONGEST_EXAMPLE = 15
SMALLEST_GROUP = 2

INDEX = """# Reference

One page per object of the daemon, made by `scripts/reference.py` from the public headers, the catalogue of the
`pmapi` command and the calls themselves. Answers are what the host build prints for the profiles in `examples/`.

{objects}
## What holds for all functions

{rules}

## Platform calls and failures

The platform calls of a method are those that its example makes of the platform and the C library, as
`pmapi --trace` shows them; where none are named there are none. Where one of them fails, the method answers
another status and says so in a line at level 4 or 0. A note stands behind the calls of which this is not true:

- "only logged": the status stays as it was
- "not logged": the status tells of it, no line does
- "unnoticed": neither does
- "cannot fail": it answers no status

## Codes

{code_rules}

{codes}
## Log levels

Levels: 0 a fault of a module, 4 an error, 5 entry lines and values, 7 the steps of a search,
8 success of a single step.
"""


class Gateway:
    """The command, run as its user would."""

    def __init__(self, directory):
        self.directory = directory
        (Path(directory) / "examples").symlink_to(ROOT / "examples")

    def run(self, *arguments):
        done = subprocess.run([str(BUILD / "bin" / "pmapi"), *arguments], cwd=self.directory, text=True,
                              capture_output=True)
        return done.stdout, done.stderr


class Example:
    """The first example of a method, with what it does."""

    def __init__(self, gateway, call, method):
        self.gateway, self.result = gateway, method["result"]
        example = method["examples"][0]
        self.options, self.shown_options, self.before = [], [], []
        if example["profile"] != USUAL_PROFILE:
            self.options = self.shown_options = ["--gateway", f"examples/{example['profile']}"]
        if "after" in example:
            self.follow(call, words(example["after"]["call"], example["after"]["with"]))
        self.words = words(call, example["with"])
        self.output = self.run("--log-level", "0")[0]

    def follow(self, call, first):
        """Lets another call come first, whose gateway this one finds."""
        state = f"{call.replace(' ', '_')}.json"
        output, _ = self.gateway.run("--state", state, "--log-level", "0", *first)
        self.before = [f"$ {shlex.join(['pmapi', '--state', 'gateway.json', *first])}", *output.splitlines()]
        self.options, self.shown_options = ["--gateway", state], ["--state", "gateway.json"]

    def run(self, *options):
        return self.gateway.run(*options, *self.options, *self.words)

    def command(self, *options):
        return shlex.join(["pmapi", *options, *self.shown_options, *self.words])

    def row(self):
        """A short example as a row of the contract's table."""
        is_short = len(self.output) <= WIDE_ANSWER and not self.before
        return [["example", code(self.command()), code(self.output.strip())]] if is_short else []

    def console(self):
        """Any other."""
        if self.row():
            return []
        options, output = ([], self.output) if len(self.output) <= WIDE_ANSWER else (
            ["--table"], self.run("--log-level", "0", "--table")[0])
        shown = [line.rstrip() for line in output.splitlines()]
        if len(shown) > LONGEST_EXAMPLE:
            shown = shown[:LONGEST_EXAMPLE] + [f"… {len(shown) - LONGEST_EXAMPLE} more lines"]
        return ["```console", *self.before, f"$ {self.command(*options)}", *shown, "```", ""]

    def platform_calls(self):
        """The calls in their order, alike ones together, each with what is unusual about its failure."""
        usual = self.run("--trace")[1]
        notes = {}
        met = re.search(r"fault never fired: .*\(met (\d+)\)", self.run("--fail", "*@1000000")[1])
        for number in range(1, int(met[1]) + 1 if met else 1):
            output, trail = self.run("--trace", "--fail", f"*@{number}x1")
            place = next(i for i, line in enumerate(calls_in(trail)) if line.endswith("[fault]"))
            notes[place] = self.note(output, collections.Counter(reports(trail)) - collections.Counter(reports(usual)))
        counted = collections.Counter((shown_call(line), notes.get(place, "cannot fail"))
                                      for place, line in enumerate(calls_in(usual)))
        return ", ".join(code(call) + (f" ×{times}" if times > 1 else "") + (f" ({note})" if note else "")
                         for (call, note), times in counted.items())

    def note(self, output, added):
        changed = result_of(output, self.result) != result_of(self.output, self.result)
        if changed:
            return "" if added else "not logged"
        return "only logged" if added else "unnoticed"


def words(call, arguments):
    shown = [json.dumps(arguments, separators=(",", ":"), ensure_ascii=False)] if arguments else []
    return ["call", *call.split(), *shown]


def calls_in(trail):
    return [line for line in trail.splitlines() if line.startswith("> ")]


def shown_call(line):
    name, key = re.match(r"> ([^(]+)\((\S*)", line).groups()
    key = key.split(")")[0]
    return f"{name}({key})" if key.startswith(("DBVIEW_", "CTSGW_", "/")) else name


def reports(trail):
    """The lines at levels 0 and 4, without their places in the sources."""
    return [re.sub(r"\.c:\d+", "", line) for line in trail.splitlines() if re.match(r"[04] ", line)]


def result_of(output, name):
    try:
        return json.loads(output).get(name)
    except json.JSONDecodeError:
        return None


def code(text):
    text = str(text).replace("|", "\\|")
    return f"`` {text} ``" if "`" in text else f"`{text}`"


def cell(text):
    return text.replace("|", "\\|").replace("\n", " ")


def table(head, rows):
    if not rows:
        return []
    return [f"| {' | '.join(head)} |", "|" + "---|" * len(head), *(f"| {' | '.join(row)} |" for row in rows), ""]


class Api:
    """What the public headers declare."""

    def __init__(self):
        known = json.loads((BUILD / "generated" / "api.json").read_text())
        self.files, self.structures, self.functions = known["files"], known["structures"], known["functions"]
        self.codes = {name: (int(value), text) for enum in known["enums"].values()
                      if enum["header"].startswith("pmapi/") for name, value, text in enum["values"]}
        self.variables = {one["name"]: one for file in self.files.values() for one in file["variables"]}

    def function(self, name):
        # A method may also read an exported variable.
        return self.functions.get(name) or {"returns": [], "parameterTexts": {}, "parameters": [], "group": "",
                                            "result": "", **self.variables[name]}

    def returned(self, value, kind):
        if value not in self.codes:
            return code(value) if value else ""
        number = self.codes[value][0]
        return f"{code(value)} ({f'0x{number % 2**32:08X}' if kind == 'uint32_t' else number})"

    def returns(self, function):
        return [["returns", self.returned(value, function["result"]), cell(text)]
                for value, text in function["returns"]]

    def meaning(self, name, structures, function):
        if name in function["parameterTexts"]:
            return function["parameterTexts"][name]
        for structure in structures:
            for field in self.structures[structure]["members"]:
                if field["name"] == name:
                    return field["text"]
        return ""


class Page:
    def __init__(self, api, gateway, entry):
        self.api, self.gateway, self.entry = api, gateway, entry
        self.header = f"pmapi/{entry['name']}.h"
        self.file = api.files.get(self.header, {"text": "", "variables": [], "structures": []})
        self.shown_structures = {}

    def render(self):
        tag = f"log tag `{self.entry['source']}`" if self.entry["source"] else "no log lines"
        lines = [f"# {self.entry['name']}", "", self.file["text"], "",
                 f"[`{self.header}`](../../include/{self.header}), {tag}; [what holds for all functions]"
                 "(README.md#what-holds-for-all-functions).", ""]
        groups = collections.Counter(self.group(method) for method in self.entry["methods"])
        for method in self.entry["methods"]:
            group = self.group(method)
            if groups[group] < SMALLEST_GROUP or not group[0]:
                lines += self.method(method)
            elif method is next(one for one in self.entry["methods"] if self.group(one) == group):
                lines += self.methods([one for one in self.entry["methods"] if self.group(one) == group], group)
        lines += self.other_functions() + self.variables() + self.other_structures()
        return re.sub(r"\n{3,}", "\n\n", "\n".join(lines)).rstrip() + "\n"

    def group(self, method):
        """Functions of a group that says something of all its members: their contracts are one."""
        function = self.api.function(method["function"])
        shared = function["text"].split("\n\n")[-1] if "\n\n" in function["text"] else ""
        return function["group"], shared, json.dumps(function["returns"])

    def methods(self, methods, group):
        functions = [self.api.function(method["function"]) for method in methods]
        rows = []
        for method, function in zip(methods, functions):
            example = Example(self.gateway, self.call(method), method)
            own = function["text"].removesuffix(group[1]).strip()
            given = [code(word) for word in example.words[3:]]
            name = "" if method["name"] == method["function"] else f"{method['name']}: "
            rows.append([name + code(function["declaration"]), cell(own), " → ".join([*given, code(example.output.strip())]),
                         example.platform_calls()])
        told = list(dict.fromkeys(f"- `{name}`: {text}" for function in functions
                                  for name, text in function["parameterTexts"].items()))
        return [f"## {group[0]}", "", group[1], "", *told, "", *table(["", "", ""], self.api.returns(functions[0])),
                *table(["function", "", "example", "platform calls"], rows)]

    def call(self, method):
        return f"{self.entry['name']} {method['name']}"

    def method(self, method):
        function = self.api.function(method["function"])
        members = {entry["name"] for entry in method["arguments"] + method["answer"]}
        others = [["", code(name), cell(text)] for name, text in function["parameterTexts"].items()
                  if name not in members]
        example = Example(self.gateway, self.call(method), method)
        calls = example.platform_calls()
        return [f"## {method['name']}", "", f"{code(function['declaration'])}\\", function["text"], "",
                *table(["", "", ""], [*others, *self.members("in", method["arguments"], function, method),
                                      *self.members("out", method["answer"], function, method),
                                      *self.api.returns(function), *example.row(),
                      *([["platform calls", "", calls]] if calls else [])]),
                *example.console()]

    def members(self, direction, members, function, method):
        """Members without a meaning of their own that follow each other share a row; a record's stand once."""
        structures = [word for one in function["parameters"] for word in one["type"].split()
                      if word in self.api.structures]
        rows = []
        for name, kind, inner, function_of in self.flattened(members, structures, function, method):
            meaning = self.api.meaning(name.split(".")[-1], inner, function_of)
            if rows and not meaning and rows[-1][2] == kind:
                rows[-1][1] += f", {code(name)}"
            else:
                rows.append([direction, code(name), kind + (f": {cell(meaning)}" if meaning else "")])
        return rows

    def flattened(self, members, structures, function, method, prefix=""):
        seen = self.shown_structures.get(structures[0]) if structures else None
        fields = [field["name"] for field in self.api.structures[structures[0]]["members"]] if structures else []
        for entry in members:
            is_field = entry["name"] in fields and entry["name"] not in function["parameterTexts"]
            if is_field and seen and seen != method["name"]:
                if entry is members[0]:
                    yield f"{prefix}…", f"as in [{seen}](#{seen.lower()})", [], {"parameterTexts": {}}
                continue
            kind = ("rows of " if entry.get("rows") else "") + entry["type"]
            kind += "".join(f", {note}" for note in ("optional", "secret") if entry.get(note))
            yield prefix + entry["name"], kind, structures, function if not prefix else {"parameterTexts": {}}
            inner = [word for word in entry["type"].split() if word in self.api.structures]
            if inner:
                yield from self.flattened(entry.get("fields", []), inner, function, method, f"{prefix}{entry['name']}.")
        for structure in structures:
            self.shown_structures.setdefault(structure, method["name"])

    def other_functions(self):
        reached = {method["function"] for method in self.entry["methods"]}
        lines = []
        for name, function in self.api.functions.items():
            if function["header"] == self.header and name not in reached:
                lines += [f"## {name}", "", code(function["declaration"]), "", function["text"], "",
                          *table(["", "", ""], self.api.returns(function))]
        return lines

    def variables(self):
        rows = [[code(variable["declaration"]), cell(variable["text"])] for variable in self.file["variables"]]
        return ["## Exported variables", "", *table(["variable", ""], rows)] if rows else []

    def other_structures(self):
        lines = []
        for name in self.file["structures"]:
            if name not in self.shown_structures:
                structure = self.api.structures[name]
                lines += [f"## {name}", "", structure["text"], "",
                          *table(["field", ""], [[code(field["declaration"]), cell(field["text"])]
                                                 for field in structure["members"]])]
        return lines


def index(api, listing):
    objects = [[f"[{entry['name']}]({entry['name']}.md)", cell(entry["summary"]), str(len(entry["methods"]))]
               for entry in listing]
    codes = [[code(name), str(number), cell(text)] for name, (number, text) in api.codes.items()]
    return INDEX.format(objects="\n".join(table(["object", "", "methods"], objects)),
                        rules=api.files["pmapi/types.h"]["text"], code_rules=api.files["pmapi/status.h"]["text"],
                        codes="\n".join(table(["code", "", "says"], codes)))


def generate():
    """{file name: content}"""
    with tempfile.TemporaryDirectory() as directory:
        api, gateway = Api(), Gateway(directory)
        listing = json.loads(gateway.run("list", "--json")[0])
        pages = [Page(api, gateway, entry) for entry in listing]
        with concurrent.futures.ThreadPoolExecutor(4) as pool:
            contents = dict(zip((f"{page.entry['name']}.md" for page in pages), pool.map(Page.render, pages)))
    return {**contents, "README.md": index(api, listing)}


def compare(contents):
    same = True
    for name in sorted({path.name for path in PAGES.glob("*.md")} | set(contents)):
        page = PAGES / name
        old = page.read_text().splitlines() if page.exists() else []
        for line in difflib.unified_diff(old, contents.get(name, "").splitlines(), f"docs/reference/{name}",
                                         "what is generated", lineterm="", n=1):
            same = False
            print(line)
    return same


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true")
    check = parser.parse_args().check
    contents = generate()
    if check:
        if not compare(contents):
            sys.exit("reference: the pages are not up to date; run scripts/reference.py")
        return
    for page in PAGES.glob("*.md"):
        page.unlink()
    for name, content in contents.items():
        (PAGES / name).write_text(content)


if __name__ == "__main__":
    main()
