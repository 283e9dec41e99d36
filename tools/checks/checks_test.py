#!/usr/bin/env python3
"""Shows that the checks find what they are there to find, and nothing else."""
import os
import subprocess
import tempfile
import unittest

import count_tests
import document_paths
import house_rules
import include_order

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..')


class IncludeOrder(unittest.TestCase):
    def test_allowed(self):
        for path, line in (('base/a.h', '#include <vector>'), ('playback/a.h', '#include "playlist/song_table.h"'),
                           ('engine/decode/a.h', '#include <mpg123.h>'), ('paint/text/a.h', '#include <QPainter>'),
                           ('widgets/items/a.h', '#include <QWidget>'), ('platform/pulse/a.h', '#include <pulse/stream.h>'),
                           ('platform/realtime/a.h', 'auto t = std::chrono::steady_clock::now();'),
                           ('base/whole_file.cpp', '#include <fcntl.h>'), ('app/a.h', '#include <QWidget>'),
                           ('engine/render/a.h', '#include "engine/pitch/pitch_stage.h"'),
                           ('app/a.h', '#include "engine/engine.h"'), ('app/a.h', '#include "widgets/window/panel_window.h"'),
                           ('shell/a.h', '#include "shell/painel.h"')):
            self.assertIsNone(include_order.line_offence(path, line), (path, line))

    def test_refused(self):
        for path, line in (('base/a.h', '#include "controls/kinds/slider.h"'), ('controls/a.h', '#include "audio/mm_pitch.h"'),
                           ('engine/render/a.h', '#include "playback/transport.h"'), ('shell/a.h', '#include "app/main.h"'),
                           ('engine/decode/a.h', '#include "engine/read/resampler.h"'),
                           ('engine/render/a.h', '#include "engine/engine.h"'),
                           ('platform/pulse/a.h', '#include "engine/render/chain.h"'),
                           ('platform/pulse/a.h', '#include "platform/alsa/alsa_pcm.h"'),
                           ('app/a.h', '#include "engine/render/chain.h"'),
                           ('paint/text/a.h', '#include "paint/controls/key.h"'),
                           ('widgets/items/a.h', '#include "widgets/window/panel_window.h"'),
                           ('playback/a.h', '#include <thread>'), ('playlist/a.h', '#include <chrono>'),
                           ('shaping/a.h', '#include <filesystem>'), ('controls/a.h', '#include <QString>'),
                           ('paint/text/a.h', '#include <QWidget>'), ('base/text.cpp', '#include <fcntl.h>'),
                           ('engine/decode/a.h', '#include <pulse/stream.h>'), ('engine/read/a.h', '#include <fstream>'),
                           ('platform/pulse/a.h', '#include <mpg123.h>'), ('base/a.h', '#include <utf8proc.h>'), ('widgets/a.h', '#include <fribidi.h>'),
                           ('engine/core/a.h', '#include "frames.h"'), ('base/a.h', '#include <boost/any.hpp>'),
                           ('engine/core/a.h', 'auto t = std::chrono::steady_clock::now();'),
                           ('base/a.h', '  #  include <mutex>'), ('settings/a.h', '#include <fstream>')):
            self.assertIsNotNone(include_order.line_offence(path, line), (path, line))

    def test_walks_the_folders(self):
        with tempfile.TemporaryDirectory() as root:
            os.makedirs(os.path.join(root, 'src', 'base', 'deep'))
            with open(os.path.join(root, 'src', 'base', 'deep', 'bad.cpp'), 'w', encoding='utf-8') as file:
                file.write('#include <vector>\n#include <thread>\n')
            subprocess.run(['git', 'init', '-q', root], check=True)
            found = list(include_order.offences(root))
            self.assertEqual(len(found), 1)
            self.assertIn('bad.cpp:1: lies in no room', found[0])

    def test_no_room_is_above_what_it_includes(self):
        seen = set()
        for room, below in include_order.ROOMS.items():
            for target in below:
                self.assertTrue(target in seen or any(name.startswith(target + '/') for name in seen), (room, target))
            seen.add(room)

    def test_a_circle_of_files_is_found(self):
        self.assertEqual(include_order.circle({'a': ['b'], 'b': ['c'], 'c': ['b']}), ['b', 'c'])
        self.assertIsNone(include_order.circle({'a': ['b', 'c'], 'b': ['c'], 'c': []}))

    def test_two_classes_that_know_each_other_are_found(self):
        with tempfile.TemporaryDirectory() as root:
            os.makedirs(os.path.join(root, 'src', 'base'))
            for name, text in (('a.h', ''), ('a.cpp', '#include "base/a.h"\n#include "base/b.h"\n'),
                               ('b.h', '#include "base/a.h"\n')):
                with open(os.path.join(root, 'src', 'base', name), 'w', encoding='utf-8') as file:
                    file.write(text)
            subprocess.run(['git', 'init', '-q', root], check=True)
            self.assertIn('base/a -> base/b', include_order.circle_offence(root))

    def test_the_table_allows_nothing_that_no_file_uses(self):
        self.assertEqual(include_order.unused_rights(ROOT), [])


