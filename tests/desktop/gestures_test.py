"""What a user does with the program on a desktop, seen on its screen and played on keyboard and mouse,
and what other programs then paste.

Run as: gestures_test.py PROGRAM DESKTOP [unittest arguments], DESKTOP being a name of desktops.py.
"""

import os
import pathlib
import plistlib
import signal
import sys
import time
import unittest

from on_desktop import DESKTOPS, SOON, OnDesktop, encoded, noise, plain, until

PICTURE = '#ff00ff'
ORIGINAL = encoded(plain(PICTURE, 640, 480))
OTHER = '#00ff00'  # as other_window.cpp has it
OK, DONT_SCALE, TITLE_BAR = (296, 471), (143, 471), (220, -12)  # places in the dialog
AT_ONCE = 'the next window is active with the Tab key, and Escape cancels nothing'
NAME = sys.argv.pop(1)


def but_not_on(**reasons):
    """What can't be as elsewhere, and why."""
    return unittest.skipIf(NAME in reasons, reasons.get(NAME))


class Gestures(OnDesktop):
    make_desktop = DESKTOPS[NAME]

    def setUp(self):
        self.settings = pathlib.Path(self.desktop.environment['XDG_CONFIG_HOME'], 'Morvantile')

    def start(self):
        """Starts the program on a picture, and waits for the dialog."""
        self.desktop.do('mousemove', 5, 5)
        self.desktop.copy(ORIGINAL, 'image/png')
        run = self.begin()
        self.wait_for_dialog()
        return run

    def wait_for_dialog(self):
        until(lambda: self.desktop.find(PICTURE), 'the dialog')
        self.desktop.wait_until_still()

    def pointer_to(self, x, y, *actions):
        """Moves the mouse pointer to a place in the dialog, and goes on in the words of xdotool."""
        left, top, right, bottom = self.desktop.find(PICTURE)
        self.assertEqual((right - left, bottom - top), (320, 240))
        self.desktop.do('mousemove', left - 60 + x, top - 30 + y, *actions)

    def scales(self, run, width=320, height=240):
        """The run ends by Return with the scaled picture on the clipboard."""
        self.wait_for_dialog()
        self.desktop.key('Return')
        self.has_scaled(run, width, height)

    def has_scaled(self, run, width=320, height=240):
        self.finish(run)
        for target in ('image/png', 'image/bmp'):
            self.assertEqual(self.pasted(target).size, (width, height))

    def stays(self, run):
        """The dialog is there after a gesture, and OK is pressed in it."""
        time.sleep(0.5)
        self.assertIsNone(run.poll(), 'the dialog has closed')
        self.scales(run)

    def start_other_window(self):
        self.desktop.start(os.path.dirname(self.program) + '/other_window')

    # The ends of a run

    def test_ok(self):
        run = self.start()
        self.pointer_to(*OK, 'click', 1)
        self.has_scaled(run)

    def test_dont_scale_leaves_the_original_bytes(self):
        for press in (lambda: self.desktop.key('Right', 'Escape'),
                      lambda: self.desktop.key('Tab', 'Tab', 'Tab', 'space'),
                      lambda: self.pointer_to(*DONT_SCALE, 'click', 1)):
            run = self.start()
            press()
            self.finish(run)
            self.assertEqual(self.desktop.paste('image/png'), ORIGINAL)
            self.leaves(0)

    @but_not_on(weston='only a program with the focus, or a click or key, may set the clipboard')
    def test_a_click_into_another_window(self):
        run = self.start()
        self.start_other_window()
        until(lambda: self.desktop.find(OTHER) or run.poll() is not None, 'another window')
        self.desktop.wait_until_still()
        if run.poll() is None:  # not every desktop makes a new window the active one
            left, top, _, _ = self.desktop.find(OTHER)
            self.desktop.do('mousemove', left + 5, top + 5, 'click', 1)
        self.has_scaled(run)

    # Gestures that leave the dialog open

    def test_the_title_bar_is_dragged(self):
        run = self.start()
        steps = ('mousemove_relative', 6, 3, 'sleep', 0.03) * 10
        self.pointer_to(*TITLE_BAR, 'mousedown', 1, 'sleep', 0.3, *steps, 'sleep', 0.3, 'mouseup', 1)
        self.stays(run)

    def test_the_window_menu_is_opened_and_left(self):
        run = self.start()
        before = self.desktop.look()
        self.desktop.do('key', 'alt+space', 'sleep', 0.5)
        if self.desktop.look() != before:  # not every desktop has one
            self.desktop.key('Escape')
        self.stays(run)

    @but_not_on(fluxbox=AT_ONCE, jwm=AT_ONCE,
                kwin_wayland='its list takes the keyboard, and the toolkit tells no more than that',
                mutter='to X programs it looks as if a Wayland window had become active')
    def test_the_switch_to_another_window_is_cancelled(self):
        self.start_other_window()
        until(lambda: self.desktop.find(OTHER), 'another window')
        run = self.start()
        self.desktop.do('keydown', 'alt', 'key', 'Tab', 'sleep', 0.5, 'key', 'Escape', 'keyup', 'alt')
        self.stays(run)

    def test_a_global_key_is_held(self):
        self.desktop.bind_key('F12')
        run = self.start()
        for seconds in (0.15, 0.5):
            self.desktop.do('keydown', 'F12', 'sleep', seconds, 'keyup', 'F12', 'sleep', 0.3)
        self.stays(run)

    def test_the_launch_key_is_held(self):
        self.desktop.copy(ORIGINAL, 'image/png')
        runs = [self.begin(), self.begin()]  # at the same moment
        for _ in range(13):
            time.sleep(0.1)
            runs.append(self.begin())
        self.wait_for_dialog()
        self.desktop.key('Return')
        for run in runs:
            self.finish(run)
        self.assertEqual(self.pasted().size, (320, 240))
        self.assertEqual(plistlib.loads((self.settings / 'Morvantile Preferences').read_bytes()),
                         {'Scale Mode': 2, 'Slider Value': 50.0})
        self.leaves(1)

    def test_a_copied_file_is_a_picture(self):
        file = pathlib.Path(self.desktop.folder, 'a picture.png')
        file.write_bytes(ORIGINAL)
        self.desktop.copy(file.as_uri().encode() + b'\r\n', 'text/uri-list')
        self.scales(self.begin())
        self.assertEqual(file.read_bytes(), ORIGINAL)

    # What is not there

    def nothing_is_left(self):
        self.assertEqual(self.processes(), [])
        self.assertFalse(self.settings.exists())

    def test_without_a_picture_it_ends_silently(self):
        for data, target in ((b'text', self.desktop.text), (b'not a picture', 'image/png'),
                             (encoded(noise(640, 480))[:2000], 'image/png')):
            with self.subTest(target=target, size=len(data)):
                self.desktop.copy(data, target)
                self.finish(self.begin())
                self.assertEqual(self.desktop.paste(target), data)
                self.nothing_is_left()

    def test_an_owner_that_hangs_ends_the_run_silently_and_soon(self):
        self.desktop.copy(ORIGINAL, 'image/png')
        for pid in self.desktop.programs('wl-copy') + self.desktop.programs('xclip'):
            os.kill(pid, signal.SIGSTOP)
        self.finish(self.begin(), SOON)
        self.nothing_is_left()

    # What stays behind

    def test_the_owner_gives_way_to_a_second_run_that_reads_it_and_to_another_program(self):
        self.scales(self.start())
        self.scales(self.begin(), 160, 120)
        self.leaves(1)
        self.desktop.copy(b'text', self.desktop.text)
        self.leaves(0)

    def test_the_owner_ends_with_the_display(self):
        self.scales(self.start())
        self.desktop.end_display()
        self.leaves(0)


if __name__ == '__main__':
    unittest.main(verbosity=2)
