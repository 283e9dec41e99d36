#!/usr/bin/env python3
"""include_order.py [ROOT]: fails on any #include under ROOT/src that the table of the house does not allow.

A room may include itself, the rooms below it and its folder's groups of system headers; nothing includes app. No two files
include each other, a header and its source file counted as one. Only platform/ reads a clock. Exit status 0, or 1 with one line for each offence.
"""
import os
import re
import subprocess
import sys

import tree_check

# Each room and what it may include besides itself, as rooms or as whole folders (a folder stands for all its rooms).
# A room lies in the list below all rooms that it may include, so that no include can run up or in a circle.
ROOMS = {
    'base': (),
    'controls/kinds': ('base',),
    'controls': ('controls/kinds', 'base'),
    'audio': ('base',),
    'playlist': ('controls', 'audio', 'base'),
    'shaping': ('controls', 'audio', 'base'),
    'playback': ('playlist', 'controls', 'audio', 'base'),
    'settings': ('controls', 'base'),
    'shell': ('settings', 'shaping', 'playback', 'playlist', 'controls', 'audio', 'base'),
    'engine/core': (),
    'engine/device': ('engine/core',),
    'engine/decode': ('engine/core', 'base'),
    'engine/read': ('engine/decode', 'engine/core'),
    'engine/equalizer': ('engine/core',),
    'engine/pitch': ('engine/read', 'engine/core'),
    'engine/render': ('engine/pitch', 'engine/equalizer', 'engine/read', 'engine/device', 'engine/core'),
    'engine/components': ('engine/render', 'engine/pitch', 'engine/equalizer', 'engine/read', 'engine/device', 'audio',
                          'base'),
    'engine': ('engine/components', 'engine/render', 'engine/pitch', 'engine/read', 'engine/device', 'audio'),
    'displays/core': (),
    'displays/spectrum': ('displays/core', 'audio'),
    'displays/meters': ('displays/core', 'audio'),
    'displays/scope': ('displays/core', 'audio'),
    'displays': ('displays/spectrum', 'displays/meters', 'displays/scope', 'audio'),
    'layout': (),
    'paint/strokes': (),
    'paint/text': ('paint/strokes',),
    'paint/surfaces': ('paint/strokes',),
    'paint/controls': ('paint/text', 'paint/strokes', 'layout'),
    'paint/displays': ('paint/text', 'paint/surfaces', 'paint/strokes', 'displays'),
    'paint/panel': ('paint/controls', 'paint/text', 'paint/surfaces', 'paint/strokes', 'layout'),
    'widgets/items': ('paint', 'layout', 'controls'),
    'widgets/keys': ('widgets/items', 'paint', 'controls', 'base'),
    'widgets/values': ('widgets/items', 'paint', 'controls'),
    'widgets/display_area': ('widgets/items', 'paint', 'layout', 'displays', 'audio'),
    'widgets/accessibility': ('widgets/items',),
    'widgets/window': ('widgets/display_area', 'widgets/accessibility', 'widgets/values', 'widgets/keys',
                       'widgets/items', 'paint', 'layout', 'controls', 'base'),
    'platform/system': ('base',),
    'platform/realtime': ('engine/device',),
    'platform/output': ('platform/realtime', 'engine/device', 'engine/core', 'base'),
    'platform/pulse': ('platform/output', 'platform/realtime', 'engine/device', 'engine/core'),
    'platform/alsa': ('platform/output', 'engine/device', 'engine/core'),
    'platform': ('platform/pulse', 'platform/alsa', 'engine/device'),
    'platform/desktop': ('platform/realtime', 'controls', 'base'),
    'desktop': ('controls', 'shell', 'base', 'layout', 'paint/strokes', 'platform/desktop', 'platform/system'),
    'app': ('desktop', 'base', 'controls', 'shell', 'engine', 'engine/device', 'engine/core', 'displays', 'paint',
            'widgets', 'platform'),
}
# Includes that are still owed a cut.
OWED = set()
# A class and the one function of its constructor: the way back that is allowed.
ONE_WAY_BACK = {('shell/panel_wiring', 'shell/program')}
# Rooms that a whole folder's name does not open: the program's frame sees the engine through its front door alone.
FRONT_DOORS = {('app', 'engine')}

