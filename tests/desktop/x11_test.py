"""The program on a real X display: what a user does, and what other programs then paste.

Run as: x11_test.py PROGRAM [unittest arguments]
"""

import os
import pty
import signal
import subprocess
import sys
import unittest

from PIL import ImageGrab

from desktop import PATIENCE, until
from gestures import DIALOG, Gestures
from pictures import decoded, encoded, landscape, see_through, swapped_colours
from virtual_display import VirtualDisplay


class OnX11(Gestures, unittest.TestCase):
    program = os.path.abspath(sys.argv.pop(1))
    open_desktop = VirtualDisplay

    def test_any_picture_format_is_read(self):
        for form, target in (('JPEG', 'image/jpeg'), ('BMP', 'image/bmp'), ('PPM', 'image/x-portable-pixmap')):
            with self.subTest(target=target):
                self.desktop.copy(encoded(landscape(120, 60), form), target)
                run, _ = self.start()
                self.desktop.key('Return')
                self.finish(run)
                self.assertEqual(self.pasted().size, (60, 30))

    def test_alpha_survives_and_hidden_colour_does_not_show(self):
        self.desktop.copy(encoded(see_through(200, 100)), 'image/png')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)
        for target in ('image/png', 'image/bmp'):
            with self.subTest(target=target):
                image = self.pasted(target).convert('RGBA')
                self.assertEqual(image.size, (100, 50))
                self.assertEqual(image.getpixel((10, 25)), (255, 0, 0, 255))
                self.assertEqual(image.getpixel((90, 25))[3], 0)
                self.assertEqual({image.getpixel((x, 25))[1] for x in range(52)}, {0})

    def test_colours_and_density_are_kept(self):
        original = swapped_colours(200, 100)
        self.desktop.copy(original, 'image/png')
        run, _ = self.start()
        shown = ImageGrab.grab(xdisplay=self.desktop.environment['DISPLAY']).getcolors(1 << 24)
        self.assertIn((100 * 50, (0, 255, 0)), shown)
        self.desktop.key('Return')
        self.finish(run)
        png, bmp = self.pasted('image/png'), self.pasted('image/bmp')
        self.assertEqual(png.convert('RGB').getpixel((50, 25)), (255, 0, 0))
        self.assertEqual(png.info['icc_profile'], decoded(original).info['icc_profile'])
        self.assertEqual([round(dots) for dots in png.info['dpi']], [300, 150])
        self.assertEqual(bmp.getpixel((50, 25)), (0, 255, 0))

    def test_the_info_window_leaves_the_dialog_open(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, dialog = self.start()
        for how in ('mouse', 'key'):
            with self.subTest(opened_by=how):
                if how == 'mouse':
                    self.desktop.click(dialog, 404, 472)
                else:
                    self.desktop.key('F1')
                until(lambda: len(self.desktop.windows('morvantile')) == 2, 'the info window')
                until(lambda: self.desktop.output('xdotool', 'getactivewindow') != dialog, 'active')
                self.desktop.key('x')
                until(lambda: len(self.desktop.windows('morvantile')) == 1, 'it closed')
                self.desktop.active_window(DIALOG)
                self.assertIsNone(run.poll())
        self.desktop.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (320, 240))

    def test_keys_move_the_slider_and_switch_the_mode(self):
        self.desktop.copy(encoded(landscape(1000, 500)), 'image/png')
        run, _ = self.start()
        self.desktop.key('Right', 'Right', 'Prior', 'Left')  # 50 + 2 + 20 - 1
        self.desktop.key('Tab', 'Left')                      # from per cent to height
        self.desktop.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (852, 426))

    def test_the_mouse_moves_the_slider_and_switches_the_mode(self):
        self.desktop.copy(encoded(landscape(1000, 500)), 'image/png')
        run, dialog = self.start()
        self.desktop.mouse('mousemove', '--window', dialog, '219', '318', 'mousedown', '1')
        for x in range(219, 450, 20):
            self.desktop.mouse('mousemove', '--window', dialog, str(x), '318')
        self.desktop.mouse('mouseup', '1')
        self.desktop.click(dialog, 180, 383)  # W
        self.desktop.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (600, 300))

    def test_the_picture_outlives_the_terminal(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
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

    def test_a_killed_run_leaves_the_clipboard_and_no_process(self):
        original = encoded(landscape(640, 480))
        self.desktop.copy(original, 'image/png')
        run, _ = self.start()
        run.send_signal(signal.SIGKILL)
        run.wait()
        until(lambda: not self.processes(), 'both halves gone')
        self.assertEqual(self.desktop.paste('image/png'), original)

    def test_without_a_display_it_says_so(self):
        del self.desktop.environment['DISPLAY']
        run = self.desktop.start(self.program, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        printed, _ = run.communicate(timeout=PATIENCE)
        self.assertEqual((run.returncode, printed.count(b'\n')), (1, 1))
        self.assertTrue(printed.startswith(b'morvantile: '))


if __name__ == '__main__':
    unittest.main(verbosity=2)
