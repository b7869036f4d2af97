"""The program on a real X display: what a user does, and what other programs then paste.

Run as: x11_test.py PROGRAM [unittest arguments]
"""

import os
import pty
import signal
import subprocess
import sys
import unittest

from pictures import decoded, encoded, landscape, see_through
from virtual_display import PATIENCE, VirtualDisplay, until

PROGRAM = os.path.abspath(sys.argv.pop(1))
DIALOG = 'Clipboard Image Resize'


class RoundTrip(unittest.TestCase):
    def setUp(self):
        self.display = VirtualDisplay()
        self.addCleanup(self.display.stop)

    def start(self):
        """Starts the program, and gives it with its dialog once that is active."""
        run = self.display.start(PROGRAM, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return run, self.display.active_window(DIALOG)

    def finish(self, run):
        """Waits for the end: status 0, and nothing printed."""
        printed, _ = run.communicate(timeout=PATIENCE)
        self.assertEqual((run.returncode, printed), (0, b''))

    def pasted(self, target='image/png'):
        return decoded(self.display.paste(target))

    def processes(self):
        return self.display.programs(PROGRAM)

    def test_return_puts_the_smaller_picture_on_the_clipboard(self):
        self.display.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.display.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted('image/png').size, (320, 240))
        self.assertEqual(self.pasted('image/bmp').size, (320, 240))

    def test_escape_leaves_the_original_bytes(self):
        original = encoded(landscape(640, 480))
        self.display.copy(original, 'image/png')
        run, _ = self.start()
        self.display.key('Right', 'Escape')
        self.finish(run)
        self.assertEqual(self.display.paste('image/png'), original)
        self.assertEqual(self.processes(), [])

    def test_without_a_picture_it_ends_silently(self):
        for data, target in ((b'text', 'UTF8_STRING'), (b'not a picture', 'image/png'),
                             (encoded(landscape())[:2000], 'image/png')):
            with self.subTest(target=target, size=len(data)):
                self.display.copy(data, target)
                run = self.display.start(PROGRAM, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                self.finish(run)
                self.assertEqual(self.display.windows('morvantile'), [])
                self.assertEqual(self.display.paste(target), data)
                self.assertEqual(self.processes(), [])
                self.assertFalse(os.path.exists(self.display.environment['XDG_CONFIG_HOME']))

    def test_any_picture_format_is_read(self):
        for form, target in (('JPEG', 'image/jpeg'), ('BMP', 'image/bmp'), ('PPM', 'image/x-portable-pixmap')):
            with self.subTest(target=target):
                self.display.copy(encoded(landscape(120, 60), form), target)
                run, _ = self.start()
                self.display.key('Return')
                self.finish(run)
                self.assertEqual(self.pasted().size, (60, 30))

    def test_alpha_survives_and_hidden_colour_does_not_show(self):
        self.display.copy(encoded(see_through(200, 100)), 'image/png')
        run, _ = self.start()
        self.display.key('Return')
        self.finish(run)
        for target in ('image/png', 'image/bmp'):
            with self.subTest(target=target):
                image = self.pasted(target)
                self.assertEqual((image.mode, image.size), ('RGBA', (100, 50)))
                self.assertEqual(image.getpixel((10, 25)), (255, 0, 0, 255))
                self.assertEqual(image.getpixel((90, 25))[3], 0)
                self.assertEqual({image.getpixel((x, 25))[1] for x in range(52)}, {0})

    def test_another_active_window_ends_it_with_the_smaller_picture(self):
        self.display.copy(encoded(landscape(640, 480)), 'image/png')
        self.display.start('xev', '-name', 'other', stdout=subprocess.DEVNULL)
        other = self.display.window('other')
        run, _ = self.start()
        self.display.mouse('windowactivate', '--sync', other)
        self.finish(run)
        self.assertEqual(self.pasted().size, (320, 240))

    def test_the_info_window_leaves_the_dialog_open(self):
        self.display.copy(encoded(landscape(640, 480)), 'image/png')
        run, dialog = self.start()
        for how in ('mouse', 'key'):
            with self.subTest(opened_by=how):
                if how == 'mouse':
                    self.display.click(dialog, 404, 472)
                else:
                    self.display.key('F1')
                until(lambda: len(self.display.windows('morvantile')) == 2, 'the info window')
                until(lambda: self.display.output('xdotool', 'getactivewindow') != dialog, 'active')
                self.display.key('x')
                until(lambda: len(self.display.windows('morvantile')) == 1, 'it closed')
                self.display.active_window(DIALOG)
                self.assertIsNone(run.poll())
        self.display.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (320, 240))

    def test_keys_move_the_slider_and_switch_the_mode(self):
        self.display.copy(encoded(landscape(1000, 500)), 'image/png')
        run, _ = self.start()
        self.display.key('Right', 'Right', 'Prior', 'Left')  # 50 + 2 + 20 - 1
        self.display.key('Tab', 'Left')                      # from per cent to height
        self.display.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (852, 426))

    def test_the_mouse_moves_the_slider_and_switches_the_mode(self):
        self.display.copy(encoded(landscape(1000, 500)), 'image/png')
        run, dialog = self.start()
        self.display.mouse('mousemove', '--window', dialog, '219', '318', 'mousedown', '1')
        for x in range(219, 450, 20):
            self.display.mouse('mousemove', '--window', dialog, str(x), '318')
        self.display.mouse('mouseup', '1')
        self.display.click(dialog, 180, 383)  # W
        self.display.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (600, 300))

    def test_a_second_run_reads_what_the_first_left(self):
        self.display.copy(encoded(landscape(640, 480)), 'image/png')
        for size in ((320, 240), (160, 120)):
            run, _ = self.start()
            self.display.key('Return')
            self.finish(run)
            self.assertEqual(self.pasted().size, size)
        until(lambda: len(self.processes()) == 1, 'the first owner gone')

    def test_the_owner_gives_way_to_another_program(self):
        self.display.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.display.key('Return')
        self.finish(run)
        self.assertEqual(len(self.processes()), 1)
        self.display.copy(b'text', 'UTF8_STRING')
        until(lambda: not self.processes(), 'the owner gone')

    def test_the_picture_outlives_the_terminal(self):
        self.display.copy(encoded(landscape(640, 480)), 'image/png')
        shell, terminal = pty.fork()
        if shell == 0:
            os.execve('/bin/sh', ['sh', '-c', PROGRAM + '; cat'], self.display.environment)
        self.display.active_window(DIALOG)
        self.display.key('Return')
        until(lambda: 'image/bmp' in self.display.targets(), 'the picture on the clipboard')
        until(lambda: self.display.programs('cat'), 'the run over for its shell')
        os.close(terminal)
        os.waitpid(shell, 0)
        self.assertEqual(self.pasted().size, (320, 240))

    def test_a_killed_run_leaves_the_clipboard_and_no_process(self):
        original = encoded(landscape(640, 480))
        self.display.copy(original, 'image/png')
        run, _ = self.start()
        run.send_signal(signal.SIGKILL)
        run.wait()
        until(lambda: not self.processes(), 'both halves gone')
        self.assertEqual(self.display.paste('image/png'), original)

    def test_the_owner_ends_with_the_display(self):
        self.display.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.display.key('Return')
        self.finish(run)
        self.display.server.kill()
        until(lambda: not self.processes(), 'the owner gone')

    def test_without_a_display_it_says_so(self):
        del self.display.environment['DISPLAY']
        run = self.display.start(PROGRAM, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        printed, _ = run.communicate(timeout=PATIENCE)
        self.assertEqual((run.returncode, printed.count(b'\n')), (1, 1))
        self.assertTrue(printed.startswith(b'morvantile: '))


if __name__ == '__main__':
    unittest.main(verbosity=2)
