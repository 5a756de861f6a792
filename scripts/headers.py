#!/usr/bin/env python3
"""headers.py OUTPUT: what the headers of include/platform and include/pmapi declare, for all who need it.

doxygen reads the headers, once; whatever else knows a prototype, a contract or a number's name takes it from
here. Written into the directory OUTPUT:

  api.json       functions with parameters and contracts, structures with their members, globals, enumerations
  calls.inc      CALL(result, name, (parameters), (arguments), PARAMETER("name", elements)...), one per
                 function of the platform that is not variadic
  contracts.inc  CONTRACT("name", "sentence"), HANDS_ON("name") and RETURNS("name", code) of each export
  enums.inc      ENUMERATOR(enumeration, name) of the platform's enumerations
  exports.txt    what the library exports, a name a line
"""

import json
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

DOXYGEN = """
INPUT={include}/platform {include}/pmapi
FILE_PATTERNS=*.h
STRIP_FROM_PATH={include}
GENERATE_HTML=NO
GENERATE_LATEX=NO
GENERATE_XML=YES
XML_PROGRAMLISTING=NO
OUTPUT_DIRECTORY={output}
OPTIMIZE_OUTPUT_FOR_C=YES
EXTRACT_ALL=YES
MACRO_EXPANSION=YES
EXPAND_ONLY_PREDEF=YES
PREDEFINED=PMAPI_EXPORT= PMAPI_BEGIN_DECLS= PMAPI_END_DECLS= PMAPI_ALIGN8= PLATFORM_IMPORT= PLATFORM_BEGIN_DECLS= \
  PLATFORM_END_DECLS= PLATFORM_INSTANCE_SIZE=32 "__attribute__(x)="
QUIET=YES
WARNINGS=NO
"""


def squeezed(text):
    return re.sub(r"\s+", " ", text or "")


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
            self.returns.append(["", plain(element)])
            return ""
        if element.tag == "itemizedlist":
            items = "".join(f"\n- {' '.join(self.inline(para) for para in item)}" for item in element)
            return f"\n{items}\n\n"
        return self.inline(element)

    def list(self, element):
        for item in element.findall("parameteritem"):
            text = " ".join(self.inline(para) for para in item.find("parameterdescription"))
            for name in item.iter("parametername"):
                if element.get("kind") == "retval":
                    self.returns.append([plain(name), text])
                else:
                    self.parameters[plain(name)] = text


def plain(element):
    return Prose().inline(element) if len(element) else squeezed(element.text).strip()


def text_of(element):
    return squeezed("".join(element.itertext())).strip() if element is not None else ""


def declared(type_text, name, array=""):
    return f"{type_text}{'' if type_text.endswith('*') else ' '}{name}{array}"


