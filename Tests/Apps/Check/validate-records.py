#!/usr/bin/env python3
"""Validates JSON values against definitions of a JSON Schema.

Usage: validate-records.py SCHEMA < LINES

Each line is an array of the name of a definition, or "" for the schema itself, and a value. Prints a line for
each: the names of the members with errors, separated by spaces; "-" stands for the value itself.
"""

import json
import sys

import jsonschema

with open(sys.argv[1], encoding="utf-8") as file:
    schema = json.load(file)
for line in sys.stdin:
    name, value = json.loads(line)
    part = {**schema["$defs"][name], "$defs": schema["$defs"]} if name else schema
    members = set()
    for error in jsonschema.Draft202012Validator(part).iter_errors(value):
        if error.validator == "required" and not error.path:
            members.update(member for member in error.validator_value if member not in error.instance)
        else:
            members.add(str(error.path[0]) if error.path else "-")
    print(*sorted(members))
