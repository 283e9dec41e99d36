#!/usr/bin/env python3
"""hardening_check.py PROGRAM [NAME]: fails if the program was built without the usual hardening, as readelf shows it.

Looked for: position independent, no executable stack, no segment both writable and executable, relocations read-only
and bound at start, stack protector, checked library calls. Exit status 0, or 1 with one line for each that is missing. One
whose text holds NAME may be missing.
"""
import os
import re
import subprocess
import sys


def readelf(option, program):
    environment = dict(os.environ, LC_ALL='C')
    return subprocess.run(['readelf', '-W', option, program], check=True, stdout=subprocess.PIPE, text=True,
                          env=environment).stdout


def flags_of(segments, name):
    """The flags (R, W, E) of the segments of that type."""
    return [match[1].replace(' ', '') for match in
            re.finditer(rf'^\s*{name}(?:\s+0x[0-9a-f]+){{5}}\s+([RWE ]+?)\s+0x', segments, re.MULTILINE)]


def missing(program):
    header, segments = readelf('-h', program), readelf('-l', program)
    dynamic, symbols = readelf('-d', program), readelf('--dyn-syms', program)
    stack = flags_of(segments, 'GNU_STACK')
    checks = {
        'position independent (PIE)': re.search(r'Type:\s+DYN', header) and re.search(r'FLAGS_1.*\bPIE\b', dynamic),
        'a stack that is not executable': stack and not any('E' in flags for flags in stack),
        'no segment writable and executable': not any('W' in flags and 'E' in flags
                                                      for flags in flags_of(segments, 'LOAD')),
        'read-only relocations (RELRO)': flags_of(segments, 'GNU_RELRO'),
        'all symbols bound at start (BIND_NOW)': re.search(r'BIND_NOW|FLAGS_1.*\bNOW\b', dynamic),
        'stack protector': '__stack_chk_fail' in symbols,
        'checked library calls (FORTIFY)': re.search(r'\b__\w+_chk@', symbols),
    }
    return [name for name, found in checks.items() if not found]


def main():
    if len(sys.argv) not in (2, 3):
        print(__doc__)
        return 1
    excused = sys.argv[2:]
    found = [name for name in missing(sys.argv[1]) if not any(word in name for word in excused)]
    for name in found:
        print(f'{sys.argv[1]}: without {name}')
    if not found:
        print('hardening: all there')
    return 1 if found else 0


if __name__ == '__main__':
    sys.exit(main())
