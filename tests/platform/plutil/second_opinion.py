"""Holds the converter against what others wrote: Python's plistlib. The fuzzer does against libplist.

    second_opinion.py PLUTIL [DOCUMENTS [SEED]]

Documents of every type, depth and size go through both forms; plistlib must read them unchanged.
"""

import datetime
import itertools
import plistlib
import random
import subprocess
import sys
import tempfile
from pathlib import Path

CHARACTERS = "ab z09_-&<>\"'/=;#\t\n\\$()äßЖ中\u2028\ufeff😀𝄞"
EDGES = [0, 2**7, 2**8, 2**15, 2**16, 2**31, 2**32, 2**63, 2**64]
REALS = [0.0, 0.5, 1e6, 1e-7, 1e300, 5e-324, float("inf"), -123456.789]
FORMATS = {"xml1": plistlib.FMT_XML, "binary1": plistlib.FMT_BINARY}


def text(rng):
    alphabet = rng.choice([CHARACTERS, CHARACTERS[:8]])
    return "".join(rng.choices(alphabet, k=rng.choice([0, 1, 5, 14, 15, 40, 300])))


def scalar(rng):
    integer = rng.choice([1, -1]) * rng.choice(EDGES) + rng.randint(-2, 2)
    return rng.choice([
        text(rng), rng.choice(REALS), rng.random() < 0.5, min(max(integer, -(2**63)), 2**64 - 1),
        rng.randbytes(rng.choice([0, 1, 2, 3, 15, 57, 58, 300])),
        datetime.datetime(rng.randint(1, 9999), rng.randint(1, 12), rng.randint(1, 28), 23, 59, 1)])


def tree(rng, depth=0):
    kind = rng.random()
    if depth > 5 or (depth > 0 and kind < 0.5):
        return scalar(rng)
    size = rng.choice([15, 16, 255, 256, 257]) if depth == 0 and rng.random() < 0.1 else rng.randint(0, 6)
    if kind < 0.7:
        return [tree(rng, depth + 1) for _ in range(size)]
    return {text(rng): tree(rng, depth + 1) for _ in range(size)}


def expect(document, content, what):
    # repr tells 1 from 1.0 and True, and keeps the order of keys.
    if repr(plistlib.loads(content)) != repr(document):
        raise SystemExit(f"{what}: read as another document\n{document!r:.5000}\n{content!r:.5000}")


def main(plutil, documents=60, seed=1):
    rng = random.Random(int(seed))
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder, "document")
        for _ in range(int(documents)):
            document = tree(rng)
            for source, form in itertools.product(FORMATS, FORMATS):
                path.write_bytes(plistlib.dumps(document, fmt=FORMATS[source], sort_keys=False))
                for to in (form, "xml1"):
                    subprocess.run([plutil, "-convert", to, path], check=True)
                    expect(document, path.read_bytes(), f"{source} to {form}, read as {to}")
    print(f"{documents} documents read alike")


main(*sys.argv[1:])
