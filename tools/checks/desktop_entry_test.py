#!/usr/bin/env python3
"""The desktop entry has what a desktop needs to list, start and recognise the program, and all it names is installed."""
import configparser
import os
import re
import unittest

PACKAGING = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'packaging')
GROUP = 'Desktop Entry'
NEEDED = ('Type', 'Name', 'Exec', 'Icon', 'Categories', 'StartupWMClass')


def text_of(name):
    with open(os.path.join(PACKAGING, name), encoding='utf-8') as file:
        return file.read()


def entry(text):
    parser = configparser.ConfigParser(interpolation=None, delimiters=('=',), strict=True)
    parser.optionxform = str
    parser.read_string(text)
    return parser[GROUP]


def missing(text):
    return [key for key in NEEDED if not entry(text).get(key, '').strip()]


class DesktopEntry(unittest.TestCase):
    def setUp(self):
        self.text = text_of('tandem.desktop')
        self.entry = entry(self.text)
        self.installed = re.findall(r'install\((\w+) (\S+) DESTINATION "?([^")]+)', text_of('CMakeLists.txt'))

    def test_nothing_is_missing(self):
        self.assertEqual(missing(self.text), [])
        for key in NEEDED:
            without = re.sub(f'^{key}=.*$', '', self.text, flags=re.MULTILINE)
            self.assertEqual(missing(without), [key], 'a missing key is found')

    def test_is_an_application_among_the_sound_programs(self):
        self.assertEqual(self.entry['Type'], 'Application')
        self.assertTrue(self.entry['Categories'].endswith(';'))
        self.assertLessEqual({'AudioVideo', 'Audio'}, set(self.entry['Categories'].split(';')))

    def test_is_installed_with_what_it_names(self):
        share = '${CMAKE_INSTALL_DATADIR}'
        self.assertIn(('FILES', 'tandem.desktop', share + '/applications'), self.installed)
        self.assertIn(('PROGRAMS', self.entry['Exec'], '${CMAKE_INSTALL_BINDIR}'), self.installed)
        icon = self.entry['Icon'] + '.svg'
        self.assertIn(('FILES', icon, share + '/icons/hicolor/scalable/apps'), self.installed)
        for file in ('tandem.desktop', self.entry['Exec'], icon):
            self.assertTrue(os.path.isfile(os.path.join(PACKAGING, file)), file)


if __name__ == '__main__':
    unittest.main()
