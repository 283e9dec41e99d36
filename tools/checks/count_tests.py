#!/usr/bin/env python3
"""count_tests.py CTEST_JUNIT RESULTS: prints "PASSED FAILED" of one ctest run.

CTEST_JUNIT is what `ctest --output-junit` wrote, RESULTS the folder where each GoogleTest program left NAME.xml. A program
with such a file counts with each of its cases, anything else as one. A program that fails without a failed case (it
crashed, or a sanitizer stopped it at its end) counts as one failed besides.
"""
import os
import sys
import xml.etree.ElementTree as tree


def cases_of(path):
    """Passed and failed cases of one GoogleTest program; none if it left no (whole) file."""
    try:
        cases = [case for case in tree.parse(path).iter('testcase')
                 if case.get('status') == 'run' and case.get('result') != 'skipped']
    except (OSError, tree.ParseError):
        return 0, 0
    failed = sum(case.find('failure') is not None for case in cases)
    return len(cases) - failed, failed


def count(junit, results):
    passed = failed = 0
    for entry in tree.parse(junit).iter('testcase'):
        if entry.get('status') == 'disabled':
            continue
        good, bad = cases_of(os.path.join(results, entry.get('name') + '.xml'))
        if entry.get('status') != 'run':
            bad = max(bad, 1)
        elif not os.path.exists(os.path.join(results, entry.get('name') + '.xml')):
            good = 1
        passed += good
        failed += bad
    return passed, failed


if __name__ == '__main__':
    print(*count(sys.argv[1], sys.argv[2]))
