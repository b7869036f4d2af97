#!/usr/bin/python3
"""How the dialog feels with a 3840 x 2160 picture: its start-up beside that of a bare Qt dialog, the
steps of the slider, and the memory in use. Prints Markdown.

Run as: dialog.py BIN, the folder of the programs. Needs python3-xlib.
"""

import os
import statistics
import subprocess
import sys
import time

from Xlib import X
from Xlib.display import Display
from Xlib.error import BadDrawable, BadWindow

sys.path.insert(0, os.path.join(os.path.dirname(__file__), '..', 'tests', 'desktop'))

from desktops import X11  # noqa: E402
from pictures import encoded, landscape  # noqa: E402

ROUNDS = 15


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


def main(folder):
    program, bare, drag = (os.path.join(os.path.abspath(folder), name)
                           for name in ('morvantile', 'bench_bare_dialog', 'bench_drag'))
    with X11() as display:
        screen = Display(display.environment['DISPLAY']).screen().root
        display.copy(encoded(landscape(3840, 2160)), 'image/png')
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


if __name__ == '__main__':
    main(sys.argv[1])
