#!/usr/bin/env python3
"""Makes docs/reference/: one page per object of the daemon, and their index.

reference.py           writes the pages
reference.py --check   compares them with what would be written, and ends with an error where they differ

What stands on a page is read from the public headers (by doxygen), from the command's table
(`pmapi list --json`) and from calls that are really made on the host build. An example is a step of
examples/*.jsonl for the method, or what docs/reference/calls.json says; its failures are found by making each
platform call of the example fail once.
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
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PAGES = ROOT / "docs" / "reference"
COMMAND = ROOT / "build" / "host" / "bin" / "pmapi"
DEFAULT_PROFILE = "examples/home_router.json"

# Profile and arguments of methods whose scenarios do not serve as an example, perhaps after another call;
# "OBJECT *" stands for all methods of an object whose scenarios do not succeed.
CALLS = json.loads((PAGES / "calls.json").read_text())

WIDE_ANSWER = 160
LONGEST_EXAMPLE = 40
LONGEST_LOG_TEXT = 160

DOXYGEN = """
INPUT={headers}
FILE_PATTERNS=*.h
STRIP_FROM_PATH={headers}
GENERATE_HTML=NO
GENERATE_LATEX=NO
GENERATE_XML=YES
XML_PROGRAMLISTING=NO
OUTPUT_DIRECTORY={output}
OPTIMIZE_OUTPUT_FOR_C=YES
EXTRACT_ALL=YES
MACRO_EXPANSION=YES
EXPAND_ONLY_PREDEF=YES
PREDEFINED=PMAPI_EXPORT= PMAPI_BEGIN_DECLS= PMAPI_END_DECLS= PMAPI_ALIGN8=
QUIET=YES
"""


class Prose:
    """A comment of a header: text, parameters, what is returned."""

    def __init__(self, *elements):
        self.text = ""
        self.parameters = {}
        self.returns = []
        for element in elements:
            if element is not None:
                for child in element:
                    self.read(child)
        self.text = re.sub(r"\n{3,}", "\n\n", self.text).strip()

    def read(self, element):
        if element.tag == "para":
            self.text += self.inline(element) + "\n\n"
        elif element.tag == "sect1":
            for child in element:
                self.read(child)

    def inline(self, element):
        text = squeezed(element.text)
        for child in element:
            text += self.part(child) + squeezed(child.tail)
        return text.strip()

    def part(self, element):
        if element.tag in ("computeroutput", "ref"):
            return f"`{squeezed(''.join(element.itertext())).strip()}`"
        if element.tag == "parameterlist":
            self.list(element)
            return ""
        if element.tag == "simplesect" and element.get("kind") == "return":
            self.returns.append(("", plain(element)))
            return ""
        if element.tag == "itemizedlist":
            items = "".join(f"\n- {' '.join(self.inline(para) for para in item)}" for item in element)
            return f"\n{items}\n\n"
        return self.inline(element)

    def list(self, element):
        for item in element.findall("parameteritem"):
            text = " ".join(self.inline(para) for para in item.find("parameterdescription"))
            for name in item.iter("parametername"):
                word = squeezed("".join(name.itertext())).strip()
                if element.get("kind") == "retval":
                    self.returns.append((word, text))
                else:
                    self.parameters[word] = text


def squeezed(text):
    return re.sub(r"\s+", " ", text or "")


def plain(element):
    return Prose().inline(element) if len(element) else squeezed(element.text).strip()


class Headers:
    """Functions, variables, structures and codes of the public headers."""

    def __init__(self, scratch):
        configuration = DOXYGEN.format(headers=ROOT / "include/pmapi", output=scratch)
        subprocess.run(["doxygen", "-"], input=configuration, text=True, check=True, stdout=subprocess.DEVNULL)
        self.files = {}
        self.structures = {}
        self.codes = {}
        for path in sorted((Path(scratch) / "xml").glob("*.xml")):
            compound = ElementTree.parse(path).getroot().find("compounddef")
            if compound is None:
                continue
            name = compound.findtext("compoundname")
            if compound.get("kind") == "file":
                self.files[name.removesuffix(".h")] = self.file(compound)
                for value in compound.iter("enumvalue"):
                    number = int(value.findtext("initializer").removeprefix("="))
                    self.codes[value.findtext("name")] = (number, prose_of(value).text)
            elif compound.get("kind") == "struct":
                self.structures[name] = {
                    "prose": prose_of(compound),
                    "fields": {field["name"]: field for field in self.members(compound, "variable")},
                }

    def file(self, compound):
        return {
            "prose": prose_of(compound),
            "functions": {function["name"]: function for function in self.members(compound, "function")},
            "variables": self.members(compound, "variable"),
            "structures": [squeezed(inner.text) for inner in compound.findall("innerclass")],
        }

    def members(self, compound, kind):
        return [member(definition, section.find("description"))
                for section in compound.findall("sectiondef")
                for definition in section.findall("memberdef") if definition.get("kind") == kind]


def prose_of(element, shared=None):
    return Prose(element.find("briefdescription"), element.find("detaileddescription"), shared)


def member(definition, shared):
    type_text = squeezed("".join(definition.find("type").itertext())).strip()
    name = definition.findtext("name")
    return {
        "name": name,
        "declaration": f"{type_text} {name}{definition.findtext('argsstring') or ''}".replace("* ", "*"),
        "types": re.findall(r"\w+", definition.findtext("argsstring") or ""),
        "type": type_text,
        "prose": prose_of(definition, shared),
    }


class Gateway:
    """The command, run as its user would."""

    def __init__(self, directory):
        self.directory = directory
        (Path(directory) / "examples").symlink_to(ROOT / "examples")

    def run(self, *arguments):
        done = subprocess.run([str(COMMAND), *arguments], cwd=self.directory, text=True, capture_output=True)
        return done.returncode, done.stdout, done.stderr

    def call(self, example, *options):
        return self.run(*options, *example.options, *example.words)


class Example:
    def __init__(self, profile, call, arguments):
        self.options = ["--gateway", profile] if profile != DEFAULT_PROFILE else []
        self.shown_options = self.options
        self.words = ["call", *call.split()]
        if arguments:
            self.words.append(json.dumps(arguments, separators=(",", ":"), ensure_ascii=False))
        self.before = []

    def after(self, gateway, call, arguments):
        """Lets another call come first, whose gateway this one finds."""
        first = Example(DEFAULT_PROFILE, call, arguments)
        state = f"{first.words[1]}.json"
        _, output, _ = gateway.run("--state", state, "--log-level", "0", *first.words)
        self.shown_options = ["--state", "gateway.json"]
        self.before = [f"$ {shlex.join(['pmapi', *self.shown_options, *first.words])}", *output.splitlines()]
        self.options = ["--gateway", state]
        return self


def scenario_calls():
    """{"object method": [(profile, arguments), ...]} of the scenarios."""
    calls = collections.defaultdict(list)
    for transcript in sorted((ROOT / "examples").glob("*.jsonl")):
        profile = DEFAULT_PROFILE
        for line in transcript.read_text().splitlines():
            if not line.startswith("{"):
                continue
            step = json.loads(line)
            if "gateway" in step:
                profile = f"examples/{step['gateway']}"
            if "call" in step:
                calls[step["call"]].append((profile, step.get("with", {})))
    return calls


def candidates(call, method, scenarios):
    found = [] if call in CALLS else list(scenarios.get(call, []))
    chosen = CALLS.get(call) or CALLS.get(f"{call.split()[0]} *")
    if chosen:
        names = [argument["name"] for argument in method["arguments"]]
        arguments = {name: value for name, value in chosen.get("with", {}).items() if name in names}
        return [*found, (chosen.get("gateway", DEFAULT_PROFILE), arguments)]
    if all(argument.get("optional") for argument in method["arguments"]):
        others = sorted(f"examples/{path.name}" for path in (ROOT / "examples").glob("*.json"))
        found = [(DEFAULT_PROFILE, {})] + found + [(profile, {}) for profile in others]
    return found


def is_telling(code, output):
    return code == 0 and "[]" not in output


def choose_example(gateway, call, method, scenarios):
    """The first candidate that succeeds with something to show, else that succeeds, else the first."""
    tried = []
    for profile, arguments in candidates(call, method, scenarios):
        example = Example(profile, call, arguments)
        code, output, _ = gateway.call(example, "--log-level", "0")
        if is_telling(code, output):
            return example
        if "after" in CALLS.get(call, {}):
            return example.after(gateway, CALLS[call]["after"], CALLS[call]["afterWith"])
        tried.append((code, example))
    succeeded = [example for code, example in tried if code == 0]
    return (succeeded or [example for _, example in tried] or [None])[0]


def log_lines(trail):
    """What a trail holds at levels 0 and 4, without the lines' places in their sources."""
    lines = []
    for line in trail.splitlines():
        found = re.match(r"([04]) \w+\.c:\d+ (\w+)( \(-?\d+\))?: (.*)", line)
        if found:
            text = found[4] if len(found[4]) <= LONGEST_LOG_TEXT else found[4][:LONGEST_LOG_TEXT] + "…"
            lines.append(f"{found[1]} {found[2]}{found[3] or ''}: {text}".rstrip())
    return lines


