"""The program among hostile pictures, hanging programs and failing files, on a virtual X display.

Run as: faults_test.py PROGRAM [unittest arguments]. Whatever happens, the run ends by itself, the
settings are the old or the new ones, and no process stays but an owner of the clipboard.
"""

import os
import plistlib
import shutil
import signal
import struct
import subprocess
import sys
import time
import unittest
import zlib

from desktop import PATIENCE, until
from on_desktop import DIALOG, SOON, OnDesktop
from pictures import decoded, encoded, landscape
from PIL import Image

HERE = os.path.dirname(os.path.abspath(__file__))
SETTINGS = {'Scale Mode': 2, 'Slider Value': 50.0, 'Of another version': 'kept'}


def png_of_size(width, height):
    """A PNG that claims a size, and holds nothing but zeros, as many as fit into a small file."""
    def chunk(kind, data):
        return (struct.pack('>I', len(data)) + kind + data +
                struct.pack('>I', zlib.crc32(kind + data)))
    header = struct.pack('>IIBBBBB', width, height, 8, 2, 0, 0, 0)
    rows = zlib.compress(bytes(30_000_000), 9)
    return b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunk(b'IDAT', rows) + chunk(b'IEND', b'')


class Faults(OnDesktop):
    def setUp(self):
        super().setUp()
        self.settings = self.desktop.folder + '/config/Morvantile/Morvantile Preferences'
        os.makedirs(os.path.dirname(self.settings), exist_ok=True)

    def put_settings(self, form=plistlib.FMT_XML, **changes):
        with open(self.settings, 'wb') as file:
            plistlib.dump({**SETTINGS, **changes}, file, fmt=form)
        return self.settings_bytes()

    def settings_bytes(self):
        with open(self.settings, 'rb') as file:
            return file.read()

    def copy_landscape(self, width=640, height=480):
        original = encoded(landscape(width, height))
        self.desktop.copy(original, 'image/png')
        return original

    def leaves_no_process(self):
        until(lambda: not self.processes(), 'no process left')

    # Pictures

    def test_hostile_pictures_end_the_run_silently_and_soon(self):
        old = self.put_settings()
        for name, data in (('65535 x 65535', png_of_size(65535, 65535)),
                           ('16000 x 16000, cut off', png_of_size(16000, 16000)),
                           ('40000000 x 1, cut off', png_of_size(40_000_000, 1)),
                           ('truncated', encoded(landscape())[:3000]),
                           ('empty', b'')):
            with self.subTest(picture=name):
                self.desktop.copy(data, 'image/png')
                self.finish(self.begin(), SOON)
                self.assertEqual(self.desktop.paste('image/png'), data)
                self.assertEqual(self.settings_bytes(), old)
                self.leaves_no_process()

    def test_a_hanging_owner_ends_the_run_silently_and_soon(self):
        old = self.put_settings()
        picture = self.desktop.folder + '/picture.png'
        with open(picture, 'wb') as file:
            file.write(encoded(landscape(1500, 1500), 'BMP'))
        for when in ('at-once', 'at-the-picture', 'half-way'):
            with self.subTest(hangs=when):
                owner = self.desktop.start(sys.executable, HERE + '/hanging_owner.py', when, picture,
                                           stdout=subprocess.PIPE)
                self.assertEqual(owner.stdout.readline(), b'owner\n')
                self.finish(self.begin(), SOON)
                self.assertIsNone(owner.poll())
                self.assertEqual(self.settings_bytes(), old)
                self.leaves_no_process()
                owner.kill()
                owner.communicate()

    # The display

    def test_the_display_goes_away_under_the_dialog(self):
        old = self.put_settings()
        self.copy_landscape()
        run, _ = self.start()
        self.desktop.end_display()
        run.communicate(timeout=PATIENCE)
        self.assertGreaterEqual(run.returncode, 0, 'ended by itself')
        self.assertEqual(self.settings_bytes(), old)
        self.leaves_no_process()

    def test_the_end_of_the_login_ends_run_and_owner(self):
        old = self.put_settings()
        for signal_of_end in (signal.SIGHUP, signal.SIGTERM):
            with self.subTest(signal=signal_of_end):
                original = self.copy_landscape()
                run, _ = self.start()
                for pid in self.processes():
                    os.kill(pid, signal_of_end)
                run.communicate(timeout=PATIENCE)
                self.leaves_no_process()
                self.assertEqual(self.settings_bytes(), old)
                self.assertEqual(self.desktop.paste('image/png'), original)
                run, _ = self.start()
                self.desktop.key('Return')
                self.finish(run)
                until(lambda: len(self.processes()) == 1, 'the owner')
                os.kill(self.processes()[0], signal_of_end)
                self.leaves_no_process()
                old = self.settings_bytes()

    # Pasting

    def scaled(self, width=640, height=480):
        self.copy_landscape(width, height)
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)

    def large(self):
        """A run whose picture takes its owner half a second to encode, just ended."""
        self.put_settings(**{'Slider Value': 100.0})
        self.desktop.copy(encoded(Image.effect_noise((3000, 3000), 50).convert('RGB'), 'BMP'),
                          'image/bmp')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)

    def test_fifty_pastes_at_once_all_get_the_picture(self):
        self.large()
        command = ('xclip', '-selection', 'clipboard', '-t', 'image/png', '-o')
        pastes = [self.desktop.start(*command, stdout=subprocess.PIPE) for _ in range(50)]
        pasted = {paste.communicate(timeout=PATIENCE)[0] for paste in pastes}
        self.assertEqual(len(pasted), 1)
        self.assertEqual(decoded(pasted.pop()).size, (3000, 3000))

    def test_the_owner_is_killed_while_it_encodes(self):
        self.large()
        os.kill(self.processes()[0], signal.SIGKILL)
        self.leaves_no_process()
        self.scaled()
        self.assertEqual(decoded(self.desktop.paste('image/png')).size, (640, 480))

    def test_the_clipboard_is_taken_over_while_the_owner_encodes(self):
        self.large()
        self.desktop.copy(b'text', self.desktop.text)
        self.leaves_no_process()
        self.assertEqual(self.desktop.paste(self.desktop.text), b'text')

    def test_a_hundred_megabytes_come_through_and_a_receiver_may_die(self):
        self.put_settings(**{'Slider Value': 100.0})
        self.desktop.copy(encoded(Image.effect_noise((5900, 5900), 50).convert('RGB'), 'BMP'),
                          'image/bmp')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)
        command = ('xclip', '-selection', 'clipboard', '-t', 'image/bmp', '-o')
        for _ in range(3):
            receiver = self.desktop.start(*command, stdout=subprocess.PIPE)
            receiver.stdout.read(200_000)
            receiver.kill()
            receiver.communicate()
        pasted = self.desktop.paste('image/bmp')
        self.assertGreater(len(pasted), 100_000_000)
        self.assertEqual(decoded(pasted).size, (5900, 5900))
        self.assertEqual(len(self.processes()), 1)

    def test_two_runs_at_the_same_moment(self):
        self.put_settings()
        self.copy_landscape()
        runs = [self.begin(), self.begin()]
        until(lambda: self.desktop.windows('morvantile') or
              all(run.poll() is not None for run in runs), 'a dialog')
        end = time.monotonic() + PATIENCE
        while any(run.poll() is None for run in runs) and time.monotonic() < end:
            self.desktop.key('Return')
            time.sleep(0.2)
        for run in runs:
            self.finish(run)
        self.assertIn(self.pasted().size, ((320, 240), (160, 120)))
        self.assertEqual(plistlib.loads(self.settings_bytes()), SETTINGS)
        until(lambda: len(self.processes()) == 1, 'one owner')

    # Settings

    def test_the_converter_is_missing_hangs_fails_or_breaks_off(self):
        tree = self.desktop.folder + '/tree'
        os.makedirs(tree + '/bin')
        os.makedirs(tree + '/libexec/morvantile')
        program = shutil.copy(self.program, tree + '/bin/morvantile')
        converter = tree + '/libexec/morvantile/plutil'
        real = os.path.dirname(os.path.dirname(self.program)) + '/libexec/morvantile/plutil'
        for name, script in (
                ('missing', None), ('fails', 'exit 1'), ('hangs', 'sleep 1000'),
                ('breaks off', 'for f; do :; done; head -c 60 "$f" > "$f.x"; mv "$f.x" "$f"; exit 1'),
                ('fails on the way back', f'case $2 in xml1) exec {real} "$@"; esac; exit 1'),
                ('breaks off on the way back',
                 f'case $2 in xml1) exec {real} "$@"; esac; : > "$3"; exit 1')):
            with self.subTest(converter=name):
                old = self.put_settings(plistlib.FMT_BINARY)
                os.chmod(self.settings, 0o600)
                if script is not None:
                    with open(converter, 'w', encoding='utf-8') as file:
                        file.write('#!/bin/sh\n' + script + '\n')
                    os.chmod(converter, 0o755)
                self.copy_landscape()
                run, _ = self.start(program)
                self.desktop.key('Return')
                self.finish(run, 2 * PATIENCE)
                self.assertEqual(self.pasted().size, (320, 240))
                if name.endswith('back'):
                    self.assertEqual(plistlib.loads(self.settings_bytes()), SETTINGS)
                else:
                    self.assertEqual(self.settings_bytes(), old)
                self.assertEqual(os.stat(self.settings).st_mode & 0o777, 0o600)
                self.assertEqual(self.desktop.programs('sleep'), [])

    def small_disk(self, folder):
        """Mounts a disk of 64 kB there, for the time of the test, or skips the test."""
        mount = ['mount', '-t', 'tmpfs', '-o', 'size=64k,mode=700', 'full', folder]
        if subprocess.run(mount, stderr=subprocess.DEVNULL, check=False).returncode != 0:
            self.skipTest('a small disk can be mounted by root alone')
        self.addCleanup(subprocess.run, ['umount', '--lazy', folder], check=True)

    def test_a_full_disk_leaves_the_settings(self):
        folder = os.path.dirname(self.settings)
        self.small_disk(folder)
        old = self.put_settings(Filler='x' * 20_000)
        with self.assertRaises(OSError), open(folder + '/filler', 'wb', buffering=0) as filler:
            while True:
                filler.write(bytes(4096))
        self.copy_landscape()
        run, _ = self.start()
        self.desktop.key('Right', 'Return')
        self.finish(run)
        self.assertEqual(self.settings_bytes(), old)
        self.assertEqual(sorted(os.listdir(folder)), ['Morvantile Preferences', 'filler'])
        self.assertNotEqual(self.pasted().size, (640, 480))

    def test_out_of_memory_ends_clearly_with_everything_as_it_was(self):
        old = self.put_settings()
        original = self.copy_landscape(4000, 3000)
        for kilobytes in (20_000, 60_000, 100_000, 150_000, 200_000, 250_000, 300_000, 400_000):
            with self.subTest(kilobytes=kilobytes):
                run = self.begin('sh', '-c', f'ulimit -v {kilobytes} && exec "$0"', self.program)
                until(lambda: run.poll() is not None or self.desktop.windows('morvantile'),
                      'an end or a dialog', 40)
                if run.poll() is None:
                    self.desktop.active_window(DIALOG)
                    self.desktop.key('Escape')
                printed, _ = run.communicate(timeout=PATIENCE)
                self.assertIn(run.returncode, (0, 1, 127), printed)
                self.assertLessEqual(printed.count(b'\n'), 1)
                self.assertEqual(self.desktop.paste('image/png'), original)
                self.assertEqual(self.settings_bytes(), old)
                self.leaves_no_process()


if __name__ == '__main__':
    unittest.main(verbosity=2)
