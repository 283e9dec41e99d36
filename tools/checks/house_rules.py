#!/usr/bin/env python3
"""house_rules.py [ROOT]: fails on files that are too long, on stray blanks and line ends, and on unwanted words.

No code file has more than 300 lines. Text files end with one line end, hold no CR, no tab and no blank at a line's end.
Names in anonymous namespaces are unique among files that are compiled as one: a folder of src or of tests. Nothing
refers to papers outside this repository: what matters is said where it matters. Comments and documents are in plain English:
words to avoid stay out, of names too. Exit status 0, or 1 with one line for each offence.
"""
import os
import re
import subprocess
import sys

import tree_check

CODE_LIMIT = 300
CODE = ('.h', '.cpp', '.c', '.py', '.bash')
COMMENT = {'.h': '//', '.cpp': '//', '.c': '//', '.py': '#', '.bash': '#', '.cmake': '#', '.txt': '#', '': '#'}
TEXT = CODE + ('.md', '.txt', '.cmake', '.json', '.packages', '.desktop', '.svg', '.in', '.xml')
# All that lies in the repository's own folder: a stray log or picture is noticed.
ROOT_FILES = {'.clang-format', '.clang-tidy', '.editorconfig', '.gitattributes', '.gitignore', 'CHANGELOG.md', 'CMakeLists.txt',
              'CMakePresets.json', 'CONTRIBUTING.md', 'LICENSE', 'README.md', 'check', 'run'}
# Data of the tests is compared byte by byte and may hold anything.
EXEMPT = ('tests/data/', 'fuzz/seeds/', 'fuzz/regressions/')
# In two halves, so that this file does not find itself. "Spec" is also the caption of the spectrum's switch position.
PAPERS = re.compile(r'\b[sS]p' r'ec(ification)?s?\b|\bPart' r' [0-9](\.[0-9])?|\.\./' r'shared|\bshared' r'/(sp' r'ec|design)')
CAPTION = re.compile(r'"Sp' r'ec"|\bSp' r'ec(?=, V\.U\.)|\bSp' r'ec(?=[,/|] ?VU)')
# Say the user, reported, again, no one, after or before, on purpose, Qt.
UNCLEAR = r'(hand(s|ed|ing)?|told|tell(s|ing)?|anew|nobody|whoever|wilful(ly)?|behind|toolkit|wish(es|ed)?)'
WORDS = re.compile(rf'\b{UNCLEAR}\b', re.IGNORECASE)
NAME = re.compile(rf'\b\w*_{UNCLEAR}_?\b')  # a function or a variable in snake_case
TEST_NAME = re.compile(r'TEST(?:_[FP])?\((\w+, \w+)\)')  # words that begin with a capital letter

# Begins the definition of a constant or a type at the left margin; an alias may stand twice.
DEFINITION = re.compile(r'(?:constexpr|const)\b[^;(]*?\b(k[A-Z]\w*)(?=[\[{=( ;])|(?:class|struct|enum class) (\w+)')


def private_names(text):
    """The constants and types that a source file defines in its anonymous namespace, each with its line."""
    private = False
    for number, line in enumerate(text.split('\n'), 1):
        if line.startswith('namespace {'):
            private = True
        elif line.startswith('}  // namespace'):
            private = False
        elif private:
            found = DEFINITION.match(line)
            if found:
                yield number, found[1] or found[2]


def word_offence(name, line):
    """The first unwanted word in a line of a document, in a comment or a name in a line of code, or None."""
    ending = os.path.splitext(name)[1]
    named = NAME.search(line) if COMMENT.get(ending) == '//' else None
    if named:
        return f'"{named[0]}": name it in plain English'
    test = TEST_NAME.match(line)
    if test:
        line = re.sub('(?=[A-Z])', ' ', test[1])
    elif ending != '.md':
        mark = COMMENT.get(ending)
        if mark is None or mark not in line:
            return None
        line = line[line.index(mark):]
    found = WORDS.search(line)
    return f'"{found[0]}": say it in plain English' if found else None


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
        wrong = line_offence(line) or word_offence(name, line)
        if wrong:
            yield number, wrong


def is_text(relative):
    name = os.path.basename(relative)
    return (name.endswith(TEXT) or '.' not in name.lstrip('.')) and not relative.startswith(EXEMPT)


def files(root):
    """What git knows or would add, so that no new file escapes."""
    listed = subprocess.run(['git', '-C', root, 'ls-files', '-z', '--cached', '--others', '--exclude-standard'],
                            check=True, capture_output=True, text=True).stdout
    return sorted(name for name in set(listed.split('\0')) if os.path.isfile(os.path.join(root, name)))


def stray_files(names):
    return [name for name in names if '/' not in name and name not in ROOT_FILES]


def compiled_with(name):
    """The folder of src or tests, with all its rooms, whose files may be compiled as one with that file."""
    return '/'.join(name.split('/')[:2])


def repeated_names(texts):
    """Offences of source files, given as pairs of name and text."""
    first = {}
    for name, text in texts:
        for number, word in private_names(text):
            other = first.setdefault((compiled_with(name), word), name)
            if other != name:
                yield f'{name}:{number}: {other} has a {word} of its own, and both are compiled as one'


def offences(root):
    for stray in stray_files(files(root)):
        yield f'{stray}:1: does not belong into the top folder'
    sources = []
    for relative in filter(is_text, files(root)):
        with open(os.path.join(root, relative), 'rb') as file:
            text = file.read().decode('utf-8')
        if relative.endswith('.cpp') and relative.startswith(('src/', 'tests/')):
            sources.append((relative, text))
        for number, wrong in text_offences(relative, text):
            yield f'{relative}:{number}: {wrong}'
    yield from repeated_names(sources)


if __name__ == '__main__':
    sys.exit(tree_check.run(offences, 'house rules: kept'))
