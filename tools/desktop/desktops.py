"""The desktops on which the program is tried, by their names."""

import functools
import glob
import os
import pwd
import shlex
import stat
import sys
import time

from desktop import Desktop, until

USER = 'nobody'  # compositors refuse to run as root


class X11(Desktop):
    """A window manager on the screen."""

    needs = ('Xvfb', 'xclip', 'xdotool', 'xprop')
    text = 'UTF8_STRING'
    copy_command = ('xclip', '-selection', 'clipboard', '-i', '-t')
    paste_command = ('xclip', '-selection', 'clipboard', '-o', '-t')

    def __init__(self, manager='openbox', *others, **options):
        self.manager = manager
        super().__init__(manager, *others, **options)

    def wait_for_desktop(self):
        until(lambda: 'window id' in self.output('xprop', '-root', '_NET_SUPPORTING_WM_CHECK'),
              'a window manager')
        if self.manager == 'openbox':
            until(self._does_what_it_is_asked_for, 'openbox listening')

    def _does_what_it_is_asked_for(self):
        """Openbox says that it is there before it reads its theme; a window that is opened between
        that and its main loop isn't shown until something else happens."""
        self.do('set_num_desktops', 1)
        return self.output('xprop', '-root', '_NET_NUMBER_OF_DESKTOPS').endswith('= 1')

    def targets(self):
        return (self.paste('TARGETS') or b'').decode().split()

    def bind_key(self, key):
        """Makes a key a global one, as of a program for the volume."""
        bound = self.start(sys.executable, os.path.dirname(__file__) + '/global_key.py', key, stdout=-1)
        bound.stdout.readline()

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


class Wayland(Desktop):
    """A compositor whose one output is a window that fills the screen. Where the tests run as root,
    all on it is an ordinary user's."""

    needs = ('Xvfb', 'xdotool', 'wl-copy', 'wl-paste')
    text = 'text/plain'
    copy_command = ('wl-copy', '-t')
    paste_command = ('wl-paste', '--no-newline', '-t')

    def __init__(self, compositor, **options):
        self.tells = CLIENT in compositor
        ensure_shared_memory()
        if os.getuid() == 0:
            user = pwd.getpwnam(USER)
            self.account = {'user': user.pw_uid, 'group': user.pw_gid, 'extra_groups': []}
        super().__init__(compositor, **options)

    def wait_for_desktop(self):
        del self.environment['DISPLAY']
        socket = until(lambda: glob.glob(self.folder + '/wayland-[0-9]'), 'a compositor')[0]
        self.environment['WAYLAND_DISPLAY'] = os.path.basename(socket)
        output = until(lambda: self._outputs(), 'its output')[-1]
        self.do('windowfocus', output, 'mousemove', 5, 5)
        if self.tells:
            self._read_told()
        self.wait_until_still()

    def _outputs(self):
        return os.popen(f'DISPLAY={self.screen} xdotool search --onlyvisible --name ""').read().split()

    def _read_told(self):
        """Takes over where X programs find the compositor, if it runs them."""
        told = self.folder + '/told'
        until(lambda: os.path.exists(told), 'what the client tells')
        with open(told, encoding='utf-8') as file:
            environment = dict(line.rstrip('\n').split('=', 1) for line in file if '=' in line)
        if environment.get('DISPLAY', self.screen) != self.screen:
            self.environment.update({name: environment[name] for name in ('DISPLAY', 'XAUTHORITY')
                                     if name in environment})

    def targets(self):
        return self.output('wl-paste', '-l').split()

    def bind_key(self, key):
        """A key goes to the compositor first, and to the program with the focus if it isn't bound."""


def ensure_shared_memory():
    """Starts the running test anew, with a /dev/shm of its own, where the machine's is for root
    alone: without it a compositor that isn't root can't hand out the keys of its keyboard."""
    if os.getuid() == 0 and not os.stat('/dev/shm').st_mode & stat.S_IWOTH:
        private = 'mount --make-private /dev && mount -t tmpfs shm /dev/shm && exec "$@"'
        os.execvp('unshare', ['unshare', '--mount', '--propagation', 'unchanged',
                              'sh', '-c', private, 'sh', *sys.orig_argv])


def shell(script):
    return 'sh -c ' + shlex.quote(script)


# A client of the compositor that tells the environment it was given, and stays.
CLIENT = 'sh -c "env > tell; mv tell told; exec sleep infinity"'
WLROOTS = 'export WLR_BACKENDS=x11 WLR_RENDERER=pixman; '

DESKTOPS = {
    **{name: functools.partial(X11, name)
       for name in ('openbox', 'metacity', 'xfwm4', 'icewm', 'marco', 'jwm', 'kwin_x11')},
    'fluxbox': functools.partial(
        X11, shell('mkdir .fluxbox; echo background: none > .fluxbox/overlay; exec fluxbox')),
    'i3': functools.partial(X11, shell('echo font pango:sans 8 > i3.conf; exec i3 -c i3.conf')),
    **{name: functools.partial(X11, 'openbox', name)
       for name in ('xfce4-clipman', 'parcellite', 'copyq')},
    'sway': functools.partial(
        Wayland, shell(WLROOTS + 'echo xwayland disable > sway.conf; exec sway -c sway.conf')),
    'cage': functools.partial(Wayland, shell(WLROOTS + 'exec cage -- sleep infinity')),
    'wayfire': functools.partial(Wayland, shell(WLROOTS + 'exec wayfire')),
    'weston': functools.partial(
        Wayland, 'weston --backend=x11-backend.so --width=1280 --height=800 --no-config'),
    'mutter': functools.partial(
        Wayland, shell('MUTTER_DEBUG_DUMMY_MODE_SPECS=1280x800 exec mutter --wayland --nested -- ' + CLIENT)),
    # The copy has no file capabilities, which a container may not grant.
    'kwin_wayland': functools.partial(
        Wayland, shell('cp /usr/bin/kwin_wayland . && KWIN_COMPOSE=Q exec ./kwin_wayland '
                       '--x11-display $DISPLAY --width 1280 --height 800 --no-lockscreen')),
}
