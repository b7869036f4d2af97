"""The compositor sway, headless and without X11, and the programs on it that a user would have."""

import json
import os
import pwd
import stat
import subprocess
import sys
import time

from desktop import PATIENCE, Desktop, until

USER = 'nobody'  # sway refuses to run as root
KEYS = {'Prior': 'Page_Up'}


def ensure_shared_memory():
    """Starts the running test anew, with a /dev/shm of its own, where the machine's is for root
    alone: without it a compositor that isn't root can't hand out the keys of its keyboard."""
    if os.getuid() == 0 and not os.stat('/dev/shm').st_mode & stat.S_IWOTH:
        private = 'mount --make-private /dev && mount -t tmpfs shm /dev/shm && exec "$@"'
        os.execvp('unshare', ['unshare', '--mount', '--propagation', 'unchanged',
                              'sh', '-c', private, 'sh', sys.executable, *sys.argv])


class Sway(Desktop):
    """A seat with a keyboard, and one screen. Where the tests run as root, all on it is an ordinary
    user's."""

    needs = ('sway', 'swaymsg', 'wl-copy', 'wl-paste', 'wtype', 'wev')
    text = 'text/plain'

    def open(self):
        if os.getuid() == 0:
            user = pwd.getpwnam(USER)
            os.chown(self.folder, user.pw_uid, user.pw_gid)
        config = self.folder + '/sway'
        with open(config, 'w', encoding='utf-8') as file:
            file.write('xwayland disable\n')
        self.environment.update({
            'XDG_RUNTIME_DIR': self.folder,
            'WLR_BACKENDS': 'headless',
            'WLR_RENDERER': 'pixman',
            'WLR_LIBINPUT_NO_DEVICES': '1',
        })
        self.serve('sway', '-c', config, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.environment['WAYLAND_DISPLAY'] = until(lambda: self._socket('wayland-'), 'sway')
        self.environment['SWAYSOCK'] = self.folder + '/' + until(lambda: self._socket('sway-ipc'),
                                                                 'its socket')
        # The keys of wtype come from a keyboard that is there only while it runs; one that stays
        # makes the seat like a user's.
        self.serve('wtype', '-s', '3600000', '-k', 'Shift_L')

    def _socket(self, prefix):
        return next((name for name in sorted(os.listdir(self.folder))
                     if name.startswith(prefix) and not name.endswith('.lock')), None)

    def _as_user(self, options):
        if os.getuid() != 0:
            return options
        user = pwd.getpwnam(USER)
        return {**options, 'user': user.pw_uid, 'group': user.pw_gid, 'extra_groups': []}

    def serve(self, *command, **options):
        return super().serve(*command, **self._as_user(options))

    def start(self, *command, **options):
        return super().start(*command, **self._as_user(options))

    def run(self, *command, **options):
        return super().run(*command, **self._as_user(options))

    # The clipboard, through other programs

    def copy(self, data, target):
        subprocess.run(['wl-copy', '-t', target], input=data, env=self.environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE,
                       check=True, **self._as_user({}))
        until(lambda: target in self.targets(), target + ' on the clipboard')

    def paste(self, target):
        return self.run('wl-paste', '--no-newline', '-t', target)

    def targets(self):
        return self.output('wl-paste', '-l').split()

    # Windows and keys

    def _windows(self):
        nodes, found = [json.loads(self.output('swaymsg', '-t', 'get_tree') or '{}')], []
        while nodes:
            node = nodes.pop()
            nodes += node.get('nodes', []) + node.get('floating_nodes', [])
            if node.get('pid'):
                found.append(node)
        return found

    def active_window(self, title):
        window = until(lambda: next((w for w in self._windows()
                                     if w['name'] == title and w['focused']), None),
                       f'"{title}" active')
        time.sleep(0.3)
        return window['id']

    def windows(self, kind):
        return [w['id'] for w in self._windows() if w.get('app_id') == kind]

    def key(self, *keys):
        # One keyboard for all, which is there for a moment before and after: a key of one that comes
        # or goes may be lost on a busy machine.
        pause = ('-s', '50')
        presses = [word for key in keys for word in ('-k', KEYS.get(key, key), *pause)]
        self.output('wtype', *pause, *presses, *pause)

    def show_other_window(self):
        """Starts another program, whose window becomes the active one."""
        self.start('wev', stdout=subprocess.DEVNULL)
        self.active_window('wev')
