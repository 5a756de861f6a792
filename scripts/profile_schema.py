#!/usr/bin/env python3
"""Makes docs/profile.schema.json, the JSON schema of gateway profiles.

profile_schema.py           writes it
profile_schema.py --check   sees that it is up to date, that every profile in examples/ satisfies it, and that
                            it and the virtual gateway agree about broken copies of those profiles

Views and records come from the layouts that the command lists, everything else from docs/profile_sections.json.
"""

import argparse
import concurrent.futures
import copy
import json
import subprocess
import sys
import tempfile
from pathlib import Path

import jsonschema

ROOT = Path(__file__).resolve().parent.parent
COMMAND = ROOT / "build/host/bin/pmapi"
SCHEMA = ROOT / "docs/profile.schema.json"
IPV6_WIDTH = 16
LATEST = 2**53
NO_SUCH_MEMBER = "noSuchMember"


def field_schema(field):
    kind = field["kind"]
    if kind == "text":
        return {"type": "string", "maxLength": field["longest"]}
    if kind == "bytes" and field["width"] != IPV6_WIDTH:
        return {"type": "string", "pattern": f"^([0-9A-Fa-f]{{2}}){{0,{field['width']}}}$"}
    return {"$ref": f"#/$defs/{'ipv6' if kind == 'bytes' else 'field.' + kind}"}


def tables_schema(layouts):
    tables = {}
    for name, fields in layouts.items():
        members = {field["name"]: field_schema(field) for field in fields if field["kind"] != "pointer"}
        instance = {"type": "object", "additionalProperties": False, "properties": members}
        tables[name] = {"type": "object", "propertyNames": {"minLength": 1}, "additionalProperties": instance}
    return {"type": "object", "additionalProperties": False, "properties": tables}


def generate():
    listed = json.loads(subprocess.run([COMMAND, "list", "--layouts"], check=True, capture_output=True).stdout)
    written = json.loads((ROOT / "docs/profile_sections.json").read_text())
    # Messages are kept for tests only, no profile holds any.
    missing = set(listed["sections"]) - {"messages"} ^ set(written["properties"])
    if missing:
        sys.exit(f"profile_schema: docs/profile_sections.json and the gateway differ in {sorted(missing)}")
    number = {"type": "integer", "minimum": -2147483648, "maximum": 4294967295}
    return {
        "$schema": "http://json-schema.org/draft-07/schema#",
        "title": "Profile of a virtual gateway",
        "type": "object",
        "additionalProperties": False,
        "properties": {
            "description": True,
            "clock": {
                "type": "object",
                "additionalProperties": False,
                "properties": {
                    "uptime": {"$ref": "#/$defs/time", "description": "Seconds since the gateway started"},
                    "time": {"$ref": "#/$defs/time", "description": "Seconds since 1970"},
                },
            },
            "views": tables_schema(listed["views"]),
            "records": tables_schema(listed["records"]),
            "files": {
                "description": "A text, or lines",
                "type": "object",
                "additionalProperties": {
                    "anyOf": [{"type": "string"}, {"type": "array", "items": {"type": "string"}}]},
            },
            **written["properties"],
        },
        "$defs": {
            **written["$defs"],
            "time": {"type": "integer", "minimum": 0, "maximum": LATEST},
            "field.word": {"anyOf": [number, {"type": "boolean"}, {"$ref": "#/$defs/ipv4"}]},
            "field.byte": {"type": "integer", "minimum": 0, "maximum": 255},
            "field.mac": {"$ref": "#/$defs/mac"},
            "field.counter": {"$ref": "#/$defs/count"},
        },
    }


def places(value, path=()):
    """Every place in a profile, as the keys that lead there."""
    yield path
    children = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ()
    for key, child in children:
        yield from places(child, (*path, key))


def kind_of(path, schema):
    """The same for places that are read alike: elements of an array, instances, fields of one type."""
    if len(path) > 1 and path[0] in ("views", "records"):
        tables = schema["properties"][path[0]]["properties"]
        fields = tables[path[1]]["additionalProperties"]["properties"]
        return len(path), json.dumps(fields[path[3]]) if len(path) > 3 else ""
    return tuple("*" if isinstance(key, int) else key for key in path)


def replaced(profile, path, value):
    broken = copy.deepcopy(profile)
    if not path:
        return value
    inner = broken
    for key in path[:-1]:
        inner = inner[key]
    inner[path[-1]] = value
    return broken


def at(profile, path):
    for key in path:
        profile = profile[key]
    return profile


def broken_copies(profiles, schema):
    """One copy for each part of the format and each way to break it."""
    seen = set()
    for name, profile in profiles:
        for path in places(profile):
            # What a topology or a description says is not the format's.
            kind = kind_of(path, schema)
            if kind in seen or path[:2] == ("mesh", "topology") or path[:1] == ("description",):
                continue
            seen.add(kind)
            value = at(profile, path)
            if isinstance(value, dict):
                yield name, (*path, NO_SUCH_MEMBER), replaced(profile, path, {**value, NO_SUCH_MEMBER: 1.5})
            for wrong in ([], {}, "?", "x" * 5000, True, None, -1, 1.5, 2 ** 63):
                if type(wrong) is not type(value) or wrong != value:
                    yield name, path, replaced(profile, path, wrong)


def refused_by_gateway(profile, directory, number):
    file = Path(directory) / f"{number}.json"
    file.write_text(json.dumps(profile))
    done = subprocess.run([COMMAND, "--gateway", file, "call", "helpers", "GetUpTime"], capture_output=True,
                          text=True)
    file.unlink()
    return done.returncode != 0, done.stderr.strip()


def check_agreement(validator, profiles):
    """Lines about copies that only one of schema and gateway refuses."""
    copies = list(broken_copies(profiles, validator.schema))
    with tempfile.TemporaryDirectory() as directory, concurrent.futures.ThreadPoolExecutor(2) as pool:
        verdicts = pool.map(lambda job: refused_by_gateway(job[1][2], directory, job[0]), enumerate(copies))
        refused = 0
        for (name, path, broken), (is_refused, reason) in zip(copies, verdicts):
            refused += is_refused
            if is_refused == validator.is_valid(broken):
                place = ".".join(map(str, path))
                value = "" if path and path[-1] == NO_SUCH_MEMBER else repr(at(broken, path))[:20]
                yield f"{name}: {place} {value}: the gateway " + (f"refuses: {reason}" if is_refused else "takes it")
    print(f"profile_schema: {len(copies)} broken copies of {len(profiles)} profiles, "
          f"the gateway refuses {refused} of them")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true")
    text = json.dumps(schema := generate(), indent=1) + "\n"
    if not parser.parse_args().check:
        SCHEMA.write_text(text)
        return
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    profiles = [(path.name, json.loads(path.read_text())) for path in sorted((ROOT / "examples").glob("*.json"))]
    problems = [] if SCHEMA.read_text() == text else ["docs/profile.schema.json is not up to date"]
    problems += [f"{name}: {error.json_path}: {error.message}"
                 for name, profile in profiles for error in validator.iter_errors(profile)]
    problems += check_agreement(validator, profiles)
    print("".join(f"profile_schema: {problem}\n" for problem in problems), end="")
    sys.exit(1 if problems else 0)


if __name__ == "__main__":
    main()
