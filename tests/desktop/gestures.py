"""What a user does with the program on any desktop, and what other programs then paste."""

import os
import signal
import subprocess

from desktop import PATIENCE, until
from pictures import decoded, encoded, landscape

DIALOG = 'Clipboard Image Resize'
SOON = 9  # seconds; five and what a busy machine adds


class Gestures:
    """To be mixed into a TestCase with `program` and open_desktop()."""

    program = None

    def setUp(self):
        self.desktop = self.open_desktop()
        self.addCleanup(self.desktop.stop)

    def start(self):
        """Starts the program, and gives it with its dialog once that is active."""
        run = self.desktop.start(self.program, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return run, self.desktop.active_window(DIALOG)

    def finish(self, run, patience=PATIENCE):
        """Waits for the end: status 0, and nothing printed."""
        printed, _ = run.communicate(timeout=patience)
        self.assertEqual((run.returncode, printed), (0, b''))

    def pasted(self, target='image/png'):
        return decoded(self.desktop.paste(target))

    def processes(self):
        return self.desktop.programs(self.program)

    def test_return_puts_the_smaller_picture_on_the_clipboard(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted('image/png').size, (320, 240))
        self.assertEqual(self.pasted('image/bmp').size, (320, 240))

    def test_a_copied_file_is_a_picture(self):
        file = self.desktop.folder + '/a picture.png'
        original = encoded(landscape(640, 480))
        with open(file, 'wb') as writer:
            writer.write(original)
        name = b'file://' + file.replace(' ', '%20').encode() + b'\r\n'
        self.desktop.copy(name + name, 'text/uri-list')
        self.finish(self.desktop.start(self.program, stdout=subprocess.PIPE,
                                       stderr=subprocess.STDOUT))
        self.assertEqual(self.processes(), [])
        self.desktop.copy(name, 'text/uri-list')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (320, 240))
        with open(file, 'rb') as reader:
            self.assertEqual(reader.read(), original)

    def test_mode_and_slider_are_remembered(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.desktop.key('Right')
        self.desktop.key('Return')
        self.finish(run)
        self.desktop.copy(encoded(landscape(1000, 500)), 'image/png')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)
        self.assertEqual(self.pasted().size, (510, 255))

    def test_escape_leaves_the_original_bytes(self):
        original = encoded(landscape(640, 480))
        self.desktop.copy(original, 'image/png')
        run, _ = self.start()
        self.desktop.key('Right', 'Escape')
        self.finish(run)
        self.assertEqual(self.desktop.paste('image/png'), original)
        self.assertEqual(self.processes(), [])

    def test_without_a_picture_it_ends_silently(self):
        for data, target in ((b'text', self.desktop.text), (b'not a picture', 'image/png'),
                             (encoded(landscape())[:2000], 'image/png')):
            with self.subTest(target=target, size=len(data)):
                self.desktop.copy(data, target)
                run = self.desktop.start(self.program, stdout=subprocess.PIPE,
                                         stderr=subprocess.STDOUT)
                self.finish(run)
                self.assertEqual(self.desktop.windows('morvantile'), [])
                self.assertEqual(self.desktop.paste(target), data)
                self.assertEqual(self.processes(), [])
                self.assertFalse(os.path.exists(self.desktop.environment['XDG_CONFIG_HOME']))

    def test_an_owner_that_hangs_ends_the_run_silently_and_soon(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        for pid in self.desktop.programs('wl-copy') + self.desktop.programs('xclip'):
            os.kill(pid, signal.SIGSTOP)
        run = self.desktop.start(self.program, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.finish(run, SOON)
        self.assertEqual(self.processes(), [])
        self.assertFalse(os.path.exists(self.desktop.environment['XDG_CONFIG_HOME']))

    def test_another_active_window_ends_it_with_the_smaller_picture(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.desktop.show_other_window()
        self.finish(run)
        self.assertEqual(self.pasted().size, (320, 240))

    def test_a_second_run_reads_what_the_first_left(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        for size in ((320, 240), (160, 120)):
            run, _ = self.start()
            self.desktop.key('Return')
            self.finish(run)
            self.assertEqual(self.pasted().size, size)
        until(lambda: len(self.processes()) == 1, 'the first owner gone')

    def test_the_owner_gives_way_to_another_program(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)
        self.assertEqual(len(self.processes()), 1)
        self.desktop.copy(b'text', self.desktop.text)
        until(lambda: not self.processes(), 'the owner gone')

    def test_the_owner_ends_with_the_display(self):
        self.desktop.copy(encoded(landscape(640, 480)), 'image/png')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)
        self.desktop.servers[0].kill()
        until(lambda: not self.processes(), 'the owner gone')
