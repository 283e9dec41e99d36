#!/usr/bin/env python3
"""Shows that hardening_check distinguishes a hardened program from one without, flag by flag."""
import os
import subprocess
import tempfile
import unittest

import hardening_check

SOURCE = '#include <stdio.h>\nint main(int n, char** v) { char t[9]; snprintf(t, n * 3, "%s", v[0]); return puts(t); }\n'
HARD = ['-O2', '-fPIE', '-pie', '-fstack-protector-all', '-U_FORTIFY_SOURCE', '-D_FORTIFY_SOURCE=2',
        '-Wl,-z,relro,-z,now,-z,noexecstack']


class Hardening(unittest.TestCase):
    def missing(self, *flags):
        with tempfile.TemporaryDirectory() as folder:
            source, program = os.path.join(folder, 'a.c'), os.path.join(folder, 'a')
            with open(source, 'w', encoding='utf-8') as file:
                file.write(SOURCE)
            subprocess.run(['cc', '-w', *HARD, *flags, source, '-o', program], check=True)
            return hardening_check.missing(program)

    def test_all_there(self):
        self.assertEqual(self.missing(), [])

    def test_each_is_missed(self):
        for flags, name in ((['-fno-pie', '-no-pie'], 'PIE'), (['-Wl,-z,execstack'], 'stack that is not executable'),
                            (['-Wl,-z,norelro'], 'RELRO'), (['-Wl,-z,lazy'], 'BIND_NOW'),
                            (['-fno-stack-protector'], 'stack protector'), (['-U_FORTIFY_SOURCE'], 'FORTIFY')):
            found = self.missing(*flags)
            self.assertEqual([name in one for one in found], [True], (flags, found))


if __name__ == '__main__':
    unittest.main()
