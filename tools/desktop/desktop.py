"""A desktop in an environment of its own, and a user who looks at its screen, types and clicks."""

import os
import pathlib
import shlex
import shutil
import signal
import subprocess
import tempfile
import time
import uuid

from PIL import Image, ImageChops, ImageGrab

PATIENCE = 60  # seconds until something that must happen counts as not happening, on a busy machine too


class Late(AssertionError):
    """Something did not happen in time."""


def until(condition, what, seconds=PATIENCE):
    """Waits until condition() is true, and returns its value."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.02)
    raise Late(f'not in {seconds} s: {what}')


class Unavailable(Exception):
    """This machine has no such desktop."""


class Desktop:
    """A virtual screen, and on it the desktop that `command` starts, with what belongs to it. Home and
    settings are a temporary folder. Each kind has wait_for_desktop(), which also completes the
    environment of the programs, and targets(), the forms in which the clipboard is offered.

    Use as a context manager, or call stop(): that ends every process that was started on it.
    """

    needs = ()      # programs without which there is no such desktop
    account = {}    # the user that everything runs as, in the words of Popen
    text = ''       # the form in which a text is offered

    def __init__(self, *commands, size='1280x800', extra_environment=None):
        for program in (*self.needs, *(shlex.split(command)[0] for command in commands)):
            if not shutil.which(program):
                raise Unavailable(program + ' is not installed')
        self.folder = tempfile.mkdtemp(prefix='morvantile-desktop-')
        if self.account:
            os.chown(self.folder, self.account['user'], self.account['group'])
        self.mark = uuid.uuid4().hex
        self.started, self.servers = [], []
        self.environment = {
            'PATH': '/usr/bin:/bin', 'LANG': 'C.UTF-8', 'HOME': self.folder,
            'XDG_CONFIG_HOME': self.folder + '/config', 'XDG_RUNTIME_DIR': self.folder}
        try:
            self._open_screen(size)
            for command in commands:
                self.serve('dbus-run-session', '--', *shlex.split(command))
            self.wait_for_desktop()
        except BaseException:
            self.stop()
            raise
        # The desktop's own processes are not the programs on it, and don't carry the mark.
        self.environment['MORVANTILE_TEST_MARK'] = self.mark
        self.environment.update(extra_environment or {})

    def _open_screen(self, size):
        reader, writer = os.pipe()
        # With -noreset, or a client that leaves before the next one comes takes the other's
        # connection with it; -ac lets the desktop's user in.
        self.serve('Xvfb', '-displayfd', str(writer), '-screen', '0', size + 'x24', '-nolisten', 'tcp',
                   '-noreset', '-ac', pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as lines:
            number = lines.readline().strip()
        if not number:
            raise Late('Xvfb did not start')
        self.screen = self.environment['DISPLAY'] = ':' + number

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def clear(self):
        """Ends the programs on the desktop, and removes their settings."""
        for pid in self.programs():
            os.kill(pid, signal.SIGKILL)
        for process in self.started:
            if process.stdout:
                process.stdout.close()
            process.wait()
        self.started.clear()
        shutil.rmtree(self.environment['XDG_CONFIG_HOME'] + '/Morvantile', ignore_errors=True)

    def end_display(self):
        """Ends the desktop under its programs."""
        for process in reversed(self.servers):
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
            process.wait()

    def stop(self):
        self.clear()
        self.end_display()
        shutil.rmtree(self.folder, ignore_errors=True)

    # Processes

    def serve(self, *command, **options):
        """Starts one of the desktop's own processes."""
        silently = {'stdout': subprocess.DEVNULL, 'stderr': subprocess.DEVNULL}
        self.servers.append(subprocess.Popen(command, env=self.environment, cwd=self.folder,
                                             start_new_session=True, **self.account,
                                             **{**silently, **options}))
        return self.servers[-1]

    def start(self, *command, **options):
        """Starts a program on the desktop."""
        self.started.append(subprocess.Popen(command, env=self.environment, **self.account, **options))
        return self.started[-1]

    def run(self, *command, **options):
        """What a command prints, as bytes, or None if it fails."""
        done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False,
                              **self.account, **options)
        return done.stdout if done.returncode == 0 else None

    def output(self, *command):
        """What a command prints; empty if it fails."""
        return (self.run(*command) or b'').decode(errors='replace').strip()

    def programs(self, name=''):
        """The processes on this display whose command line contains name, zombies left out."""
        found = []
        for process in pathlib.Path('/proc').glob('[0-9]*'):
            try:
                ours = self.mark.encode() in (process / 'environ').read_bytes()
                command = (process / 'cmdline').read_bytes().decode(errors='replace')
            except OSError:
                continue
            if ours and command and name in command:
                found.append(int(process.name))
        return found

    # The clipboard, through other programs

    copy_command = paste_command = ()  # to which the form is added

    def copy(self, data, target):
        """Puts bytes on the clipboard."""
        subprocess.run([*self.copy_command, target], input=data, env=self.environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE,
                       check=True, **self.account)
        until(lambda: target in self.targets(), target + ' on the clipboard')

    def paste(self, target):
        """The bytes on the clipboard, or None if they are not offered in that form."""
        return self.run(*self.paste_command, target)

    # The screen, keyboard and mouse

    def look(self):
        return ImageGrab.grab(xdisplay=self.screen)

    def find(self, colour):
        """The box of all that has the colour on the screen, as left, top, right, bottom, or None."""
        image = self.look()
        red, green, blue = ImageChops.difference(image, Image.new('RGB', image.size, colour)).split()
        other = ImageChops.lighter(ImageChops.lighter(red, green), blue)
        return other.point(lambda difference: 255 * (difference == 0)).getbbox()

    def wait_until_still(self):
        """Waits until the screen has stopped to change."""
        images = [None]

        def is_still():
            time.sleep(0.25)
            images.append(self.look())
            return images.pop(0) == images[0]
        until(is_still, 'the screen at rest')

    def do(self, *actions):
        """Plays the user, in the words of xdotool."""
        subprocess.run(['xdotool', *map(str, actions)], env={'DISPLAY': self.screen}, check=True,
                       timeout=PATIENCE, stdout=subprocess.DEVNULL)

    def key(self, *keys):
        self.do('key', '--delay', 30, *keys)
