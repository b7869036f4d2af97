"""Writes the inputs that the fuzzers begin with: seeds.py FOLDER makes a folder for each fuzzer."""

import datetime
import io
import plistlib
import random
import sys
from pathlib import Path

from PIL import Image, ImageCms

DOCUMENTS = [
    {},
    [],
    'text',
    {'Scale Mode': 2, 'Slider Value': 50.0},
    {'a': [1, -1, 2**63, 0.1, True, False, b'ABC', 'x & y < z', [], {}]},
    {'date': datetime.datetime(2009, 3, 7, 8, 5, 9), 'uid': {'CF$UID': 3}, 'Größe': '€ 😀'},
    {'long': 'x' * 300, 'many': list(range(20)), 'deep': [[[[{'a': {'b': {}}}]]]]},
    {'same': 'same', 'other': 'same', 'data': bytes(range(70))},
]

BODIES = [
    '\t<key>k</key>\n\t<string>v</string>\n',
    '<key>k</key><string>several\nlines\n</string><key>l</key><true/>\n',
    '<key>d</key>\n<data>\n\tQUJD\n\tREVG\n</data>\n<key>e</key>\n<array/>\n<key>f</key>\n<dict/>\n',
    '<key>a</key>\n<array>\n<integer>1</integer>\n\n<dict>\n<key>x</key>\n<date>2009</date>\n'
    '</dict>\n<array>\n<string></string>\n</array>\n</array>\n',
    '<key>k</key>\n<string>never closed\n<key>l</key>\n<real>1</real>\n',
    '<key>K</key>\n<string>a&lt;b</string>\n<key>k</key>\n<other>b</other>\n<false/>\n',
]

PICTURES = [('1', 'PNG', 'BMP', 'PPM', 'GIF', 'XBM'), ('L', 'PNG', 'JPEG', 'PPM', 'BMP'),
            ('P', 'PNG', 'GIF', 'BMP'), ('RGB', 'PNG', 'JPEG', 'BMP', 'PPM', 'ICO'),
            ('RGBA', 'PNG', 'ICO'), ('I;16', 'PNG')]

XPM = (b'/* XPM */\nstatic char *x[] = {\n"2 2 2 1",\n". c #102030",\n"# c None",\n".#",\n"#."};\n')


def write(folder, items):
    folder.mkdir(parents=True, exist_ok=True)
    for number, item in enumerate(items):
        (folder / f'seed-{number}').write_bytes(item)


def files():
    for document in DOCUMENTS:
        for form in (plistlib.FMT_XML, plistlib.FMT_BINARY):
            yield plistlib.dumps(document, fmt=form, sort_keys=False)
    yield plistlib.dumps({'u': plistlib.UID(3)}, fmt=plistlib.FMT_BINARY)
    fraction = datetime.datetime(1999, 3, 7, 8, 5, 9, 250000)
    yield plistlib.dumps([fraction, 'two\r\n lines'], fmt=plistlib.FMT_BINARY)
    yield b'<?xml version="1.0" encoding="windows-1252"?><string>\x80\xe4</string>\0'
    yield b'<!DOCTYPE plist [<!ENTITY a "b">]><date>2009-03-07T08:05:09.5+01:00</date>'


def texts():
    for body in BODIES:
        for line_end in ('\n', '\r\n', '\r'):
            text = f'<plist version="1.0">\n<dict>\n{body}</dict>\n</plist>\n'
            yield text.replace('\n', line_end).encode()
    for document in DOCUMENTS[3:]:
        yield plistlib.dumps(document)
    yield plistlib.dumps(DOCUMENTS[3], fmt=plistlib.FMT_BINARY)


def pictures():
    profile = ImageCms.ImageCmsProfile(ImageCms.createProfile('sRGB')).tobytes()
    for mode, *forms in PICTURES:
        image = Image.new(mode, (5, 3))
        image.paste(1, (0, 0, 2, 2))
        for form in forms:
            file = io.BytesIO()
            image.save(file, form)
            yield file.getvalue()
    for form in ('PNG', 'JPEG'):
        file = io.BytesIO()
        Image.new('RGB', (5, 3)).save(file, form, icc_profile=profile, dpi=(300, 150))
        yield file.getvalue()
    yield XPM


def noise():
    draw = random.Random(1)
    for size in (8, 40, 200, 1000):
        yield draw.randbytes(size)


def main(folder):
    write(folder / 'converter', files())
    write(folder / 'load', texts())
    write(folder / 'picture', pictures())
    write(folder / 'scaler', noise())
    write(folder / 'tree', noise())


if __name__ == '__main__':
    main(Path(sys.argv[1]))
