"""A desktop without a screen: X server, session bus and window manager, and a home of its own.

Needs Debian's Xvfb, dbus-daemon, openbox, xdotool, x11-utils and imagemagick; a missing one is an error.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

TOOLS = ("Xvfb", "dbus-daemon", "openbox", "xdotool", "xprop", "import")
PATIENCE = 60  # seconds, for whatever must become true; far more than a busy machine needs


def wait_until(condition, what):
    """The first true result of condition(), asked again and again until patience ends."""
    deadline = time.monotonic() + PATIENCE
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {PATIENCE} s in vain for {what}")
        time.sleep(0.01)


class Desktop:
    """Lives inside a with statement; its processes and folders end with it."""

    def __init__(self):
        missing = [tool for tool in TOOLS if not shutil.which(tool)]
        if missing:
            raise FileNotFoundError(f"not installed: {', '.join(missing)}")
        self._folder = tempfile.TemporaryDirectory(prefix="frimbolate-desktop-")
        self.folder = Path(self._folder.name)
        self._processes = []

    def __enter__(self):
        try:
            self._set_up_home()
            os.environ["DISPLAY"] = ":" + self._start_and_read("Xvfb", "-displayfd", "-screen",
                "0", "1400x1000x24", "-nolisten", "tcp", "-noreset", "-wr")  # on white
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_and_read(
                "dbus-daemon", "--print-address", "--session", "--nofork")
            self.start("openbox", "--sm-disable")
            wait_until(self._has_window_manager, "the window manager")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._folder.cleanup()

    def start(self, *command, **options):
        """Starts a process that ends with the desktop at the latest."""
        with open(self.folder / "log.txt", "ab") as log:
            options = {"stdout": log, "stderr": log} | options
            self._processes.append(subprocess.Popen(command, **options))
        return self._processes[-1]

    def log(self):
        """What the processes have said so far."""
        return (self.folder / "log.txt").read_text(encoding="utf-8", errors="replace")

    def picture(self, path):
        """Keeps what stands on the screen as a PNG."""
        subprocess.run(["import", "-silent", "-window", "root", str(path)], check=True)

    def _set_up_home(self):
        home = self.folder / "home"
        os.environ.update(
            HOME=str(home), LANG="C.UTF-8", QT_QPA_PLATFORM="xcb", XDG_CURRENT_DESKTOP="",
            # Without an assistive program running, Qt would keep its controls to itself.
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", FRIMBOLATE_COLOR_SCHEME="light",
            FRIMBOLATE_REDUCED_MOTION="1", FRIMBOLATE_TIMEOUT_MS=str(PATIENCE * 1000))
        for name in ("CONFIG", "DATA", "CACHE", "RUNTIME"):
            kind = "DIR" if name == "RUNTIME" else "HOME"
            folder = home / name.lower()
            folder.mkdir(parents=True, mode=0o700)
            os.environ[f"XDG_{name}_{kind}"] = str(folder)
        # The first terminal that the program looks for only tells that it was asked for.
        terminal = home / "bin" / "xdg-terminal-exec"
        terminal.parent.mkdir()
        terminal.write_text("#!/bin/sh\n: >\"$HOME/terminal-was-opened\"\n", encoding="utf-8")
        terminal.chmod(0o755)
        os.environ["PATH"] = f"{terminal.parent}:{os.environ['PATH']}"
        for name in ("WAYLAND_DISPLAY", "LC_ALL", "LANGUAGE", "QT_SCALE_FACTOR"):
            os.environ.pop(name, None)

    def _start_and_read(self, program, option, *arguments):
        """Starts a process that tells where it is reached, through the file given to the option."""
        reading, writing = os.pipe()
        self.start(program, *arguments, f"{option}={writing}" if option.startswith("--") else option,
                   *([] if option.startswith("--") else [str(writing)]), pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as told:
            line = told.readline().strip()
        if not line:
            raise RuntimeError(f"{program} did not start:\n{self.log()}")
        return line

    @staticmethod
    def _has_window_manager():
        return subprocess.run(["xdotool", "get_desktop"], capture_output=True).returncode == 0


def perform(play, about):
    """Performs play(desktop, program, pictures) on a desktop of its own.

    The command line names the program and a folder for the pictures. What goes wrong leaves the
    log, and a picture called after the play.
    """
    parser = argparse.ArgumentParser(description=about.splitlines()[0])
    parser.add_argument("program", type=Path)
    parser.add_argument("pictures", type=Path)
    arguments = parser.parse_args()
    arguments.pictures.mkdir(parents=True, exist_ok=True)
    failure = arguments.pictures / f"failed-{Path(sys.argv[0]).stem}.png"
    failure.unlink(missing_ok=True)
    with Desktop() as desktop:
        try:
            play(desktop, arguments.program.resolve(), arguments.pictures)
        except BaseException:
            desktop.picture(failure)
            print(desktop.log(), file=sys.stderr)
            raise
    print(f"Pictures are in {arguments.pictures.resolve()}")
