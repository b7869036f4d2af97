"""What all tests of the program on a desktop have in common."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)) + '/../../tools/desktop')
from desktop import PATIENCE, Unavailable, until
from desktops import DESKTOPS, X11
from pictures import decoded, encoded, noise, plain

DIALOG = 'Clipboard Image Resize'
SOON = 9  # seconds; five and what a busy machine adds


class OnDesktop(unittest.TestCase):
    """Tests of `program` on the desktop that `make_desktop` makes: one for all of a class."""

    program = os.path.abspath(sys.argv.pop(1))
    make_desktop = X11
    desktop = None

    @classmethod
    def setUpClass(cls):
        try:
            cls.desktop = cls.make_desktop()
        except Unavailable as missing:
            raise unittest.SkipTest(str(missing)) from missing

    @classmethod
    def tearDownClass(cls):
        cls.desktop.stop()

    def tearDown(self):
        """Leaves a desktop for the next test."""
        if self.desktop.servers[0].poll() is None:
            self.desktop.clear()
        else:
            self.tearDownClass()
            self.setUpClass()

    def copy_picture(self, width=640, height=480):
        original = encoded(plain('#5078b4', width, height))
        self.desktop.copy(original, 'image/png')
        return original

    def begin(self, *command):
        return self.desktop.start(*(command or (self.program,)), stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT)

    def start(self, *command):
        """Starts the program, and returns it with its dialog once that is active."""
        run = self.begin(*command)
        return run, self.desktop.active_window(DIALOG)

    def finish(self, run, patience=PATIENCE):
        """Waits for the end: status 0, and nothing printed."""
        printed, _ = run.communicate(timeout=patience)
        self.assertEqual((run.returncode, printed), (0, b''))

    def scales(self, run, width, height, *keys, patience=PATIENCE):
        """The run ends with a picture of that size on the clipboard after the keys and Return."""
        self.desktop.key(*keys, 'Return')
        self.finish(run, patience)
        self.assertEqual(self.pasted().size, (width, height))

    def pasted(self, target='image/png'):
        data = self.desktop.paste(target)
        self.assertIsNotNone(data, target + ' is not offered')
        return decoded(data)

    def processes(self):
        return self.desktop.programs(self.program)

    def leaves(self, most):
        """At most so many processes stay, which is none or the owner of the clipboard."""
        until(lambda: len(self.processes()) <= most, f'{most} processes left')