# The first pattern that matches names the header's group; what none matches is a plain standard header if it is listed.
GROUPS = (
    ('threads', r'(atomic|barrier|condition_variable|future|latch|mutex|semaphore|semaphore\.h|shared_mutex|stop_token|thread|pthread\.h)'),
    ('clocks', r'(chrono|ctime|time\.h|sys/time\.h)'),
    ('files', r'(filesystem|fstream)'),
    ('system', r'(fcntl|malloc|poll|sched|signal|spawn|unistd|dirent|sys/[a-z]+)\.h|csignal'),
    ('lanes', r'([a-z]?mmintrin|x86intrin)\.h'),
    ('qt', r'(Qt[A-Z]\w*/)?(Q[A-Z]\w*|Qt[A-Z]\w*|q[a-z]+\.h)'),
    ('server', r'(pulse|alsa|systemd|xcb)/.+\.h'),
    ('rates', r'soxr\.h'),
    ('decoders', r'(mpg123\.h|sndfile\.hh?|soundtouch/.+\.h|SoundTouch\.h)'),
    ('fft', r'(kissfft/)?kiss_fft[a-z]*\.h'),
    ('unicode', r'utf8proc\.h'),
    ('bidi', r'fribidi\.h'),
)
STANDARD = set('''algorithm any array bit bitset cassert cctype cerrno cfenv cfloat charconv cinttypes climits clocale cmath
compare complex concepts coroutine cstdarg cstddef cstdint cstdio cstdlib cstring cuchar cwchar cwctype deque exception
execution forward_list functional initializer_list iomanip ios iosfwd iostream istream iterator limits list locale map
memory memory_resource new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator set
source_location span sstream stack stdexcept streambuf string string_view strstream syncstream system_error tuple
type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector version'''.split())
ALLOWED_GROUPS = {
    'engine': ('threads', 'clocks', 'system', 'lanes', 'rates', 'decoders', 'fft'),
    'layout': ('qt',),
    'paint': ('qt', 'bidi'),
    'widgets': ('qt',),
    'platform': ('threads', 'clocks', 'files', 'system', 'qt', 'server', 'rates', 'unicode'),
    'desktop': ('qt', 'server', 'system'),
    'app': ('threads', 'clocks', 'files', 'system', 'qt'),
}
# The one place where the logic touches the disk: files written and read as a whole.
ALLOWED_IN_FILE = {f'base/{name}.cpp': ('files', 'system') for name in ('whole_file', 'temporary_file', 'descriptor')}
QT_MODULES = {'layout': ('QtCore',), 'paint': ('QtCore', 'QtGui'), 'widgets': ('QtCore', 'QtGui', 'QtWidgets')}
QT_ROOTS = ('/usr/include/x86_64-linux-gnu/qt6', '/usr/include/aarch64-linux-gnu/qt6', '/usr/include/qt6')
READS_CLOCK = re.compile(r'_clock::now\b|\bclock_gettime\b|\bgettimeofday\b|\bstd::time\(|'
                         r'\bQElapsedTimer\b|\bQ(Date)?Time::current|\bpa_rtclock_now\b')
# A deadline for the system, not a time that anything depends on.
MAY_READ_CLOCK = {'engine/core/semaphore.h'}
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


def allows(room, target):
    """Whether a file of that room may include one of the target room."""
    if target == room or target in ROOMS[room] or (room, target) in OWED:
        return True
    folder = target.split('/')[0]
    return folder in ROOMS[room] and (room, folder) not in FRONT_DOORS


