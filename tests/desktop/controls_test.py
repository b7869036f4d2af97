"""The dialog's controls and its pictures on an X display, and the program without one.

Run as: controls_test.py PROGRAM [unittest arguments]
"""

import os
import pty
import re
import signal
import subprocess
import unittest

from desktop import PATIENCE, until
from on_desktop import DIALOG, OnDesktop
from pictures import decoded, encoded, landscape, see_through, swapped_colours


class Controls(OnDesktop):
    def test_any_picture_format_is_read(self):
        picture = landscape(120, 60)
        svg = b'<svg xmlns="http://www.w3.org/2000/svg" width="120" height="60"/>'
        for target, data in (('image/jpeg', encoded(picture, 'JPEG')),
                             ('image/bmp', encoded(picture, 'BMP')),
                             ('image/x-portable-pixmap', encoded(picture, 'PPM')),
                             ('image/webp', encoded(picture, 'WEBP')),
                             ('image/tiff', encoded(picture, 'TIFF')), ('image/svg+xml', svg)):
            with self.subTest(target=target):
                self.desktop.copy(data, target)
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
        shown = self.desktop.look().getcolors(1 << 24)
        self.assertIn((100 * 50, (0, 255, 0)), shown)
        self.desktop.key('Return')
        self.finish(run)
        png, bmp = self.pasted('image/png'), self.pasted('image/bmp')
        self.assertEqual(png.convert('RGB').getpixel((50, 25)), (255, 0, 0))
        self.assertEqual(png.info['icc_profile'], decoded(original).info['icc_profile'])
        self.assertEqual([round(dots) for dots in png.info['dpi']], [300, 150])
        self.assertEqual(bmp.getpixel((50, 25)), (0, 255, 0))

    def test_the_dialog_is_in_the_middle_of_the_primary_screen(self):
        for monitor, place, output in (('left', '400/100x800/200+0+0', 'screen'),
                                       ('*right', '880/200x700/200+400+100', 'none')):
            self.desktop.run('xrandr', '--setmonitor', monitor, place, output)
            self.addCleanup(self.desktop.run, 'xrandr', '--delmonitor', monitor.strip('*'))
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        _, dialog = self.start()
        told = self.desktop.output('xwininfo', '-id', dialog)
        self.assertEqual(re.findall(r'Absolute upper-left .: +(\d+)', told), ['620', '196'])

    def test_the_info_window_leaves_the_dialog_open(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, dialog = self.start()
        for how in ('mouse', 'key'):
            with self.subTest(opened_by=how):
                if how == 'mouse':
                    self.click(dialog, 404, 472)
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
        self.desktop.do('mousemove', '--window', dialog, 219, 318, 'mousedown', 1)
        for x in range(219, 450, 20):
            self.desktop.do('mousemove', '--window', dialog, x, 318)
        self.desktop.do('mouseup', 1)
        self.click(dialog, 180, 383)  # W
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

    def test_the_start_from_a_clone_explains_itself_without_a_picture(self):
        start = os.path.dirname(__file__) + '/../../tools/start'
        self.desktop.copy(b'text', self.desktop.text)
        printed, _ = self.begin(start, self.program).communicate(timeout=PATIENCE)
        self.assertRegex(printed, rb'^There is no picture on your clipboard[^\n]*\n$')
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start(start, self.program)
        self.desktop.key('Return')
        self.finish(run)

    def click(self, window, x, y):
        self.desktop.do('mousemove', '--window', window, x, y, 'click', 1)

    def test_without_a_display_it_says_so(self):
        environment = dict(self.desktop.environment)
        del environment['DISPLAY']
        run = subprocess.Popen(self.program, env=environment, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT)
        printed, _ = run.communicate(timeout=PATIENCE)
        self.assertEqual((run.returncode, printed.count(b'\n')), (1, 1))
        self.assertTrue(printed.startswith(b'morvantile: '))


if __name__ == '__main__':
    unittest.main(verbosity=2)
