"""Prints what Python's plistlib reads in property-list files: one line for each file named.

The line has the notation of second_opinion_test.cpp.
"""

import base64
import plistlib
import sys


def describe(value):
    if isinstance(value, dict):
        return "{" + "".join(f"{k.encode().hex()}={describe(v)};" for k, v in value.items()) + "}"
    if isinstance(value, list):
        return "[" + "".join(f"{describe(v)};" for v in value) + "]"
    if isinstance(value, bool):
        return "boolean " + str(value).lower()
    if isinstance(value, bytes):
        return "data " + base64.b64encode(value).decode()
    if isinstance(value, int):
        return f"integer {value}"
    if isinstance(value, float):
        return f"real {value!r}"
    if isinstance(value, str):
        return "string " + value.encode().hex()
    return "date " + value.strftime("%Y-%m-%dT%H:%M:%SZ")


for name in sys.argv[1:]:
    with open(name, "rb") as file:
        print(describe(plistlib.load(file)))
