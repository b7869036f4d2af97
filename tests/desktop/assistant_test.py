"""The dialog through assistive technology, by a client of AT-SPI on a real X display.

Run as: assistant_test.py PROGRAM [unittest arguments]
"""

import functools
import os
import subprocess
import unittest

import gi
gi.require_version('Atspi', '2.0')
from gi.repository import Atspi

from on_desktop import DIALOG, X11, OnDesktop, until


def below(node):
    """The node and all below it; a program that has just left the bus is None."""
    if node is not None:
        yield node
        for index in range(node.get_child_count()):
            yield from below(node.get_child_at_index(index))


def told(node):
    """What an assistant is told of a node."""
    action = node.get_action_iface()
    names = [Atspi.Action.get_action_name(action, i)
             for i in range(action.get_n_actions())] if action else []
    return node.get_role_name(), node.get_name(), 'Press' in names or 'Toggle' in names


class Assistant(OnDesktop):
    make_desktop = functools.partial(
        X11, extra_environment={'QT_LINUX_ACCESSIBILITY_ALWAYS_ON': '1'})

    def setUp(self):
        super().setUp()
        bus = self.desktop.serve('dbus-daemon', '--session',  # a session bus of its own
                                 '--nofork', '--print-address=1', stdout=subprocess.PIPE)
        self.addCleanup(bus.stdout.close)
        address = bus.stdout.readline().decode().strip()
        self.desktop.environment['DBUS_SESSION_BUS_ADDRESS'] = address
        os.environ.update(self.desktop.environment)
        self.copy_picture()
        self.run_, _ = self.start()

    def find(self, name, role=None):
        return until(lambda: next((node for node in below(Atspi.get_desktop(0))
                                   if node.get_name() == name
                                   and role in (None, node.get_role_name())), None), name)

    def press(self, name):
        self.find(name).get_action_iface().do_action(0)

    def description(self, name, wanted):
        until(lambda: self.find(name).get_description() == wanted, f'{name}: {wanted}')

    def test_assistants_find_every_control_and_do_what_a_click_does(self):
        self.find('Morvantile', 'application')
        group = [told(node) for node in below(self.find('Scale by'))]
        self.assertEqual(group, [('panel', 'Scale by', False), ('radio button', 'Width', True),
                                 ('radio button', 'Height', True),
                                 ('radio button', 'Percentage', True)])
        self.assertEqual(told(self.find('Preview')), ('image', 'Preview', False))
        self.description('Preview', '320 x 240')
        self.description('Scale', '50 per cent, New Size: 320 x 240')
        self.press('Width')
        self.description('Scale', '300 pixels wide, New Size: 300 x 225')
        self.description('Preview', '300 x 225')
        value = self.find('Scale').get_value_iface()
        self.assertEqual(value.get_current_value(), 300)
        value.set_current_value(120)
        self.description('Scale', '120 pixels wide, New Size: 120 x 90')

        self.assertEqual(told(self.find('About Morvantile'))[0::2], ('push button', True))
        self.press('About Morvantile')
        info = self.find('About Morvantile', 'dialog')
        self.assertIn(('link', 'https://morvantile.example/', True), map(told, below(info)))
        self.desktop.key('x')
        self.desktop.active_window(DIALOG)
        self.press('OK')
        self.finish(self.run_)
        self.assertEqual(self.pasted().size, (120, 90))


if __name__ == '__main__':
    unittest.main(verbosity=2)
