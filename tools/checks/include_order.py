#!/usr/bin/env python3
"""include_order.py [ROOT]: fails on any #include under ROOT/src that the table of the house does not allow.

A folder may include itself, the folders below it and its groups of system headers; app may include everything and is
included by nobody. Only platform/ reads a clock. Exit status 0, or 1 with one line for each offence.
"""
import os
import re
import sys

FOLDERS = {
    'base': (),
    'controls': ('base',),
    'audio': ('base',),
    'playlist': ('controls', 'audio', 'base'),
    'shaping': ('controls', 'audio', 'base'),
    'playback': ('playlist', 'controls', 'audio', 'base'),
    'settings': ('controls', 'base'),
    'shell': ('settings', 'shaping', 'playback', 'playlist', 'controls', 'audio', 'base'),
    'engine': ('audio', 'base'),
    'displays': ('audio', 'base'),
    'paint': ('displays', 'controls', 'base'),
    'widgets': ('paint', 'displays', 'controls', 'base'),
    'platform': ('engine', 'audio', 'controls', 'base'),
    'app': ('base', 'controls', 'audio', 'playlist', 'shaping', 'playback', 'settings', 'shell', 'engine', 'displays',
            'paint', 'widgets', 'platform'),
}

# The first pattern that matches names the header's group; what none matches is a plain standard header if it is listed.
GROUPS = (
    ('threads', r'(atomic|barrier|condition_variable|future|latch|mutex|semaphore|shared_mutex|stop_token|thread|pthread\.h)'),
    ('clocks', r'(chrono|ctime|time\.h|sys/time\.h)'),
    ('files', r'(filesystem|fstream)'),
    ('system', r'(fcntl|poll|sched|signal|spawn|unistd|dirent|sys/[a-z]+)\.h|csignal'),
    ('lanes', r'([a-z]?mmintrin|x86intrin)\.h'),
    ('qt', r'(Qt[A-Z]\w*/)?(Q[A-Z]\w*|Qt[A-Z]\w*|q[a-z]+\.h)'),
    ('server', r'(pulse|alsa|systemd|xcb)/.+\.h'),
    ('decoders', r'(mpg123\.h|sndfile\.hh?|soxr\.h|soundtouch/.+\.h|SoundTouch\.h)'),
    ('fft', r'(kissfft/)?kiss_fft[a-z]*\.h'),
    ('unicode', r'utf8proc\.h'),
)
STANDARD = set('''algorithm any array bit bitset cassert cctype cerrno cfenv cfloat charconv cinttypes climits clocale cmath
compare complex concepts coroutine cstdarg cstddef cstdint cstdio cstdlib cstring cuchar cwchar cwctype deque exception
execution forward_list functional initializer_list iomanip ios iosfwd iostream istream iterator limits list locale map
memory memory_resource new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator set
source_location span sstream stack stdexcept streambuf string string_view strstream syncstream system_error tuple
type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector version'''.split())
ALLOWED_GROUPS = {
    'engine': ('threads', 'clocks', 'files', 'system', 'lanes', 'decoders', 'fft'),
    'displays': ('lanes', 'fft'),
    'paint': ('qt', 'lanes'),
    'widgets': ('qt',),
    'platform': ('threads', 'clocks', 'files', 'system', 'qt', 'server', 'unicode'),
    'app': tuple(name for name, _ in GROUPS),
}
# The one place where the logic touches the disk: files written and read as a whole.
ALLOWED_IN_FILE = {f'base/{name}.cpp': ('files', 'system') for name in ('whole_file', 'temporary_file', 'descriptor')}
QT_MODULES = {'paint': ('QtCore', 'QtGui'), 'widgets': ('QtCore', 'QtGui', 'QtWidgets')}
QT_ROOTS = ('/usr/include/x86_64-linux-gnu/qt6', '/usr/include/aarch64-linux-gnu/qt6', '/usr/include/qt6')
READS_CLOCK = re.compile(r'_clock::now\b|\bclock_gettime\b|\bgettimeofday\b|\bstd::time\(|'
                         r'\bQElapsedTimer\b|\bQ(Date)?Time::current|\bpa_rtclock_now\b')
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:<([^>]+)>|"([^"]+)")')


def group_of(header):
    for name, pattern in GROUPS:
        if re.fullmatch(pattern, header):
            return name
    return 'standard' if header in STANDARD else None


def qt_module(header):
    """The Qt module that a header belongs to; a spelled-out module needs no look at the machine."""
    if '/' in header:
        return header.split('/')[0]
    for root in filter(os.path.isdir, QT_ROOTS):
        for module in sorted(os.listdir(root)):
            if os.path.exists(os.path.join(root, module, header)):
                return module
    return None


def system_offence(path, header):
    folder, group = path.split('/')[0], group_of(header)
    if group == 'standard':
        return None
    if group is None:
        return f'<{header}> belongs to no known group of headers'
    if group not in ALLOWED_GROUPS.get(folder, ()) + ALLOWED_IN_FILE.get(path, ()):
        return f'{folder}/ may not include <{header}> ({group})'
    if group == 'qt' and folder in QT_MODULES and qt_module(header) not in QT_MODULES[folder]:
        return f'{folder}/ may not include <{header}> of {qt_module(header)}'
    return None


def own_offence(folder, header):
    target = header.split('/')[0]
    if '/' not in header or target not in FOLDERS:
        return f'"{header}" is no path from src/'
    if target != folder and target not in FOLDERS[folder]:
        return f'{folder}/ may not include {target}/ ("{header}")'
    return None


def line_offence(path, line):
    """What is wrong with one line of the file of that path under src/, or None."""
    folder, found = path.split('/')[0], INCLUDE.match(line)
    if found:
        return system_offence(path, found[1]) if found[1] else own_offence(folder, found[2])
    if folder != 'platform' and READS_CLOCK.search(line):
        return 'only platform/ reads a clock'
    return None


def sources(src):
    for here, folders, files in os.walk(src):
        folders.sort()
        for name in sorted(files):
            if name.endswith(('.h', '.cpp')):
                yield os.path.join(here, name)


def offences(root):
    src = os.path.join(root, 'src')
    for path in sources(src):
        inside = os.path.relpath(path, src)
        if inside.split('/')[0] not in FOLDERS:
            yield f'{path}:1: lies in no folder of the house'
            continue
        with open(path, encoding='utf-8') as file:
            for number, line in enumerate(file, 1):
                wrong = line_offence(inside, line)
                if wrong:
                    yield f'{path}:{number}: {wrong}'


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..')
    found = list(offences(os.path.normpath(root)))
    print('\n'.join(found) if found else 'include order: every include is allowed')
    return 1 if found else 0


if __name__ == '__main__':
    sys.exit(main())