def result_of(output, method):
    try:
        return json.loads(output).get(method["result"])
    except json.JSONDecodeError:
        return None


def failures(gateway, example, method):
    """[(calls, result, log lines)], one for each way in which a failing platform call shows."""
    _, output, trail = gateway.call(example, "--fail", "*@1000000")
    met = re.search(r"fault never fired: .*\(met (\d+)\)", trail)
    usual_lines, usual_result = collections.Counter(log_lines(trail)), result_of(output, method)
    rows = {}
    for number in range(1, int(met[1]) + 1 if met else 1):
        _, output, trail = gateway.call(example, "--trace", "--fail", f"*@{number}x1")
        failing = re.search(r"^> (\w+)\((.*)\) = .* \[fault\]$", trail, re.MULTILINE)
        added = []
        left = usual_lines.copy()
        for line in log_lines(trail):
            if left[line]:
                left[line] -= 1
            else:
                added.append(line)
        result = result_of(output, method)
        name = failing[1] if failing else f"call {number}"
        key = failing[2].split(" ")[0] if failing else ""
        shown = f"{name}({key})" if key.startswith(("DBVIEW_", "/")) else name
        calls = rows.setdefault((result, tuple(added)), [])
        if shown not in calls:
            calls.append(shown)
    unnoticed = rows.pop((usual_result, ()), [])
    return [(calls, *seen) for seen, calls in rows.items()], unnoticed, usual_result


