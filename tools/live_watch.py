"""A private display and sound server for a program, and what the three of them cost while it plays.

Everything is started as a child of this process and ended by its process number.
"""
import os
import shutil
import signal
import subprocess
import tempfile
import threading
import time
from types import SimpleNamespace

SETTLE = 6  # seconds after the start until the queue of the output is deep and the window at rest


def wait_for(condition, seconds=20):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            raise RuntimeError('waited in vain')
        time.sleep(0.002)


def lines_of(path):
    with open(path, encoding='ascii', errors='replace') as file:
        return file.read()


def processor_seconds(process):
    """Of all its threads, to the nanosecond."""
    tasks = f'/proc/{process.pid}/task'
    return sum(int(lines_of(f'{tasks}/{task}/schedstat').split()[0]) for task in os.listdir(tasks)) / 1e9


def status_number(path, key):
    for line in lines_of(path).splitlines():
        if line.startswith(key + ':'):
            return int(line.split()[1])
    return 0


def wake_ups(process):
    tasks = f'/proc/{process.pid}/task'
    return sum(status_number(f'{tasks}/{task}/status', 'voluntary_ctxt_switches') for task in os.listdir(tasks))


class SoundWatch(threading.Thread):
    """Notes when the first sound comes out of the recorder, which is some 20 ms late itself."""

    def __init__(self, recorder):
        super().__init__(daemon=True)
        self.seen = 0.0
        self.begun = False
        self.recorder = recorder
        self.start()

    def run(self):
        while not self.seen:
            block = os.read(self.recorder.stdout.fileno(), 65536)
            if not block:
                return
            self.begun = True
            if any(block):
                self.seen = time.monotonic()


class Desk:
    """with Desk() as desk: desk.watch([program, words...], seconds)"""

    def __init__(self, screen='1152x864x24'):
        self.size = screen

    def __enter__(self):
        self.work = tempfile.mkdtemp(prefix='tandem-desk-')
        self.children = []
        self.environment = {key: value for key, value in os.environ.items()
                            if key not in ('WAYLAND_DISPLAY', 'XAUTHORITY', 'DBUS_SESSION_BUS_ADDRESS')}
        for key in ('HOME', 'XDG_CONFIG_HOME', 'XDG_CACHE_HOME', 'XDG_DATA_HOME', 'XDG_RUNTIME_DIR',
                    'PULSE_RUNTIME_PATH', 'PULSE_STATE_PATH'):
            self.environment[key] = self.work
        self.environment.update(PULSE_SERVER=f'unix:{self.work}/sound', QT_QPA_PLATFORM='xcb', QT_SCALE_FACTOR='1')
        try:
            self.start_display()
            self.start_sound()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for child in reversed(self.children):
            self.end(child)
        shutil.rmtree(self.work, ignore_errors=True)

    def child(self, *command, environment=None, **more):
        process = subprocess.Popen(command, env={**self.environment, **(environment or {})},
                                   stderr=subprocess.DEVNULL, **more)
        self.children.append(process)
        return process

    def end(self, process):
        process.send_signal(signal.SIGTERM)
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

    # Two servers that start at once may choose the same number: one of them ends, and tries again here.
    def start_display(self):
        for _ in range(10):
            reading, writing = os.pipe()
            self.screen = self.child('Xvfb', '-displayfd', str(writing), '-screen', '0', self.size, '-noreset',
                                     '-nolisten', 'tcp', pass_fds=(writing,))
            os.close(writing)
            # It writes its number and the end of the line apart, and ends if they are not both read.
            with os.fdopen(reading, encoding='ascii') as number:
                self.environment['DISPLAY'] = ':' + number.readline().strip()
            time.sleep(0.3)
            if self.screen.poll() is None and self.asks('xdotool', 'getdisplaygeometry'):
                return
        raise RuntimeError('no display can be started')

    def asks(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              check=False).returncode == 0

    # The sink without rewinds takes sound in small steps, as a sound card does.
    def start_sound(self):
        self.sound = self.child('pulseaudio', '-n', '--daemonize=no', '--use-pid-file=no', '--exit-idle-time=-1',
                                '-L', f'module-native-protocol-unix socket={self.work}/sound auth-anonymous=1',
                                '-L', 'module-null-sink sink_name=desk rate=44100 norewinds=1')
        wait_for(lambda: self.asks('pactl', 'info'))

    def has_window(self, player):
        return self.asks('xdotool', 'search', '--all', '--onlyvisible', '--pid', str(player.pid), '--name', '')

    def point_at(self, player):
        """The pointer lies on the program's window, as soon as there is one."""
        wait_for(lambda: self.has_window(player))
        found = subprocess.run(['xdotool', 'search', '--onlyvisible', '--pid', str(player.pid)], env=self.environment,
                               capture_output=True, text=True, check=True).stdout.split()
        self.asks('xdotool', 'mousemove', '--window', found[-1], '300', '200')

    def watch(self, command, seconds, pointed=False, environment=None):
        """Plays until the program has settled and been watched for so many seconds; figures as attributes.

        pointed: with the pointer on its window, else far from it. environment: more variables for the program.
        """
        self.asks('xdotool', 'mousemove', '1900', '1060')
        recorder = self.child('parec', '-d', 'desk.monitor', '--raw', '--rate=44100', '--latency-msec=20',
                              stdout=subprocess.PIPE)
        heard = SoundWatch(recorder)
        wait_for(lambda: heard.begun)
        began = time.monotonic()
        player = self.child(*command, environment=environment)
        mapped = began
        if '--hidden' not in command:
            wait_for(lambda: self.has_window(player))
            mapped = time.monotonic()
        wait_for(lambda: heard.seen)
        self.end(recorder)
        if pointed:
            self.point_at(player)
        time.sleep(SETTLE)
        figures = self.costs(player, seconds)
        figures.mapped = (mapped - began) * 1000
        figures.heard = (heard.seen - began) * 1000
        self.end(player)
        return figures

    def costs(self, player, seconds):
        processes = (player, self.sound, self.screen)
        before = [processor_seconds(process) for process in processes]
        woken, began = wake_ups(player), time.monotonic()
        time.sleep(seconds)
        span = time.monotonic() - began
        shares = [100 * (processor_seconds(process) - spent) / span for process, spent in zip(processes, before)]
        return SimpleNamespace(player=shares[0], sound=shares[1], screen=shares[2],
                               wakes=(wake_ups(player) - woken) / span,
                               threads=len(os.listdir(f'/proc/{player.pid}/task')),
                               memory=status_number(f'/proc/{player.pid}/status', 'VmRSS') / 1024)
