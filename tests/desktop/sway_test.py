"""The program on sway: a compositor with a data-control protocol, and without X11.

Run as: sway_test.py PROGRAM [unittest arguments]
"""

import os
import sys
import unittest

from desktop import Unavailable
from gestures import Gestures
from sway import Sway, ensure_shared_memory

ensure_shared_memory()


class OnSway(Gestures, unittest.TestCase):
    program = os.path.abspath(sys.argv.pop(1))

    def open_desktop(self):
        try:
            return Sway()
        except Unavailable as missing:
            return self.skipTest(f'no sway here: {missing}')


if __name__ == '__main__':
    unittest.main(verbosity=2)
