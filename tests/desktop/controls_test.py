"""The dialog on an X display: its controls, its pictures, and what assistive technology is told.

Run as: controls_test.py PROGRAM [unittest arguments]
"""

import os
import pty
import re
import subprocess
import unittest

import gi
gi.require_version('Atspi', '2.0')
from gi.repository import Atspi

from on_desktop import DIALOG, PATIENCE, OnDesktop, encoded, plain, until


class Controls(OnDesktop):
    def test_any_picture_format_is_read(self):
        picture = plain('#5078b4', 120, 60)
        forms = [(form.lower(), encoded(picture, form)) for form in ('JPEG', 'BMP', 'WEBP', 'TIFF')]
        forms += [('x-portable-pixmap', encoded(picture, 'PPM')),
                  ('svg+xml', b'<svg xmlns="http://www.w3.org/2000/svg" width="120" height="60"/>')]
        for form, data in forms:
            with self.subTest(form=form):
                self.desktop.copy(data, 'image/' + form)
                run, _ = self.start()
                self.scales(run, 60, 30)

    def test_the_dialog_is_in_the_middle_of_the_primary_screen(self):
        for monitor, place, output in (('left', '400/100x800/200+0+0', 'screen'),
                                       ('*right', '880/200x700/200+400+100', 'none')):
            self.desktop.run('xrandr', '--setmonitor', monitor, place, output)
            self.addCleanup(self.desktop.run, 'xrandr', '--delmonitor', monitor.strip('*'))
        self.copy_picture()
        _, dialog = self.start()
        told = self.desktop.output('xwininfo', '-id', dialog)
        self.assertEqual(re.findall(r'Absolute upper-left .: +(\d+)', told), ['620', '196'])

    def test_the_info_window_leaves_the_dialog_open(self):
        self.copy_picture()
        run, dialog = self.start()
        for open_info in (lambda: self.click(dialog, 404, 472), lambda: self.desktop.key('F1')):
            open_info()
            until(lambda: len(self.desktop.windows('morvantile')) == 2, 'the info window')
            until(lambda: self.desktop.output('xdotool', 'getactivewindow') != dialog, 'active')
            self.desktop.key('x')
            until(lambda: len(self.desktop.windows('morvantile')) == 1, 'it closed')
            self.desktop.active_window(DIALOG)
        self.scales(run, 320, 240)

    def test_keys_move_the_slider_and_switch_the_mode(self):
        self.copy_picture(1000, 500)
        run, _ = self.start()
        # 50 + 2 + 20 - 1, from per cent to height, and to "Don't Scale", where Return is OK's.
        self.desktop.key('Right', 'Right', 'Prior', 'Left', 'Tab', 'Left', 'Tab', 'Tab')
        self.scales(run, 852, 426)

    def test_mouse_and_wheel_move_the_slider_and_a_click_switches_the_mode(self):
        self.copy_picture(1000, 500)
        run, dialog = self.start()
        steps = ('mousemove_relative', 20, 0) * 11
        self.desktop.do('mousemove', '--window', dialog, 219, 318, 'mousedown', 1, *steps,
                        'mouseup', 1)
        self.click(dialog, 180, 383)  # W
        self.desktop.do('mousemove', '--window', dialog, 219, 318, 'click', 5)  # a notch down
        self.scales(run, 594, 297)

    def click(self, window, x, y):
        self.desktop.do('mousemove', '--window', window, x, y, 'click', 1)

    def test_the_picture_outlives_the_terminal(self):
        self.copy_picture()
        shell, terminal = pty.fork()
        if shell == 0:
            os.execve('/bin/sh', ['sh', '-c', self.program + '; cat'], self.desktop.environment)
        self.desktop.active_window(DIALOG)
        self.desktop.key('Return')
        until(lambda: 'image/bmp' in self.desktop.targets(), 'the picture on the clipboard')
        until(lambda: self.desktop.programs('cat'), 'the run over for its shell')
        os.close(terminal)
        os.waitpid(shell, 0)
        self.assertEqual(self.pasted().size, (320, 240))

    def test_the_start_from_a_clone_explains_itself_without_a_picture(self):
        start = os.path.dirname(__file__) + '/../../tools/start'
        self.desktop.copy(b'text', self.desktop.text)
        printed, _ = self.begin(start, self.program).communicate(timeout=PATIENCE)
        self.assertRegex(printed, rb'^There is no picture on your clipboard[^\n]*\n$')
        self.copy_picture()
        run, _ = self.start(start, self.program)
        self.scales(run, 320, 240)

    def test_without_a_display_it_says_so(self):
        run = self.begin('env', 'DISPLAY=', self.program)
        printed, _ = run.communicate(timeout=PATIENCE)
        self.assertEqual(run.returncode, 1)
        self.assertRegex(printed, rb'^morvantile: [^\n]*\n$')


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


class ThroughAssistiveTechnology(OnDesktop):
    def find(self, name, role=None):
        return until(lambda: next((node for node in below(Atspi.get_desktop(0))
                                   if node.get_name() == name
                                   and role in (None, node.get_role_name())), None), name)

    def press(self, name):
        self.find(name).get_action_iface().do_action(0)

    def description(self, name, wanted):
        until(lambda: self.find(name).get_description() == wanted, f'{name}: {wanted}')

    def test_assistants_find_every_control_and_do_what_a_click_does(self):
        bus = self.desktop.serve('dbus-daemon', '--session',  # a session bus of its own
                                 '--nofork', '--print-address=1', stdout=subprocess.PIPE)
        self.addCleanup(bus.stdout.close)
        address = bus.stdout.readline().decode().strip()
        self.desktop.environment.update(DBUS_SESSION_BUS_ADDRESS=address,
                                        QT_LINUX_ACCESSIBILITY_ALWAYS_ON='1')
        os.environ.update(self.desktop.environment)
        self.copy_picture()
        run, _ = self.start()
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
        self.finish(run)
        self.assertEqual(self.pasted().size, (120, 90))


if __name__ == '__main__':
    unittest.main(verbosity=2)
