"""The compositor Mutter (GNOME's), headless and with X11, and the programs on it."""

import glob
import subprocess
import threading
import time

import dbus

from desktop import PATIENCE, Desktop, Late, until

KEYSYMS = {'Return': 0xff0d, 'Escape': 0xff1b, 'Right': 0xff53, 'Shift_L': 0xffe1}


class Mutter(Desktop):
    """One virtual monitor, and a keyboard that is played over D-Bus."""

    needs = ('mutter', 'Xwayland', 'dbus-daemon', 'wl-copy', 'wl-paste', 'wev', 'xdotool')
    text = 'text/plain'

    def open(self):
        self.environment['XDG_RUNTIME_DIR'] = self.folder
        bus = self.serve('dbus-daemon', '--session', '--nofork', '--print-address',  # a session bus
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.environment['DBUS_SESSION_BUS_ADDRESS'] = bus.stdout.readline().decode().strip()
        bus.stdout.close()
        mutter = self.serve('mutter', '--wayland', '--headless', '--virtual-monitor', '1440x900',
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        # The display itself stands first.
        self.servers.reverse()
        self._read_log(mutter.stdout)
        until(lambda: {'DISPLAY', 'WAYLAND_DISPLAY'} <= self.environment.keys(), 'mutter')
        self.environment['XAUTHORITY'] = until(
            lambda: glob.glob(self.folder + '/.mutter-Xwaylandauth.*'), 'its cookie')[0]
        self._connect_keyboard()

    def _read_log(self, log):
        def read():
            for line in log:
                words = line.decode(errors='replace').replace("'", ' ').split()
                if 'X11' in words and 'display' in words:
                    self.environment['DISPLAY'] = words[words.index('display') + 1].rstrip(',')
                if 'Wayland' in words and 'display' in words and 'name' in words:
                    self.environment['WAYLAND_DISPLAY'] = words[words.index('name') + 1]
            log.close()
        threading.Thread(target=read, daemon=True).start()

    def _connect_keyboard(self):
        name, path = 'org.gnome.Mutter.RemoteDesktop', '/org/gnome/Mutter/RemoteDesktop'
        self.bus = dbus.bus.BusConnection(self.environment['DBUS_SESSION_BUS_ADDRESS'])
        until(lambda: self.bus.name_has_owner(name), 'the keyboard of mutter')
        control = dbus.Interface(self.bus.get_object(name, path), name)
        remote = control.CreateSession()
        self.keyboard = dbus.Interface(self.bus.get_object(name, remote),
                                       name + '.Session')  # a graphical session, played remotely
        self.keyboard.Start()
        self.key('Shift_L')  # the first key makes the keyboard

    def stop(self):
        if hasattr(self, 'bus'):
            self.bus.close()
        super().stop()

    # The clipboard, through other programs

    def copy(self, data, target):
        subprocess.run(['wl-copy', '-t', target], input=data, env=self.environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE,
                       check=True)
        until(lambda: target in self.targets(), target + ' on the clipboard')

    def paste(self, target):
        return self.run('wl-paste', '--no-newline', '-t', target)

    def targets(self):
        return self.output('wl-paste', '-l').split()

    # Windows and keys

    def active_window(self, title):
        window = until(lambda: self.output('xdotool', 'search', '--onlyvisible', '--name', title),
                       f'a window "{title}"').split()[0]
        until(lambda: self.output('xdotool', 'getactivewindow') == window, f'"{title}" active')
        time.sleep(0.3)
        return window

    def windows(self, kind):
        return self.output('xdotool', 'search', '--onlyvisible', '--class', kind).split()

    def key(self, *keys):
        for key in keys:
            for pressed in (True, False):
                self.keyboard.NotifyKeyboardKeysym(dbus.UInt32(KEYSYMS[key]), pressed)
            time.sleep(0.05)

    def show_other_window(self):
        """Starts another program, whose window becomes the active one."""
        active = self.output('xdotool', 'getactivewindow')
        self.start('wev', stdout=subprocess.DEVNULL)
        until(lambda: self.output('xdotool', 'getactivewindow') != active, 'another active window')