class HouseRules(unittest.TestCase):
    def wrong(self, name, text):
        return [number for number, _ in house_rules.text_offences(name, text)]

    def test_good_text(self):
        self.assertEqual(self.wrong('a.cpp', 'int a;\n'), [])
        for line in ('// specify a special spectrum, respect it', '{"Sp' + 'ec", "V.U.", "Scope"}', 'a shared folder'):
            self.assertIsNone(house_rules.line_offence(line), line)

    def test_bad_text(self):
        self.assertEqual(self.wrong('a.cpp', 'int a;'), [1])
        self.assertEqual(self.wrong('a.cpp', 'int a;\n\n'), [3])
        self.assertEqual(self.wrong('a.cpp', 'a\n' * 301), [301])
        self.assertEqual(self.wrong('a.md', 'a\n' * 301), [])
        for line in ('a\r', 'a\tb', 'a ', '// as the sp' + 'ec says', '// see Part' + ' 3.1', 'the Sp' + 'ecification',
                     '../' + 'shared', 'shared' + '/design'):
            self.assertIsNotNone(house_rules.line_offence(line), line)

    def test_plain_english(self):
        for name, line in (('a.cpp', 'int h = 0;  // the ha' + 'nd moves it'), ('a.md', 'No' + 'body is near.'),
                           ('a.py', '# drawn an' + 'ew'), ('a.cpp', 'f();  // is han' + 'ded over'), ('CMakeLists.txt', '# as it is to' + 'ld'),
                           ('a.cpp', 'TEST_F(Window, FollowsTheHa' + 'nd) {'), ('a.c', 'f();  // as to' + 'ld'),
                           ('a.h', 'int number_to' + 'ld_ = 0;'), ('a.cpp', 'int times_wis' + 'hed() {')):
            self.assertIsNotNone(house_rules.word_offence(name, line), line)
        for name, line in (('a.cpp', 'int ha' + 'nd = 0;'), ('a.cpp', 'f();  // handles, beforehand'),
                           ('a.cpp', 'TEST(Queue, HandlesTheLast) {'),
                           ('a.cpp', 'handler_ = old_handle;'),
                           ('a.svg', '<!-- be' + 'hind -->')):
            self.assertIsNone(house_rules.word_offence(name, line), line)

    def test_names_that_are_compiled_together(self):
        one = 'namespace {\nconstexpr int kRows = 7;\nusing Sound = int;\nclass Rig {\n};\n}  // namespace\nconst int kFree = 1;\n'
        other = 'namespace {\nconst QSize kRows(1, 2);\nusing Sound = int;\nvoid f() {\n  constexpr int kIn = 1;\n}\n}  // namespace\n'
        self.assertEqual(list(house_rules.private_names(one)), [(2, 'kRows'), (4, 'Rig')])
        self.assertEqual(list(house_rules.private_names(other)), [(2, 'kRows')])
        self.assertEqual(len(list(house_rules.repeated_names([('src/a/b/x.cpp', one), ('src/a/c/y.cpp', other)]))), 1)
        self.assertEqual(len(list(house_rules.repeated_names([('tests/a/x.cpp', one), ('tests/a/y.cpp', other)]))), 1)
        self.assertEqual(list(house_rules.repeated_names([('src/a/x.cpp', one), ('src/b/y.cpp', other)])), [])

    def test_stray_files(self):
        self.assertEqual(house_rules.stray_files(['README.md', 'bus.log', 'src/app/main.cpp']), ['bus.log'])


class DocumentPaths(unittest.TestCase):
    TREE = document_paths.Tree(['src/engine/decode/mp3_index.h', 'tests/live/live_test.cpp', 'tools/reliability', 'check'],
                               {'Mp3Index', 'live_test'})

    def missing(self, text):
        return [name for _, name, kind in document_paths.names_in(text) if not self.TREE.holds(name, kind)]

    def test_names_that_are_there(self):
        self.assertEqual(self.missing('`engine/decode` and `src/engine/decode/mp3_index.h`, `mp3_index.h` of `Mp3Index`'), [])
        self.assertEqual(self.missing('    build/release/tests/live/live_test --x\n`tools/reliability`'), [])
        self.assertEqual(self.missing('`engine/decode/mp3_*`, `/usr/lib/x/y`, `~/.config/pulse/cookie`, `audio/mpeg`'), [])
        self.assertEqual(self.missing('An Mp3Tags outside of code is a word like any other'), [])

    def test_names_that_are_not(self):
        for name in ('engine/decoder', 'tools/reliable', 'mp3_table.h', 'Mp3Table', 'tests/live/other_test'):
            self.assertEqual(self.missing(f'`{name}`'), [name])
            self.assertEqual(self.missing(f'    {name}'), [name])


class CountTests(unittest.TestCase):
    def count(self, ctest, programs):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in {'ctest.xml': ctest, **programs}.items():
                with open(os.path.join(folder, name), 'w', encoding='utf-8') as file:
                    file.write(text)
            return count_tests.count(os.path.join(folder, 'ctest.xml'), folder)

    def test_cases_of_a_program_and_a_script(self):
        ctest = ('<testsuite><testcase name="a_test" status="fail"/><testcase name="script" status="run"/></testsuite>')
        program = ('<testsuites><testsuite><testcase name="x" status="run"/><testcase name="y" status="run">'
                   '<failure message="no"/></testcase><testcase name="z" status="notrun"/>'
                   '<testcase name="s" status="run" result="skipped"/></testsuite></testsuites>')
        self.assertEqual(self.count(ctest, {'a_test.xml': program}), (2, 1))

    def test_program_that_died(self):
        self.assertEqual(self.count('<testsuite><testcase name="a_test" status="fail"/></testsuite>', {}), (0, 1))

    def test_program_that_fails_after_its_cases(self):
        ctest = '<testsuite><testcase name="a_test" status="fail"/></testsuite>'
        program = '<testsuites><testsuite><testcase name="x" status="run"/></testsuite></testsuites>'
        self.assertEqual(self.count(ctest, {'a_test.xml': program}), (1, 1))


if __name__ == '__main__':
    unittest.main()
