"""The program on Mutter: a compositor without a data-control protocol that runs X programs.

Run as: mutter_test.py PROGRAM [unittest arguments]
"""

import os
import sys
import unittest

from desktop import Unavailable
from gestures import Gestures
from mutter import Mutter


class OnMutter(Gestures, unittest.TestCase):
    program = os.path.abspath(sys.argv.pop(1))

    def open_desktop(self):
        try:
            return Mutter()
        except Unavailable as missing:
            return self.skipTest(f'no Mutter here: {missing}')


if __name__ == '__main__':
    unittest.main(verbosity=2)
