#!/usr/bin/env python3
"""document_paths.py [ROOT]: fails where a document names a file, folder or class that the repository does not hold.

Looks at what stands in backquotes and in indented or fenced blocks of README.md, CONTRIBUTING.md, CHANGELOG.md and
docs/*.md: paths below a folder of the repository or of src, file names with a known ending, and names in CamelCase.
Exit status 0, or 1 with one line for each name that is not there.
"""
import os
import re
import subprocess
import sys

import tree_check

DOCUMENTS = re.compile(r'(README|CONTRIBUTING|CHANGELOG)\.md|docs/[^/]+\.md')
QUOTED = re.compile(r'`([^`]+)`')
# A path with at least one slash; * stands for any part of a name.
PATH = re.compile(r'(?<![\w./~$<-])(?:build/\w+/)?([a-z][\w.*-]*(?:/[\w.*-]+)+)')
FILE = re.compile(r'(?<![\w./*-])(\w+\.(?:h|cpp|py|bash|md|cmake))\b')
CAMEL = re.compile(r'(?<![\w/.:-])([A-Z][a-z0-9]+(?:[A-Z][a-z0-9]*)+)\b(?!\.\w)')
CODE = ('.h', '.cpp', '.py', '.txt', '.cmake')
# What looks like ours and is not: MIME types, and a setting of logind.
ELSEWHERE = {'audio/mpeg', 'audio/x-wav', 'LidSwitchIgnoreInhibited'}


def names_in(text):
    """(line, name, kind) of every name in code within a document; kind is 'path', 'file' or 'class'."""
    fenced = False
    for number, line in enumerate(text.split('\n'), 1):
        if line.startswith('```'):
            fenced = not fenced
            continue
        code = [line] if fenced or line.startswith('    ') else QUOTED.findall(line)
        for part in code:
            for kind, pattern in (('path', PATH), ('file', FILE), ('class', CAMEL)):
                for name in pattern.findall(part):
                    yield number, name.rstrip('.'), kind


class Tree:
    """What the repository holds: files, folders and the words of its code."""

    def __init__(self, files, words):
        self.files = set(files)
        self.folders = {name[:i] for name in files for i in range(len(name)) if name[i] == '/'}
        self.bare = {os.path.basename(name) for name in files}
        self.words = words

    def holds_path(self, name):
        name = name.rstrip('/')
        roots = [root for root in ('', 'src/', 'tests/') if root + name.split('/')[0] in self.folders]
        if not roots:
            return True  # of another place
        pattern = re.escape(name).replace(r'\*', '[^/]*')
        ends = r'(\.(h|cpp))?'  # a module: its header and source
        found = re.compile('(' + '|'.join(roots) + ')' + pattern + ends)
        return any(found.fullmatch(one) for one in self.files | self.folders) or self.is_program(name)

    def is_program(self, name):
        """A program of the build lies in the folder of its source, and is named in its CMakeLists.txt (fuzz_song as song)."""
        folder, program = os.path.split(name)
        return folder in self.folders and program.removeprefix('fuzz_') in self.words

    def holds(self, name, kind):
        if name in ELSEWHERE:
            return True
        if kind == 'path':
            return self.holds_path(name)
        return name in self.bare if kind == 'file' else name in self.words


def tree_of(root):
    listed = subprocess.run(['git', '-C', root, 'ls-files', '-z', '--cached', '--others', '--exclude-standard'],
                            check=True, capture_output=True, text=True).stdout
    files = [name for name in listed.split('\0') if name and os.path.isfile(os.path.join(root, name))]
    words = set()
    for name in files:
        if name.endswith(CODE):
            with open(os.path.join(root, name), encoding='utf-8', errors='replace') as code:
                words.update(re.findall(r'\w+', code.read()))
    return Tree(files, words)


def offences(root):
    tree = tree_of(root)
    for document in sorted(name for name in tree.files if DOCUMENTS.fullmatch(name)):
        with open(os.path.join(root, document), encoding='utf-8') as text:
            for number, name, kind in names_in(text.read()):
                if not tree.holds(name, kind):
                    yield f'{document}:{number}: no {kind} "{name}"'


if __name__ == '__main__':
    sys.exit(tree_check.run(offences, 'document paths: every name is there'))
