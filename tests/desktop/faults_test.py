"""The program among hostile pictures, hanging programs and failing files, on a virtual X display.

Run as: faults_test.py PROGRAM [unittest arguments]. Whatever happens, the run ends by itself, the
settings are the old or the new ones, and no process stays but an owner of the clipboard.
"""

import os
import pathlib
import plistlib
import shutil
import signal
import struct
import subprocess
import unittest
import zlib

from Xlib import X, Xatom, display
from Xlib.protocol import event

from on_desktop import DIALOG, PATIENCE, SOON, OnDesktop, decoded, encoded, noise, until

SETTINGS = {'Scale Mode': 2, 'Slider Value': 50.0, 'Of another version': 'kept'}


def png_of_size(width, height):
    """A PNG that claims a size, and holds nothing but zeros, as many as fit into a small file."""
    file = b'\x89PNG\r\n\x1a\n'
    for kind, data in ((b'IHDR', struct.pack('>IIBBBBB', width, height, 8, 2, 0, 0, 0)),
                       (b'IDAT', zlib.compress(bytes(30_000_000), 9)), (b'IEND', b'')):
        file += struct.pack('>I', len(data)) + kind + data
        file += struct.pack('>I', zlib.crc32(kind + data))
    return file


class HangingOwner:
    """An owner of the clipboard that offers a picture in two forms, and stops in the transfer."""

    def __init__(self, screen):
        self.connection = display.Display(screen)
        self.atom = self.connection.intern_atom
        window = self.connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        window.set_selection_owner(self.atom('CLIPBOARD'), X.CurrentTime)
        self.connection.sync()

    def next_event(self, kind):
        while True:
            until(self.connection.pending_events, 'an event')
            happened = self.connection.next_event()
            if happened.type == kind:
                return happened

    def answer(self, asked, form, data):
        asked.requestor.change_attributes(event_mask=X.PropertyChangeMask)
        asked.requestor.change_property(asked.property, form, 32, data)
        asked.requestor.send_event(event.SelectionNotify(
            time=asked.time, requestor=asked.requestor, selection=asked.selection,
            target=asked.target, property=asked.property))

    def serve_the_beginning_of(self, picture):
        while (asked := self.next_event(X.SelectionRequest)).target == self.atom('TARGETS'):
            self.answer(asked, Xatom.ATOM, [self.atom('image/png'), self.atom('image/bmp')])
        self.answer(asked, self.atom('INCR'), [len(picture)])
        while self.next_event(X.PropertyNotify).state != X.PropertyDelete:
            pass
        asked.requestor.change_property(asked.property, asked.target, 8, picture[:100_000])
        self.connection.flush()


