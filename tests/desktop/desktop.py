"""What all desktops of the tests have in common: an environment of their own, and its processes."""

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


class Unavailable(Exception):
    """This machine has no such desktop."""


class Desktop:
    """A desktop in an environment of its own: home and settings are a temporary folder.

    The subclasses start the desktop's own processes into `servers`, the first of which is the
    display itself. Use as a context manager, or call stop(): that ends every process that was
    started on it.
    """

    needs = ()  # programs without which there is no such desktop

    def __init__(self, extra_environment=None):
        missing = [program for program in self.needs if not shutil.which(program)]
        if missing:
            raise Unavailable(', '.join(missing) + ' not installed')
        self.folder = tempfile.mkdtemp(prefix='morvantile-desktop-')
        self.mark = uuid.uuid4().hex
        self.started = []
        self.servers = []
        self.environment = {
            'PATH': '/usr/bin:/bin',
            'HOME': self.folder,
            'XDG_CONFIG_HOME': self.folder + '/config',
            'LANG': 'C.UTF-8',
        }
        try:
            self.open()
        except BaseException:
            self.stop()
            raise
        # The desktop's own processes are not the programs on it, and don't carry the mark.
        self.environment['MORVANTILE_TEST_MARK'] = self.mark
        self.environment.update(extra_environment or {})

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def open(self):
        """Starts the desktop's own processes, and completes the environment."""
        raise NotImplementedError

    def stop(self):
        for pid in self.programs():
            os.kill(pid, signal.SIGKILL)
        for process in self.started:
            process.wait()
        for process in reversed(self.servers):
            process.kill()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    # Processes

    def serve(self, *command, **options):
        """Starts one of the desktop's own processes."""
        self.servers.append(subprocess.Popen(command, env=self.environment, **options))
        return self.servers[-1]

    def start(self, *command, **options):
        """Starts a program on the desktop."""
        self.started.append(subprocess.Popen(command, env=self.environment, **options))
        return self.started[-1]

    def run(self, *command, **options):
        """What a command prints, as bytes, or None if it fails."""
        done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False, **options)
        return done.stdout if done.returncode == 0 else None

    def output(self, *command):
        """What a command prints; empty if it fails."""
        return (self.run(*command) or b'').decode(errors='replace').strip()

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

    # The clipboard, through other programs

    def copy(self, data, target):
        """Puts bytes on the clipboard."""
        raise NotImplementedError

    def paste(self, target):
        """The bytes on the clipboard, or None if they are not offered in that form."""
        raise NotImplementedError

    def targets(self):
        """The forms in which the clipboard is offered."""
        raise NotImplementedError
