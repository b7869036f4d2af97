"""Renews the screenshots of the documentation: both windows, light and dark, at scale 1 and 2.

Run as: screenshots.py PROGRAM FOLDER [LANGUAGE]
"""

import os
import re
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)) + '/desktop')
from desktop import until
from desktops import X11
from landscape import landscape
from pictures import encoded

KDE = {'XDG_CURRENT_DESKTOP': 'KDE', 'KDE_FULL_SESSION': 'true', 'KDE_SESSION_VERSION': '5'}
KDE_COLORS = '\n'.join(
    f'[Colors:{group}]\nBackgroundNormal={background}\nForegroundNormal=252,252,252\n'
    for group, background in (('Window', '42,46,50'), ('Button', '49,54,59'), ('View', '27,30,32'),
                              ('Selection', '61,174,233')))


def grab(display, window, file):
    """Saves the window as it is on the screen, without its frame."""
    told = display.output('xwininfo', '-id', window)
    x, y, width, height = (int(re.search(what + r': +(\d+)', told)[1]) for what in (
        'Absolute upper-left X', 'Absolute upper-left Y', 'Width', 'Height'))
    time.sleep(0.3)
    display.look().crop((x, y, x + width, y + height)).save(file)


def shoot(program, folder, language, dark, scale):
    name = os.path.join(folder, ('dark' if dark else 'light') + ('@2x' if scale == 2 else ''))
    environment = {'QT_SCALE_FACTOR': str(scale), 'LANGUAGE': language, 'LANG': language + '.UTF-8',
                   **(KDE if dark else {})}
    size = f'{1280 * scale}x{800 * scale}'
    with X11(size=size, extra_environment=environment) as display:
        if dark:
            os.makedirs(display.environment['XDG_CONFIG_HOME'])
            with open(display.environment['XDG_CONFIG_HOME'] + '/kdeglobals', 'w') as file:
                file.write(KDE_COLORS)
        display.copy(encoded(landscape(640, 480)), 'image/png')
        display.start(program)
        dialog = until(lambda: display.windows('morvantile'), 'the dialog')[0]
        time.sleep(1)
        grab(display, dialog, name + '.png')
        display.key('F1')
        until(lambda: len(display.windows('morvantile')) == 2, 'the info window')
        info = [window for window in display.windows('morvantile') if window != dialog][0]
        grab(display, info, name + '-info.png')


if __name__ == '__main__':
    os.makedirs(sys.argv[2], exist_ok=True)
    for is_dark in (False, True):
        for factor in (1, 2):
            shoot(os.path.abspath(sys.argv[1]), sys.argv[2], (sys.argv[3:] or ['en'])[0], is_dark, factor)
