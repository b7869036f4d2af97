"""A virtual X display with a window manager, and the programs on it that a user would have."""

import os
import subprocess
import time

from desktop import PATIENCE, Desktop, Late, until


class VirtualDisplay(Desktop):
    """Xvfb with openbox. Without -noreset a client that leaves before the next one comes takes the
    other's connection with it."""

    needs = ('Xvfb', 'openbox', 'xclip', 'xdotool', 'xprop', 'xev')
    text = 'UTF8_STRING'

    def __init__(self, size='1280x800', extra_environment=None):
        self.size = size
        super().__init__(extra_environment)

    def open(self):
        reader, writer = os.pipe()
        self.serve('Xvfb', '-displayfd', str(writer), '-screen', '0', self.size + 'x24',
                   '-nolisten', 'tcp', '-noreset', pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as lines:
            number = lines.readline().strip()
        if not number:
            raise Late('Xvfb did not start')
        self.environment['DISPLAY'] = ':' + number
        self.serve('openbox', stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        until(lambda: 'window id' in self.output('xprop', '-root', '_NET_SUPPORTING_WM_CHECK'),
              'a window manager')

    # The clipboard, through another program

    def copy(self, data, target):
        subprocess.run(['xclip', '-selection', 'clipboard', '-t', target, '-i'], input=data,
                       env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       timeout=PATIENCE, check=True)
        until(lambda: target in self.targets(), target + ' on the clipboard')

    def paste(self, target):
        return self.run('xclip', '-selection', 'clipboard', '-t', target, '-o')

    def targets(self):
        return (self.paste('TARGETS') or b'').decode().split()

    # Windows, keys and mouse

    def window(self, title):
        """The window of that title, once it is shown."""
        return until(lambda: self.output('xdotool', 'search', '--onlyvisible', '--name', title),
                     f'a window "{title}"').split()[0]

    def active_window(self, title):
        """The window of that title, once it is shown and active."""
        window = self.window(title)
        until(lambda: self.output('xdotool', 'getactivewindow') == window, f'"{title}" active')
        time.sleep(0.15)
        return window

    def windows(self, kind):
        """The shown windows of a class."""
        return self.output('xdotool', 'search', '--onlyvisible', '--class', kind).split()

    def key(self, *keys):
        self.output('xdotool', 'key', '--delay', '30', *keys)

    def mouse(self, *actions):
        self.output('xdotool', *actions)

    def click(self, window, x, y):
        self.mouse('mousemove', '--window', window, str(x), str(y), 'click', '1')

    def show_other_window(self):
        """Starts another program, whose window becomes the active one."""
        self.start('xev', '-name', 'other', stdout=subprocess.DEVNULL)
        self.mouse('windowactivate', '--sync', self.window('other'))
