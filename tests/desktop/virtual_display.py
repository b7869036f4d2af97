"""A virtual X display with a window manager, and the programs on it that a user would have."""

import os
import shutil
import signal
import subprocess
import tempfile
import time
import uuid

PATIENCE = 20  # seconds until something that must happen counts as not happening


class Late(AssertionError):
    """Something did not happen in time."""


def until(condition, what, seconds=PATIENCE):
    """Waits until condition() is true, and gives its value."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.02)
    raise Late(f'not in {seconds} s: {what}')


class VirtualDisplay:
    """Xvfb with openbox, in an environment of its own: home and settings are a temporary folder.

    Use as a context manager, or call stop(): that ends every process started on the display.
    """

    def __init__(self, size='1280x800', extra_environment=None):
        self.folder = tempfile.mkdtemp(prefix='morvantile-display-')
        self.mark = uuid.uuid4().hex
        self.started = []
        self.environment = {
            'PATH': '/usr/bin:/bin',
            'HOME': self.folder,
            'XDG_CONFIG_HOME': self.folder + '/config',
            'LANG': 'C.UTF-8',
            'MORVANTILE_TEST_MARK': self.mark,
        }
        # The display's own processes are not the programs on it.
        plain = {k: v for k, v in self.environment.items() if k != 'MORVANTILE_TEST_MARK'}
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ['Xvfb', '-displayfd', str(writer), '-screen', '0', size + 'x24', '-nolisten', 'tcp'],
            pass_fds=[writer], env=plain, stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as lines:
            number = lines.readline().strip()
        if not number:
            raise Late('Xvfb did not start')
        plain['DISPLAY'] = self.environment['DISPLAY'] = ':' + number
        self.environment.update(extra_environment or {})
        self.manager = subprocess.Popen(['openbox'], env=plain, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        until(self._managed, 'a window manager')

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        for pid in self.programs():
            os.kill(pid, signal.SIGKILL)
        for process in self.started:
            process.wait()
        for process in (self.manager, self.server):
            process.kill()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _managed(self):
        return 'window id' in self.output('xprop', '-root', '_NET_SUPPORTING_WM_CHECK')

    # Processes

    def start(self, *command, **options):
        self.started.append(subprocess.Popen(command, env=self.environment, **options))
        return self.started[-1]

    def output(self, *command):
        """What a command prints; empty if it fails."""
        done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)
        return done.stdout.decode(errors='replace').strip() if done.returncode == 0 else ''

    def programs(self, name=''):
        """The processes on this display whose command line contains name, zombies left out."""
        found = []
        for pid in filter(str.isdigit, os.listdir('/proc')):
            try:
                with open(f'/proc/{pid}/environ', 'rb') as file:
                    ours = self.mark.encode() in file.read()
                with open(f'/proc/{pid}/cmdline', 'rb') as file:
                    command = file.read().decode(errors='replace')
            except OSError:
                continue
            if ours and command and name in command:
                found.append(int(pid))
        return found

    # The clipboard, through another program

    def copy(self, data, target):
        """Puts bytes on the clipboard."""
        subprocess.run(['xclip', '-selection', 'clipboard', '-t', target, '-i'], input=data,
                       env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       timeout=PATIENCE, check=True)
        until(lambda: target in self.targets(), target + ' on the clipboard')

    def paste(self, target):
        """The bytes on the clipboard, or None if they are not offered in that form."""
        done = subprocess.run(['xclip', '-selection', 'clipboard', '-t', target, '-o'],
                              env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)
        return done.stdout if done.returncode == 0 else None

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