class Faults(OnDesktop):
    def setUp(self):
        folder = pathlib.Path(self.desktop.folder, 'config', 'Morvantile')
        folder.mkdir(parents=True, exist_ok=True)
        self.settings = folder / 'Morvantile Preferences'
        self.old = self.put_settings()

    def put_settings(self, form=plistlib.FMT_XML, **changes):
        self.settings.write_bytes(plistlib.dumps({**SETTINGS, **changes}, fmt=form))
        return self.settings.read_bytes()

    def nothing_has_changed(self, picture=None):
        self.leaves(0)
        self.assertEqual(self.settings.read_bytes(), self.old)
        if picture is not None:
            self.assertEqual(self.desktop.paste('image/png'), picture)

    # Pictures

    def test_hostile_pictures_end_the_run_silently_and_soon(self):
        for name, data in (('65535 x 65535', png_of_size(65535, 65535)),
                           ('16000 x 16000, cut off', png_of_size(16000, 16000)),
                           ('40000000 x 1, cut off', png_of_size(40_000_000, 1)),
                           ('empty', b'')):
            with self.subTest(picture=name):
                self.desktop.copy(data, 'image/png')
                self.finish(self.begin(), SOON)
                self.nothing_has_changed(data)

    def test_an_owner_that_hangs_half_way_ends_the_run_silently_and_soon(self):
        owner = HangingOwner(self.desktop.screen)
        self.addCleanup(owner.connection.close)
        run = self.begin()
        owner.serve_the_beginning_of(encoded(noise(1500, 1500), 'BMP'))
        self.finish(run, SOON)
        self.nothing_has_changed()

    # The display

    def test_the_display_goes_away_under_the_dialog(self):
        self.copy_picture()
        run, _ = self.start()
        self.desktop.end_display()
        run.communicate(timeout=PATIENCE)
        self.assertGreaterEqual(run.returncode, 0, 'ended by itself')
        self.nothing_has_changed()

    def test_the_end_of_the_login_or_a_kill_ends_run_and_owner(self):
        for end in (signal.SIGHUP, signal.SIGTERM, signal.SIGKILL):
            with self.subTest(signal=end):
                self.old = self.put_settings()
                original = self.copy_picture()
                run, _ = self.start()
                for pid in [run.pid] if end == signal.SIGKILL else self.processes():
                    os.kill(pid, end)
                run.communicate(timeout=PATIENCE)
                self.nothing_has_changed(original)
                run, _ = self.start()
                self.scales(run, 320, 240)
                os.kill(self.processes()[0], end)
                self.leaves(0)

    # Pasting

    def large(self, side=3000):
        """A run whose picture takes its owner half a second to encode, just ended."""
        self.put_settings(**{'Slider Value': 100.0})
        self.desktop.copy(encoded(noise(side, side), 'BMP'), 'image/bmp')
        run, _ = self.start()
        self.desktop.key('Return')
        self.finish(run)

    def paste(self, target):
        return self.desktop.start(*self.desktop.paste_command, target, stdout=subprocess.PIPE)

    def test_fifty_pastes_at_once_all_get_the_picture(self):
        self.large()
        pastes = [self.paste('image/png') for _ in range(50)]
        pasted = {paste.communicate(timeout=PATIENCE)[0] for paste in pastes}
        self.assertEqual([decoded(picture).size for picture in pasted], [(3000, 3000)])

    def test_the_owner_is_killed_or_replaced_while_it_encodes(self):
        self.large()
        os.kill(self.processes()[0], signal.SIGKILL)
        self.leaves(0)
        self.large()
        self.desktop.copy(b'text', self.desktop.text)
        self.leaves(0)
        self.assertEqual(self.desktop.paste(self.desktop.text), b'text')

    def test_a_hundred_megabytes_come_through_and_a_receiver_may_die(self):
        self.large(5900)
        for _ in range(3):
            receiver = self.paste('image/bmp')
            receiver.stdout.read(200_000)
            receiver.kill()
            receiver.communicate()
        self.assertEqual(self.pasted('image/bmp').size, (5900, 5900))
        self.assertEqual(len(self.processes()), 1)

    # Settings

    def test_the_converter_is_missing_hangs_fails_or_breaks_off(self):
        tree = pathlib.Path(self.desktop.folder, 'tree')
        converter = tree / 'libexec' / 'morvantile' / 'plutil'
        converter.parent.mkdir(parents=True)
        (tree / 'bin').mkdir()
        program = shutil.copy(self.program, tree / 'bin')
        real = os.path.dirname(os.path.dirname(self.program)) + '/libexec/morvantile/plutil'
        reads = f'case $2 in xml1) exec {real} "$@"; esac; '
        for name, script in (
                ('missing', None), ('fails', 'exit 1'), ('hangs', 'sleep 1000'),
                ('breaks off', 'for f; do :; done; head -c 60 "$f" > "$f.x"; mv "$f.x" "$f"; exit 1'),
                ('fails on the way back', reads + 'exit 1'),
                ('breaks off on the way back', reads + ': > "$3"; exit 1')):
            with self.subTest(converter=name):
                self.old = self.put_settings(plistlib.FMT_BINARY)
                self.settings.chmod(0o600)
                if script is not None:
                    converter.write_text('#!/bin/sh\n' + script + '\n', encoding='utf-8')
                    converter.chmod(0o755)
                self.copy_picture()
                run, _ = self.start(program)
                self.scales(run, 320, 240, patience=2 * PATIENCE)
                if name.endswith('back'):
                    self.assertEqual(plistlib.loads(self.settings.read_bytes()), SETTINGS)
                else:
                    self.assertEqual(self.settings.read_bytes(), self.old)
                self.assertEqual(self.settings.stat().st_mode & 0o777, 0o600)
                self.assertEqual(self.desktop.programs('sleep'), [])

    def test_out_of_memory_ends_clearly_with_everything_as_it_was(self):
        original = self.copy_picture(4000, 3000)
        for kilobytes in (20_000, 60_000, 100_000, 150_000, 200_000, 250_000, 300_000, 400_000):
            with self.subTest(kilobytes=kilobytes):
                run = self.begin('sh', '-c', f'ulimit -v {kilobytes} && exec "$0"', self.program)
                until(lambda: run.poll() is not None or self.desktop.windows('morvantile'),
                      'an end or a dialog')
                if run.poll() is None:
                    self.desktop.active_window(DIALOG)
                    self.desktop.key('Escape')
                printed, _ = run.communicate(timeout=PATIENCE)
                self.assertIn(run.returncode, (0, 1, 127), printed)
                self.assertLessEqual(printed.count(b'\n'), 1)
                self.nothing_has_changed(original)


if __name__ == '__main__':
    unittest.main(verbosity=2)
