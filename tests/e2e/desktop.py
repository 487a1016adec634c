"""A virtual desktop: X server, session bus and window manager, with a private folder.

Needs Debian's Xvfb, dbus-daemon, openbox, xdotool, x11-utils and imagemagick; a missing one is an
error.
"""

import itertools
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from waiting import TIMEOUT, wait_until

TOOLS = ("Xvfb", "dbus-daemon", "openbox", "xdotool", "xprop", "import")
DISPLAY_ATTEMPTS = 50


def stop(process):
    """Terminates a child process, and kills it after TIMEOUT."""
    process.terminate()
    try:
        process.wait(TIMEOUT)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Desktop:
    """A context manager that ends its processes and removes its folder.

    It sets display and bus in this process's environment, from which the accessibility binding and
    xdotool read them.
    """

    def __init__(self):
        missing = [tool for tool in TOOLS if not shutil.which(tool)]
        if missing:
            raise FileNotFoundError(f"not installed: {', '.join(missing)}")
        self._folder = tempfile.TemporaryDirectory(prefix="frimbolate-desktop-")
        self.folder = Path(self._folder.name)
        self._processes = []

    def __enter__(self):
        try:
            self._isolate_environment()
            os.environ["DISPLAY"] = self._start_display()
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
            self.start("openbox", "--sm-disable")
            wait_until(self._has_window_manager, "the window manager")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self._processes):
            stop(process)
        self._folder.cleanup()

    def start(self, *command, **options):
        """Starts a process; the desktop ends it at the latest on exit."""
        with open(self.folder / "log.txt", "ab") as log:
            self._processes.append(subprocess.Popen(command, stdout=log, stderr=log, **options))
        return self._processes[-1]

    def log(self):
        """The output of the desktop's own processes so far."""
        return (self.folder / "log.txt").read_text(encoding="utf-8", errors="replace")

    @staticmethod
    def save_screenshot(path):
        subprocess.run(["import", "-silent", "-window", "root", str(path)], check=True)

    @staticmethod
    def park_pointer():
        """Moves the pointer to a corner, where it hovers over no control."""
        subprocess.run(["xdotool", "mousemove", "0", "999"], check=True)

    def _isolate_environment(self):
        for name in ("WAYLAND_DISPLAY", "LC_ALL", "LANGUAGE", "QT_SCALE_FACTOR"):
            os.environ.pop(name, None)
        os.environ.update(HOME=str(self.folder), LANG="C.UTF-8")
        for name in ("CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "RUNTIME_DIR"):
            folder = self.folder / name.lower()
            folder.mkdir(mode=0o700)
            os.environ[f"XDG_{name}"] = str(folder)

    def _start_display(self):
        """Starts the X server under an explicit number and returns the display's name.

        Servers that choose a free number themselves can collide when others start or end at the
        same time. The first number derives from the process id; if it is taken, the server fails
        and the next number is tried.
        """
        first = 100 + os.getpid() % 30000
        for number in itertools.islice(itertools.count(first), DISPLAY_ATTEMPTS):
            name = f":{number}"
            ready = self._start_and_read(
                lambda writing: ("Xvfb", name, "-displayfd", str(writing), "-screen", "0",
                                 "1400x1000x24", "-nolisten", "tcp", "-noreset", "-wr"))  # on white
            if ready:
                return name
            stop(self._processes.pop())
        raise RuntimeError(f"no X server started:\n{self.log()}")

    def _start_bus(self):
        address = self._start_and_read(
            lambda writing: ("dbus-daemon", f"--print-address={writing}", "--session", "--nofork"))
        if not address:
            raise RuntimeError(f"the session bus did not start:\n{self.log()}")
        return address

    def _start_and_read(self, command):
        """Starts a process that writes a line to a descriptor when ready; returns the line.

        Returns "" if the process fails.
        """
        reading, writing = os.pipe()
        self.start(*command(writing), pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as line:
            return line.readline().strip()

    @staticmethod
    def _has_window_manager():
        return subprocess.run(["xdotool", "get_desktop"], capture_output=True).returncode == 0
