#!/usr/bin/env python3
"""Shows that the checks find what they are there to find, and nothing else."""
import os
import tempfile
import unittest

import count_tests
import house_rules
import include_order


class IncludeOrder(unittest.TestCase):
    def test_allowed(self):
        for path, line in (('base', '#include <vector>'), ('playback', '#include "playlist/song_table.h"'),
                           ('engine', '#include <mpg123.h>'), ('paint', '#include <QPainter>'),
                           ('widgets', '#include <QWidget>'), ('platform', '#include <pulse/stream.h>'),
                           ('platform', 'auto t = std::chrono::steady_clock::now();'),
                           ('base/whole_file.cpp', '#include <fcntl.h>'), ('app', '#include <utf8proc.h>'),
                           ('shell', '#include "shell/painel.h"')):
            self.assertIsNone(include_order.line_offence(path, line), (path, line))

    def test_refused(self):
        for path, line in (('base', '#include "controls/slider.h"'), ('controls', '#include "audio/mm_pitch.h"'),
                           ('engine', '#include "playback/transport.h"'), ('shell', '#include "app/main.h"'),
                           ('playback', '#include <thread>'), ('playlist', '#include <chrono>'),
                           ('shaping', '#include <filesystem>'), ('controls', '#include <QString>'),
                           ('paint', '#include <QWidget>'), ('base/text.cpp', '#include <fcntl.h>'),
                           ('engine', '#include <pulse/stream.h>'),
                           ('platform', '#include <mpg123.h>'), ('base', '#include <utf8proc.h>'),
                           ('engine', '#include "frames.h"'), ('base', '#include <boost/any.hpp>'),
                           ('engine', 'auto t = std::chrono::steady_clock::now();'), ('base', '  #  include <mutex>'),
                           ('settings', '#include <fstream>')):
            self.assertIsNotNone(include_order.line_offence(path, line), (path, line))

    def test_walks_the_folders(self):
        with tempfile.TemporaryDirectory() as root:
            os.makedirs(os.path.join(root, 'src', 'base', 'deep'))
            with open(os.path.join(root, 'src', 'base', 'deep', 'bad.cpp'), 'w', encoding='utf-8') as file:
                file.write('#include <vector>\n#include <thread>\n')
            found = list(include_order.offences(root))
            self.assertEqual(len(found), 1)
            self.assertIn('bad.cpp:2:', found[0])


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
