#!/usr/bin/env python3
"""house_rules.py [ROOT]: fails on files that are too long, on stray blanks and line ends, and on unwanted words.

No code file has more than 300 lines. Text files end with one line end, hold no CR, no tab and no blank at a line's end.
Nothing refers to papers outside this repository: what matters is said where it matters. Exit status 0, or 1 with one
line for each offence.
"""
import os
import re
import sys

CODE_LIMIT = 300
CODE = ('.h', '.cpp', '.py', '.bash')
TEXT = CODE + ('.md', '.txt', '.cmake', '.json', '.packages', '.desktop', '.svg')
BARE_NAMES = ('run', 'check', 'install_packages', 'run_headless', 'make_songs', 'screen_picture', 'sound_report',
              'tandem', 'LICENSE', '.clang-format', '.clang-tidy', '.gitattributes')
TOPS = ('src', 'tests', 'tools', 'bench', 'fuzz', 'cmake', 'packaging', 'docs', '.ci')
# Data of the tests is compared byte by byte and may hold anything.
EXEMPT = ('tests/data/', 'fuzz/seeds/')
# In two halves, so that this file does not find itself. "Spec" is also the caption of the spectrum's switch position.
PAPERS = re.compile(r'\b[sS]p' r'ec(ification)?s?\b|\bPart' r' [0-9](\.[0-9])?|\.\./' r'shared|\bshared' r'/(sp' r'ec|design)')
CAPTION = re.compile(r'"Sp' r'ec"|\bSp' r'ec(?=, V\.U\.)|\bSp' r'ec(?=[,/|] ?VU)')


def line_offence(line):
    """What is wrong with one line (without its line end), or None."""
    if '\r' in line:
        return 'carriage return'
    if '\t' in line:
        return 'tab'
    if line != line.rstrip():
        return 'blank at the end of the line'
    found = PAPERS.search(CAPTION.sub('', line))
    return f'refers to a paper outside the repository: "{found[0]}"' if found else None


def text_offences(name, text):
    lines = text.split('\n')
    if lines[-1] != '' or text.endswith('\n\n'):
        yield len(lines), 'a file ends with exactly one line end'
    if name.endswith(CODE) and len(lines) - 1 > CODE_LIMIT:
        yield CODE_LIMIT + 1, f'{len(lines) - 1} lines, {CODE_LIMIT} are the limit'
    for number, line in enumerate(lines, 1):
        wrong = line_offence(line)
        if wrong:
            yield number, wrong


def is_text(relative):
    name = os.path.basename(relative)
    return (name.endswith(TEXT) or name in BARE_NAMES or relative == '.ci/run') and not relative.startswith(EXEMPT)


def files(root):
    for name in sorted(os.listdir(root)):
        if os.path.isfile(os.path.join(root, name)):
            yield name
    for top in TOPS:
        for here, folders, names in os.walk(os.path.join(root, top)):
            folders[:] = sorted(folder for folder in folders if folder != '__pycache__')
            for name in sorted(names):
                yield os.path.relpath(os.path.join(here, name), root)


def offences(root):
    for relative in filter(is_text, files(root)):
        with open(os.path.join(root, relative), 'rb') as file:
            text = file.read().decode('utf-8')
        for number, wrong in text_offences(relative, text):
            yield f'{relative}:{number}: {wrong}'


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..')
    found = list(offences(os.path.normpath(root)))
    print('\n'.join(found) if found else 'house rules: kept')
    return 1 if found else 0


if __name__ == '__main__':
    sys.exit(main())
