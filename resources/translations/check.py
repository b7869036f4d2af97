"""Every text of the program, its launcher and its description in the shops is there in every language."""

import pathlib
import re
import sys
import unittest
import xml.etree.ElementTree as xml

PROJECT = pathlib.Path(sys.argv.pop(1))
LANG = '{http://www.w3.org/XML/1998/namespace}lang'
CATALOGUES = sorted((PROJECT / 'resources/translations').glob('morvantile_*.ts'))
LANGUAGES = {file.stem.partition('_')[2] for file in CATALOGUES}
AUTHOR = re.search(r'MORVANTILE_AUTHOR "(.*?)"', (PROJECT / 'CMakeLists.txt').read_text())[1]
ROOMS = ('app', 'dialogs', 'platform', 'plist', 'binding')
SOURCES = ''.join(file.read_text() for room in ROOMS for file in (PROJECT / room).rglob('*.cpp'))
CALLS = re.findall(r'\bLocalized\(\s*(?!const)("(?:[^"\\]|\\.)*"|\w+)', SOURCES)
TEXTS = {AUTHOR if call == 'MORVANTILE_AUTHOR' else call.strip('"') for call in CALLS}


class Catalogues(unittest.TestCase):
    def test_every_text_has_a_finished_translation(self):
        self.assertIn("Don't Scale", TEXTS)
        for file in CATALOGUES:
            with self.subTest(catalogue=file.name):
                messages = {message.findtext('source'): message.find('translation')
                            for message in xml.parse(file).iter('message')}
                self.assertEqual(messages.keys(), TEXTS)
                for source, translation in messages.items():
                    self.assertNotIn('type', translation.attrib, source)
                    self.assertTrue(translation.text, source)
                    for part in (r'%\d', r'\s$'):
                        self.assertEqual(sorted(re.findall(part, translation.text)),
                                         sorted(re.findall(part, source)), source)

    def test_launcher_and_description_speak_the_same_languages(self):
        launcher = (PROJECT / 'packaging/morvantile.desktop').read_text()
        for key in ('GenericName', 'Comment', 'Keywords'):
            self.assertEqual(set(re.findall(rf'^{key}\[(\w+)\]=.', launcher, re.M)), LANGUAGES, key)
        for parent in xml.parse(PROJECT / 'packaging/morvantile.metainfo.xml').iter():
            for tag in ('summary', 'p', 'li'):
                spoken = [child.get(LANG) for child in parent.findall(tag)]
                for language in LANGUAGES if spoken else ():
                    self.assertEqual(spoken.count(language), spoken.count(None), (tag, language))


if __name__ == '__main__':
    unittest.main()
