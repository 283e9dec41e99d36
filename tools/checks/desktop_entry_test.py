#!/usr/bin/env python3
"""The desktop entry has what a desktop needs to list, start and recognise the program, and all it names is installed."""
import configparser
import os
import re
import unittest

PACKAGING = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'packaging')
GROUP = 'Desktop Entry'
NAME = 'org.tandem_player.Tandem'
NEEDED = ('Type', 'Name', 'Exec', 'Icon', 'Categories', 'StartupWMClass')


def text_of(name):
    with open(os.path.join(PACKAGING, name), encoding='utf-8') as file:
        return file.read()


def build_file():
    return text_of('CMakeLists.txt').replace('${id}', NAME).replace('${share}', '${CMAKE_INSTALL_DATADIR}')


def entry(text):
    parser = configparser.ConfigParser(interpolation=None, delimiters=('=',), strict=True)
    parser.optionxform = str
    parser.read_string(text)
    return parser[GROUP]


def missing(text):
    return [key for key in NEEDED if not entry(text).get(key, '').strip()]


class DesktopEntry(unittest.TestCase):
    def setUp(self):
        self.text = text_of(f'{NAME}.desktop')
        self.entry = entry(self.text)
        self.installed = re.findall(r'install\((\w+) (\S+) DESTINATION "?([^")]+)', build_file())

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
        self.assertIn(('FILES', f'{NAME}.desktop', share + '/applications'), self.installed)
        self.assertIn(('PROGRAMS', self.entry['Exec'], '${CMAKE_INSTALL_BINDIR}'), self.installed)
        icon = self.entry['Icon'] + '.svg'
        self.assertIn(('FILES', icon, share + '/icons/hicolor/scalable/apps'), self.installed)
        for file in (f'{NAME}.desktop', self.entry['Exec'], icon):
            self.assertTrue(os.path.isfile(os.path.join(PACKAGING, file)), file)

    def test_is_started_over_the_session_bus_by_its_own_name(self):
        self.assertEqual(self.entry['DBusActivatable'], 'true')
        self.assertIn(f'Name={NAME}\n', text_of(f'{NAME}.service.in'))
        with open(os.path.join(PACKAGING, '..', 'src', 'desktop', 'names.h'), encoding='utf-8') as file:
            self.assertIn(f'kApplicationName = "{NAME}"', file.read())

    def test_opens_what_is_a_song_or_a_list_of_songs(self):
        types = self.entry['MimeType'].split(';')
        for wanted in ('audio/mpeg', 'audio/x-wav', 'application/x-tandem-playlist'):
            self.assertIn(wanted, types)
        self.assertIn('type="application/x-tandem-playlist"', text_of(f'{NAME}.xml'))


if __name__ == '__main__':
    unittest.main()