class Headers:
    """Everything that doxygen says of the headers, without its XML."""

    def __init__(self, include=ROOT / "include"):
        self.files, self.functions, self.structures, self.enums = {}, {}, {}, {}
        with tempfile.TemporaryDirectory() as scratch:
            subprocess.run(["doxygen", "-"], input=DOXYGEN.format(include=include, output=scratch), text=True,
                           check=True, stdout=subprocess.DEVNULL)
            for path in sorted((Path(scratch) / "xml").glob("*.xml")):
                compound = ElementTree.parse(path).getroot().find("compounddef")
                if compound is not None:
                    self.read(compound)

    def read(self, compound):
        name = compound.findtext("compoundname")
        if compound.get("kind") == "struct":
            self.structures[name] = {"text": prose_of(compound).text,
                                     "members": [self.variable(one) for _, one in members(compound, "variable")]}
        elif compound.get("kind") == "file":
            location = compound.find("location").get("file")
            side = "platform" if "platform/" in location else "pmapi"
            self.files[f"{side}/{name}"] = {
                "text": prose_of(compound).text,
                "structures": [squeezed(inner.text) for inner in compound.findall("innerclass")],
                "variables": [self.variable(one) for _, one in members(compound, "variable")]}
            for section, definition in members(compound, "function"):
                self.functions[definition.findtext("name")] = self.function(f"{side}/{name}", section, definition)
            for _, definition in members(compound, "enum"):
                self.enums[definition.findtext("name")] = {
                    "header": f"{side}/{name}",
                    "values": [[value.findtext("name"), text_of(value.find("initializer")).lstrip("= "),
                                prose_of(value).text] for value in definition.findall("enumvalue")]}

    @staticmethod
    def variable(definition):
        type_text = text_of(definition.find("type")).replace(" *", " *")
        array = definition.findtext("argsstring") or ""
        return {"name": definition.findtext("name"), "type": type_text, "array": array,
                "declaration": declared(type_text, definition.findtext("name"), array).replace("* ", "*"),
                "text": prose_of(definition).text}

    @staticmethod
    def function(header, section, definition):
        prose = prose_of(definition, section.find("description"))
        parameters = [{"type": text_of(one.find("type")), "name": one.findtext("declname") or "",
                       "array": one.findtext("array") or ""}
                      for one in definition.findall("param") if text_of(one.find("type")) != "void"]
        result = text_of(definition.find("type"))
        arguments = definition.findtext("argsstring") or ""
        return {"header": header, "group": section.findtext("header") or "", "result": result, "parameters": parameters, "variadic": "..." in arguments,
                "declaration": declared(result, definition.findtext("name"), arguments).replace("* ", "*"),
                "brief": prose_of(None, None, definition.find("briefdescription")).text,
                "text": prose.text, "parameterTexts": prose.parameters, "returns": prose.returns}

    def code(self, name):
        """The number of a return code, written as a number or as a name of one."""
        for enum in self.enums.values():
            for known, value, _ in enum["values"]:
                if known == name:
                    return int(value, 0)
        return int(name.strip("()"), 0)

    def on(self, side):
        return {name: one for name, one in self.functions.items() if one["header"].startswith(side + "/")}


def members(compound, kind):
    for section in compound.findall("sectiondef"):
        for definition in section.findall("memberdef"):
            if definition.get("kind") == kind:
                yield section, definition


def prose_of(element, shared=None, only=None):
    if element is None:
        return Prose(only)
    return Prose(element.find("briefdescription"), element.find("detaileddescription"), shared)


def quoted(text):
    return json.dumps(text, ensure_ascii=False)


def call_line(name, function):
    parameters = function["parameters"]
    listed = ", ".join(declared(one["type"], one["name"], one["array"]) for one in parameters)
    names = ", ".join(one["name"] for one in parameters)
    described = "".join(f', PARAMETER("{one["name"]}", {one["array"].strip("[]") or 0})' for one in parameters)
    return f"CALL({function['result']}, {name}, ({listed}), ({names}){described})"


def contract_lines(headers, name, function):
    sentence = re.split(r"(?<=[.;])\s", function["text"].split("\n")[0])[0]
    yield f"CONTRACT({quoted(name)}, {quoted(sentence)})"
    if function["result"] == "void":
        yield f"RETURNS({quoted(name)}, 0)"
    for value, text in function["returns"]:
        if value:
            yield f"RETURNS({quoted(name)}, {headers.code(value)})"
        else:
            first = re.split(r"[.;]", text)[0]
            if re.search(r"\b0\b", first):
                yield f"RETURNS({quoted(name)}, 0)"
            if "always" not in first:
                yield f"HANDS_ON({quoted(name)})"


def write(headers, output):
    def lines(name, content):
        path = output / name
        text = "".join(f"{line}\n" for line in content)
        # What did not change keeps its time, and whoever includes it is not compiled again.
        if not path.exists() or path.read_text() != text:
            path.write_text(text)

    output.mkdir(parents=True, exist_ok=True)
    exports, imports = headers.on("pmapi"), headers.on("platform")
    lines("api.json", [json.dumps(vars(headers), ensure_ascii=False, indent=1)])
    lines("calls.inc", [call_line(name, one) for name, one in imports.items() if not one["variadic"]])
    lines("contracts.inc", [line for name, one in exports.items() for line in contract_lines(headers, name, one)])
    lines("enums.inc", [f"ENUMERATOR({enum}, {name})" for enum, one in headers.enums.items()
                        if one["header"].startswith("platform/") for name, _, _ in one["values"]])
    variables = [one["name"] for file, one in headers.files.items() if file.startswith("pmapi/")
                 for one in one["variables"]]
    lines("exports.txt", sorted([*exports, *variables]))
    lines("imports.txt", sorted(imports))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__.splitlines()[0])
    write(Headers(), Path(sys.argv[1]))
