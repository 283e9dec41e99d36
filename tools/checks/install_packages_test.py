#!/usr/bin/env python3
"""install_packages takes what is installed for either of two names, and else the first name that the system knows."""
import os
import shutil
import subprocess
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'setup', 'install_packages')
PROGRAMS = {
    'dpkg-query': 'case " $INSTALLED " in *" ${@: -1} "*) echo installed ;; *) exit 1 ;; esac',
    'apt-cache': 'case " $KNOWN " in *" $2 "*) echo "  Candidate: 1.0-1" ;; *) echo "  Candidate: (none)" ;; esac',
    'apt-get': 'echo "apt-get $*"',
    'id': 'echo 0',
}


class InstallPackages(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.script = shutil.copy(SCRIPT, self.folder.name)
        programs = os.path.join(self.folder.name, 'bin')
        os.mkdir(programs)
        for name, text in PROGRAMS.items():
            path = os.path.join(programs, name)
            with open(path, 'w', encoding='utf-8') as file:
                file.write(f'#!/bin/bash\n{text}\n')
            os.chmod(path, 0o755)
        self.path = programs + ':' + os.environ['PATH']

    def output(self, packages, installed='', known=''):
        with open(os.path.join(self.folder.name, 'some.packages'), 'w', encoding='utf-8') as file:
            file.write(packages)
        environment = {**os.environ, 'PATH': self.path, 'INSTALLED': installed, 'KNOWN': known}
        done = subprocess.run([self.script, 'some'], env=environment, capture_output=True, text=True, check=True)
        return [line for line in done.stdout.splitlines() if 'install ' in line]

    def test_nothing_is_installed_where_all_is_there(self):
        self.assertEqual(self.output('one\n# a remark\ntwo|three\n', installed='one three'), [])

    def test_the_first_known_of_two_is_installed(self):
        for known, wanted in (('old new', 'old'), ('new', 'new'), ('', 'old')):
            self.assertTrue(self.output('one\nold|new\n', installed='one', known=known)[0].endswith(f' {wanted}'), known)


if __name__ == '__main__':
    unittest.main()
