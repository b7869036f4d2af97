"""Prints the sketch of a property-list file as Python's plistlib reads it; tests/plist/sketch.h tells how."""

import base64
import plistlib
import sys


def sketch(value):
    if isinstance(value, dict):
        return "{" + ", ".join(f"{key}: {sketch(item)}" for key, item in value.items()) + "}"
    if isinstance(value, list):
        return "[" + ", ".join(map(sketch, value)) + "]"
    if isinstance(value, bool):
        return f"boolean '{str(value).lower()}'"
    if isinstance(value, bytes):
        return f"data '{base64.b64encode(value).decode()}'"
    if isinstance(value, (int, float)):
        return f"{'integer' if isinstance(value, int) else 'real'} '{value}'"
    return f"'{value}'" if isinstance(value, str) else f"date '{value:%Y-%m-%dT%H:%M:%SZ}'"


with open(sys.argv[1], "rb") as file:
    print(sketch(plistlib.load(file)), end="")