def code(text):
    text = str(text).replace("|", "\\|")
    return f"`` {text} ``" if "`" in text else f"`{text}`"


def cell(text):
    return text.replace("|", "\\|").replace("\n", " ")


def table(head, rows):
    if not rows:
        return []
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return lines + ["| " + " | ".join(row) + " |" for row in rows] + [""]


class Page:
    def __init__(self, headers, gateway, entry, scenarios):
        self.headers, self.gateway, self.entry, self.scenarios = headers, gateway, entry, scenarios
        self.file = headers.files.get(entry["name"], {"prose": Prose(), "functions": {}, "variables": [],
                                                      "structures": []})
        self.shown_structures = set()
        self.without_example = []

    def render(self):
        entry = self.entry
        header = entry["name"] + ".h"
        tag = f"log tag `{entry['source']}`" if entry["source"] else "no log lines"
        lines = [f"# {entry['name']}", "", self.file["prose"].text, "",
                 f"Header [`pmapi/{header}`](../../include/pmapi/{header}), {tag}. "
                 "What holds for all functions: [the index](README.md#what-holds-for-all-functions).", ""]
        if len(entry["methods"]) > 1:
            lines += [", ".join(f"[{method['name']}](#{method['name'].lower()})"
                                for method in entry["methods"]), ""]
        for method in entry["methods"]:
            lines += self.method(method)
        lines += self.other_functions() + self.variables() + self.other_structures()
        return re.sub(r"\n{3,}", "\n\n", "\n".join(lines)).rstrip() + "\n"

    def method(self, method):
        function = self.function(method["function"])
        prose = function["prose"]
        lines = [f"## {method['name']}", "", "```c", f"{function['declaration']};", "```", "", prose.text, ""]
        members = {entry["name"] for entry in method["arguments"] + method["answer"]}
        lines += [f"- `{name}`: {text}" for name, text in prose.parameters.items() if name not in members]
        lines += ["", *table(["returns", "when"], self.returns(function))]
        lines += table(["", "member", "type", ""],
                       self.members("in", method["arguments"], function)
                       + self.members("out", method["answer"], function))
        return lines + self.example(method)

    def function(self, name):
        for file in self.headers.files.values():
            # A method may also read an exported variable.
            for declared in (*file["functions"].values(), *file["variables"]):
                if declared["name"] == name:
                    return declared
        raise SystemExit(f"reference: no header declares {name}")

    def returns(self, function):
        return [[self.returned(value, function["type"]), cell(text)] for value, text in function["prose"].returns]

    def returned(self, value, kind):
        if value not in self.headers.codes:
            return code(value) if value else ""
        number = self.headers.codes[value][0]
        return f"{code(value)} ({f'0x{number % 2**32:08X}' if kind == 'uint32_t' else number})"

    def members(self, direction, members, function, prefix="", structures=None):
        rows = []
        if structures is None:
            structures = [name for name in function["types"] if name in self.headers.structures]
        self.shown_structures.update(structures)
        for entry in members:
            name = prefix + entry["name"]
            kind = ("rows of " if entry.get("rows") else "") + entry["type"]
            notes = [word for word in ("optional", "secret") if entry.get(word)]
            text = self.meaning(entry["name"], structures, function if not prefix else None)
            rows.append([direction, code(name), kind + "".join(f", {note}" for note in notes), cell(text)])
            inner = [word for word in entry["type"].split() if word in self.headers.structures]
            rows += self.members(direction, entry.get("fields", []), function, name + ".", inner)
        return rows

    def meaning(self, name, structures, function):
        if function and name in function["prose"].parameters:
            return function["prose"].parameters[name]
        for structure in structures:
            field = self.headers.structures[structure]["fields"].get(name)
            if field:
                return field["prose"].text
        return ""

    def example(self, method):
        call = f"{self.entry['name']} {method['name']}"
        example = choose_example(self.gateway, call, method, self.scenarios)
        if example is None:
            self.without_example.append(call)
            return []
        _, output, _ = self.gateway.call(example, "--log-level", "0")
        options = []
        if len(output) > WIDE_ANSWER:
            options = ["--table"]
            _, output, _ = self.gateway.call(example, "--log-level", "0", "--table")
        shown = [line.rstrip() for line in output.splitlines()]
        if len(shown) > LONGEST_EXAMPLE:
            shown = shown[:LONGEST_EXAMPLE] + [f"… {len(shown) - LONGEST_EXAMPLE} more lines"]
        command = shlex.join(["pmapi", *options, *example.shown_options, *example.words])
        return ["```console", *example.before, f"$ {command}", *shown, "```", ""] + self.failures(example, method)

    def failures(self, example, method):
        rows, unnoticed, usual = failures(self.gateway, example, method)
        lines = table(["when this fails", method["result"], "log, level first"],
                      [[", ".join(code(call) for call in calls), code(result),
                        "<br>".join(code(line) for line in added)] for calls, result, added in rows])
        if unnoticed:
            lines += [f"Leaves {method['result']} {code(usual)} and no line at level 4 when it fails: "
                      + ", ".join(code(call) for call in unnoticed) + ".", ""]
        return lines

    def other_functions(self):
        reached = {method["function"] for method in self.entry["methods"]}
        lines = []
        for name, function in self.file["functions"].items():
            if name not in reached:
                lines += [f"## {name}", "", "```c", f"{function['declaration']};", "```", "",
                          function["prose"].text, ""]
                lines += table(["returns", "when"], self.returns(function))
        return lines

    def variables(self):
        rows = [[code(variable["declaration"]), cell(variable["prose"].text)]
                for variable in self.file["variables"]]
        return ["## Exported variables", "", *table(["variable", ""], rows)] if rows else []

    def other_structures(self):
        lines = []
        for name in self.file["structures"]:
            if name in self.shown_structures:
                continue
            structure = self.headers.structures[name]
            rows = [[code(field["declaration"]), cell(field["prose"].text)]
                    for field in structure["fields"].values()]
            lines += [f"## {name}", "", structure["prose"].text, "", *table(["field", ""], rows)]
        return lines