def own_offence(room, header):
    target = os.path.dirname(header)
    if target not in ROOMS:
        return f'"{header}" is no path from src/ to a room of the house'
    return None if allows(room, target) else f'{room}/ may not include {target}/ ("{header}")'


def line_offence(path, line):
    """What is wrong with one line of the file of that path under src/, or None."""
    found = INCLUDE.match(line)
    if found:
        return system_offence(path, found[1]) if found[1] else own_offence(os.path.dirname(path), found[2])
    if path.split('/')[0] != 'platform' and path not in MAY_READ_CLOCK and READS_CLOCK.search(line):
        return 'only platform/ reads a clock'
    return None


def sources(root):
    """What git knows or would add, so that no new file escapes."""
    listed = subprocess.run(['git', '-C', root, 'ls-files', '-z', '--cached', '--others', '--exclude-standard', 'src'],
                            check=True, capture_output=True, text=True).stdout
    names = sorted(name for name in set(listed.split('\0')) if name.endswith(('.h', '.cpp')))
    return [path for path in (os.path.join(root, name) for name in names) if os.path.exists(path)]


def circle(includes):
    """A circle among files, given as {name: names that it includes}, as the list of its names; or None."""
    done, way = set(), []

    def visit(name):
        if name in way:
            return way[way.index(name):]
        if name in done:
            return None
        done.add(name)
        way.append(name)
        found = next(filter(None, map(visit, includes.get(name, ()))), None)
        way.pop()
        return found

    return next(filter(None, map(visit, sorted(includes))), None)


def includes(path, kind):
    with open(path, encoding='utf-8') as file:
        found = (INCLUDE.match(line) for line in file)
        return [match[kind] for match in found if match and match[kind]]


def system_includes(path):
    return includes(path, 1)


def own_includes(path):
    return includes(path, 2)


def unit_of(name):
    return os.path.splitext(name)[0]


def units(root):
    """What each header and its source file together include, as {unit: units}."""
    src = os.path.join(root, 'src')
    found = {}
    for path in sources(root):
        unit = unit_of(os.path.relpath(path, src))
        others = map(unit_of, own_includes(path))
        found.setdefault(unit, []).extend(other for other in others if other != unit and (unit, other) not in ONE_WAY_BACK)
    return found


def circle_offence(root):
    found = circle(units(root))
    return f'files include each other in a circle: {" -> ".join(found)}' if found else None


def unused_rights(root):
    """Rights of the tables that no file uses, as 'room -> room' or 'folder -> group of headers'."""
    src = os.path.join(root, 'src')
    used = {room: set() for room in ROOMS}
    groups = {folder: set() for folder in ALLOWED_GROUPS}
    for path in sources(root):
        room = os.path.dirname(os.path.relpath(path, src))
        used.get(room, set()).update(os.path.dirname(name) for name in own_includes(path))
        groups.get(room.split('/')[0], set()).update(map(group_of, system_includes(path)))
    rooms = [f'{room} -> {other}' for room, others in ROOMS.items() for other in others
             if not any(name == other or name.startswith(other + '/') for name in used[room])]
    return rooms + [f'{folder} -> {group}' for folder, allowed in ALLOWED_GROUPS.items()
                    for group in allowed if group not in groups[folder]]


def offences(root):
    src = os.path.join(root, 'src')
    round_about = circle_offence(root)
    if round_about:
        yield round_about
    for path in sources(root):
        inside = os.path.relpath(path, src)
        if os.path.dirname(inside) not in ROOMS:
            yield f'{path}:1: lies in no room of the house'
            continue
        with open(path, encoding='utf-8') as file:
            for number, line in enumerate(file, 1):
                wrong = line_offence(inside, line)
                if wrong:
                    yield f'{path}:{number}: {wrong}'


if __name__ == '__main__':
    sys.exit(tree_check.run(offences, 'include order: every include is allowed'))
