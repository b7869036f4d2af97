#!/usr/bin/python3
"""How the program feels with a 3840 x 2160 picture: the dialog's start-up beside that of a bare Qt
dialog, the steps of the slider, the memory in use, and the pastes after OK. Prints Markdown.

Run as: dialog.py BIN, the folder of the programs. Needs python3-xlib, and optipng to compare sizes.
"""

import glob
import os
import shutil
import statistics
import subprocess
import sys
import time

from Xlib import X
from Xlib.display import Display
from Xlib.error import BadDrawable, BadWindow

from PIL import Image, ImageChops, ImageDraw, ImageFont

HOUSE = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..')
sys.path.insert(0, os.path.join(HOUSE, 'tools', 'desktop'))

from desktop import until  # noqa: E402
from desktops import X11  # noqa: E402
from landscape import landscape  # noqa: E402
from pictures import encoded  # noqa: E402

ROUNDS = 15
PASTES = 5
SIZE = (3840, 2160)
WINDOWS = ((80, 100, 1700, 1400), (1500, 500, 3400, 1900), (2300, 60, 3700, 900))


def photo():
    """A landscape with the noise of a camera."""
    noise = [Image.effect_noise(SIZE, 6) for _ in range(3)]
    return ImageChops.add(landscape(*SIZE), Image.merge('RGB', noise), 1, -128)


def screenshot():
    """A desktop with three windows full of text."""
    image = landscape(*SIZE)
    draw = ImageDraw.Draw(image)
    font = ImageFont.truetype('DejaVuSansMono.ttf', 22)
    for box, file in zip(WINDOWS, sorted(glob.glob(HOUSE + '/plist/*.cpp'))):
        draw.rectangle(box, 'white', 'black', 3)
        with open(file, encoding='utf-8') as source:
            lines = source.read().split('\n')[:(box[3] - box[1]) // 28 - 1]
        for number, line in enumerate(lines):
            draw.text((box[0] + 20, box[1] + 14 + 28 * number), line[:100], '#202020', font)
    return image


def titles(window, depth=3):
    """The titles of the windows that are shown, down to the depth at which a frame holds one."""
    found = []
    for child in window.query_tree().children:
        if child.get_attributes().map_state == X.IsViewable:
            found += [child.get_wm_name()] + (titles(child, depth - 1) if depth else [])
    return found


def shown(screen, title):
    try:
        return title in titles(screen)
    except (BadWindow, BadDrawable):  # one that went meanwhile
        return False


def start_up(display, screen, program, title):
    """Seconds from the start of the process until its window is shown."""
    begin = time.monotonic()
    run = display.start(program, stderr=subprocess.DEVNULL)
    while not shown(screen, title):
        time.sleep(0.001)
    seconds = time.monotonic() - begin
    run.kill()
    run.wait()
    while shown(screen, title):
        time.sleep(0.01)
    return seconds


def memory(pid):
    """The megabytes that a process has for itself, and those that are in memory in all."""
    with open(f'/proc/{pid}/smaps_rollup', encoding='utf-8') as file:
        fields = {line.split(':')[0]: int(line.split()[1]) for line in list(file)[1:]}
    return (fields['Private_Clean'] + fields['Private_Dirty']) / 1024, fields['Rss'] / 1024


def paste(display):
    """Milliseconds until another program has the picture, and its PNG file."""
    begin = time.monotonic()
    png = display.paste('image/png')
    return 1000 * (time.monotonic() - begin), png


def optimised(png, folder):
    """The size that an optimiser reaches; NaN without one."""
    if not shutil.which('optipng'):
        return float('nan')
    file = folder + '/optimised.png'
    with open(file, 'wb') as writer:
        writer.write(png)
    subprocess.run(['optipng', '-quiet', '-o2', file], check=True)
    return os.path.getsize(file)


def put_back(display, program):
    """A run that ends with the whole picture on the clipboard; the process that stays behind."""
    run = display.start(program)
    display.active_window('Clipboard Image Resize')
    display.key('End', 'Return')
    run.wait()
    return until(lambda: display.programs(program), 'the owner of the clipboard')[0]


def pastes(display, program, picture):
    """The row of a picture: the pastes, the PNG file, and the memory of its owner."""
    times = []
    for pause in PASTES * (0, 4):
        display.copy(encoded(picture, 'BMP'), 'image/bmp')
        owner = put_back(display, program)
        time.sleep(pause)
        first, png = paste(display)
        second, _ = paste(display)
        times.append((first, second))
        own, _ = memory(owner)
    at_once = statistics.median(first for first, _ in times[::2])
    first, second = (statistics.median(column) for column in zip(*times[1::2]))
    return '| {:.0f} | {:.0f} | {:.0f} | {:.0f} | {:.2f} | {:.0f} |'.format(
        at_once, first, second, len(png) / 1000, len(png) / optimised(png, display.folder), own)


def main(folder):
    program, bare, drag = (os.path.join(os.path.abspath(folder), name)
                           for name in ('morvantile', 'bench_bare_dialog', 'bench_drag'))
    with X11() as display:
        screen = Display(display.environment['DISPLAY']).screen().root
        display.copy(encoded(landscape(*SIZE)), 'image/png')
        ours, theirs = [], []
        for _ in range(ROUNDS):
            ours.append(start_up(display, screen, program, 'Clipboard Image Resize'))
            theirs.append(start_up(display, screen, bare, 'Bare Dialog'))
        ours, theirs = (1000 * statistics.median(times) for times in (ours, theirs))
        print('| start-up, median | ms |\n|---|---|')
        print(f'| the program | {ours:.0f} |\n| a bare Qt dialog | {theirs:.0f} |')
        print(f'| ratio | {ours / theirs:.2f} |\n')

        display.start(program)
        display.active_window('Clipboard Image Resize')
        pid = max(display.programs(program))
        print('| memory, MB | private | resident |\n|---|---|---|')
        print('| the dialog | {:.0f} | {:.0f} |'.format(*memory(pid)))
        display.key('Return')
        time.sleep(1)
        print('| the process that stays behind | {:.0f} | {:.0f} |\n'.format(*memory(pid)))
        print(display.output(drag))

        print('\n| paste | at once, ms | 4 s after OK, ms | again, ms | PNG, kB | PNG / optipng '
              '| own memory, MB |\n|---|---|---|---|---|---|---|')
        for name, picture in (('photo', photo()), ('screenshot', screenshot())):
            print(f'| {name} {pastes(display, program, picture)}', flush=True)


if __name__ == '__main__':
    main(sys.argv[1])
