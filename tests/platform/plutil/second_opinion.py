"""Holds the converter against programs that others wrote: Python's plistlib and plistutil.

    second_opinion.py PLUTIL [DOCUMENTS [SEED]]

Documents of every type, depth and size go through both forms and both programs; each reader must
see the same document, whoever wrote it.
"""

import datetime
import plistlib
import random
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

CHARACTERS = "ab z09_-&<>\"'/=;#\t\n\\$()äßЖ中\u2028\ufeff😀𝄞"
LARGE = [15, 16, 255, 256, 257]


def text(rng):
    length = rng.choice([0, 1, 5, 14, 15, 40] + ([300] if rng.random() < 0.05 else []))
    alphabet = CHARACTERS if rng.random() < 0.5 else CHARACTERS[:8]
    return "".join(rng.choice(alphabet) for _ in range(length))


def integer(rng):
    edge = rng.choice([0, 2**7, 2**8, 2**15, 2**16, 2**31, 2**32, 2**63, 2**64])
    return min(max(rng.choice([1, -1]) * edge + rng.randint(-2, 2), -(2**63)), 2**64 - 1)


def real(rng):
    return rng.choice(
        [0.0, 0.5, 1e6, 1e-7, 1e300, 5e-324, float("inf"), rng.uniform(-1e9, 1e9)]
    )


def date(rng):
    return datetime.datetime(
        rng.randint(1, 9999), rng.randint(1, 12), rng.randint(1, 28), rng.randint(0, 23), 59, 1
    )


def data(rng):
    return rng.randbytes(rng.choice([0, 1, 2, 3, 15, 57, 58, 300]))


def scalar(rng):
    makers = [text, integer, real, date, data, lambda r: r.random() < 0.5]
    return rng.choice(makers)(rng)


def size(rng, depth):
    if depth == 0 and rng.random() < 0.1:
        return rng.choice(LARGE)
    return rng.randint(0, 6)


def tree(rng, depth=0):
    kind = rng.random()
    if depth > 5 or (depth > 0 and kind < 0.5):
        return scalar(rng)
    if kind < 0.7:
        return [tree(rng, depth + 1) for _ in range(size(rng, depth))]
    return {text(rng): tree(rng, depth + 1) for _ in range(size(rng, depth))}


def convert(plutil, form, path):
    subprocess.run([plutil, "-convert", form, path], check=True)
    return path.read_bytes()


def same(a, b):
    """Equality that tells 1 from 1.0 and True."""
    if type(a) is not type(b):
        return False
    if isinstance(a, dict):
        return list(a) == list(b) and all(same(a[key], b[key]) for key in a)
    if isinstance(a, list):
        return len(a) == len(b) and all(map(same, a, b))
    return repr(a) == repr(b)


def expect(document, content, what):
    if not same(plistlib.loads(content), document):
        raise SystemExit(f"{what}: read as another document\n{document!r:.5000}\n{content!r:.5000}")


def check_plistlib(plutil, document, folder):
    path = folder / "document"
    for source in (plistlib.FMT_XML, plistlib.FMT_BINARY):
        for form in ("xml1", "binary1"):
            path.write_bytes(plistlib.dumps(document, fmt=source, sort_keys=False))
            expect(document, convert(plutil, form, path), f"{source} to {form}")
            expect(document, convert(plutil, "xml1", path), f"{source} to {form} to xml1")


def plistutil(path, form):
    output = path.with_suffix("." + form)
    command = ["plistutil", "-i", path, "-f", form, "-o", output]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return output


def without_differences(value):
    """The document without what plistutil itself changes: the precision of reals and wide dates."""
    if isinstance(value, dict):
        return {key.replace("\n", "") or "k": without_differences(v) for key, v in value.items()}
    if isinstance(value, list):
        return [without_differences(v) for v in value]
    if isinstance(value, float):
        return 0.5
    if isinstance(value, datetime.datetime):
        return value.replace(year=2000 + value.year % 30)
    return value


def check_plistutil(plutil, document, folder):
    document = without_differences(document)
    path = folder / "document"
    path.write_bytes(plistlib.dumps(document, fmt=plistlib.FMT_BINARY, sort_keys=False))
    convert(plutil, "xml1", path)
    expect(document, plistutil(path, "bin").read_bytes(), "plistutil reads our XML")
    path.write_bytes(plistutil(path, "bin").read_bytes())
    expect(document, convert(plutil, "xml1", path), "we read plistutil's binary")
    convert(plutil, "binary1", path)
    expect(document, plistutil(path, "xml").read_bytes(), "plistutil reads our binary")
    path.write_bytes(plistutil(path, "xml").read_bytes())
    expect(document, convert(plutil, "binary1", path), "we read plistutil's XML")


def main():
    plutil = sys.argv[1]
    documents = int(sys.argv[2]) if len(sys.argv) > 2 else 60
    rng = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 1)
    has_plistutil = shutil.which("plistutil") is not None
    if not has_plistutil:
        print("plistutil is not installed: plistlib alone")
    with tempfile.TemporaryDirectory() as name:
        for _ in range(documents):
            document = tree(rng)
            check_plistlib(plutil, document, Path(name))
            if has_plistutil and isinstance(document, dict):
                check_plistutil(plutil, document, Path(name))
    print(f"{documents} documents read alike")


main()