def index(headers, listing):
    rows = [[f"[{entry['name']}]({entry['name']}.md)", cell(entry["summary"]), str(len(entry["methods"]))]
            for entry in listing]
    return "\n".join([
        "# Reference", "",
        "One page per object of the daemon, made by `scripts/reference.py` from the public headers, the table of",
        "the `pmapi` command and the calls themselves. Examples are what the host build prints for the profiles",
        "in `examples/`. The tables of failures come from those examples too, each made again with one of the",
        "calls that it makes of the platform or the C library failing; `pmapi --trace` shows these calls.", "",
        *table(["object", "", "methods"], rows),
        "## What holds for all functions", "",
        headers.files["types"]["prose"].text, "",
        "## Codes", "", headers.files["status"]["prose"].text, "",
        *table(["code", "", "says"], [[code(name), str(number), cell(text)]
                                      for name, (number, text) in headers.codes.items()]),
        "## Log levels", "",
        "Levels: 0 a fault of a module, 4 an error, 5 entry lines and values, 7 the steps of a search,",
        "8 success of a single step.", ""])


def generate():
    """{file name: content}"""
    with tempfile.TemporaryDirectory() as scratch, tempfile.TemporaryDirectory() as directory:
        headers, gateway, scenarios = Headers(scratch), Gateway(directory), scenario_calls()
        listing = json.loads(gateway.run("list", "--json")[1])
        pages = [Page(headers, gateway, entry, scenarios) for entry in listing]
        with concurrent.futures.ThreadPoolExecutor(4) as pool:
            contents = dict(zip((f"{page.entry['name']}.md" for page in pages),
                                pool.map(Page.render, pages)))
        contents["README.md"] = index(headers, listing)
    missing = [call for page in pages for call in page.without_example]
    if missing:
        print("reference: no example (add to docs/reference/calls.json):", ", ".join(missing), file=sys.stderr)
    return contents, not missing


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
    contents, complete = generate()
    if check:
        if not compare(contents):
            sys.exit("reference: the pages are not up to date; run scripts/reference.py")
    else:
        for page in PAGES.glob("*.md"):
            page.unlink()
        for name, content in contents.items():
            (PAGES / name).write_text(content)
    sys.exit(0 if complete else 1)


if __name__ == "__main__":
    main()
