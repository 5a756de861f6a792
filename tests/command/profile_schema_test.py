#!/usr/bin/env python3
"""profile_schema_test.py EXAMPLES COMMAND...: the printed schema and the gateway know the same members."""

import copy
import functools
import json
import operator
import subprocess
import sys
from pathlib import Path

import jsonschema

EXAMPLES, COMMAND = Path(sys.argv[1]), sys.argv[2:]
SCHEMA = json.loads(subprocess.run([*COMMAND, "list", "--schema"], check=True, capture_output=True).stdout)
# What a topology or a description says is not the format's.
FREE = (("description",), ("mesh", "topology"))


def objects(value, path=()):
    if path in FREE:
        return
    if isinstance(value, dict):
        yield path
    if isinstance(value, (dict, list)):
        for key, child in value.items() if isinstance(value, dict) else enumerate(value):
            yield from objects(child, (*path, key))


def sample(schema):
    """A value with every member that the schema knows."""
    samples = {"object": lambda: {name: sample(member) for name, member in schema.get("properties", {}).items()},
               "array": lambda: [sample(schema["items"])], "string": str, "boolean": bool,
               "integer": lambda: schema["minimum"]}
    return sample(schema["anyOf"][-1]) if "anyOf" in schema else samples[schema.get("type", "string")]()


def refusal(profile):
    done = subprocess.run([*COMMAND, "--gateway", "/dev/stdin", "call", "helpers", "GetUpTime"],
                          input=json.dumps(profile), capture_output=True, text=True)
    return done.stderr.strip() if done.returncode else ""


def problems():
    validator, seen = jsonschema.Draft7Validator(SCHEMA), set()
    for file in sorted(EXAMPLES.glob("*.json")):
        profile = json.loads(file.read_text())
        yield from (f"{file.name}: {error.json_path}: {error.message}" for error in validator.iter_errors(profile))
        for path in objects(profile):
            kind = tuple("*" if isinstance(key, int) else key for key in path if not str(key).startswith("IGD"))
            changed = copy.deepcopy(profile)
            functools.reduce(operator.getitem, path, changed)["noSuchMember"] = 1.5
            if kind not in seen and (validator.is_valid(changed) or not refusal(changed)):
                yield f"{file.name}: {path} takes any member"
            seen.add(kind)
    for name, member in SCHEMA["properties"].items():
        if "no such" in (refused := refusal({name: sample(member)})):
            yield f"the schema knows more than the gateway: {refused}"


sys.exit("\n".join(problems()) or 0)
