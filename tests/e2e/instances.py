"""Starts of the program on one desktop, and the windows that come of them.

Windows are found through the X server, since the accessibility bus tells instances of one name badly
apart.
"""

import os
import plistlib
import subprocess
from pathlib import Path

from desktop import PATIENCE, wait_until


def windows(process):
    """The main windows of a process that are shown, by the X server's numbers."""
    found = subprocess.run(["xdotool", "search", "--all", "--onlyvisible", "--pid", str(process.pid),
                            "--name", "^Frimbolate$"], capture_output=True, text=True)
    return found.stdout.split()


class Starts:
    """The program on one desktop, with settings that begin without a question."""

    def __init__(self, desktop, program):
        self.desktop, self._program = desktop, program
        settings = Path(os.environ["XDG_CONFIG_HOME"]) / "com.qz.Frimbolate.plist"
        settings.write_bytes(plistlib.dumps({
            "ShowWelcomeWindow": "False - 3.0",
            "Bookmark": f"path1:{desktop.folder}".encode()}))
        self._processes = []

    @staticmethod
    def environment(variables):
        return {name: value for name, value in (os.environ | variables).items()
                if value is not None}

    def start(self, *arguments, wrapper=(), streams=None, **variables):
        """Starts the program with other variables, and without those that are None."""
        self._processes.append(self.desktop.start(*wrapper, str(self._program), *arguments,
                                                  env=self.environment(variables), **streams or {}))
        return self._processes[-1]

    def shown(self, *arguments, **options):
        """A start that opens a window."""
        process = self.start(*arguments, **options)
        wait_until(lambda: windows(process), "a window")
        return process

    def ended(self, *arguments, **variables):
        """A start that ends by itself, with what it printed."""
        return subprocess.run([self._program, *arguments], capture_output=True, text=True,
                              env=self.environment(variables), timeout=PATIENCE)

    def expect_told(self, **variables):
        """A start that leaves it to the running instance."""
        process = self.start(**variables)
        wait_until(lambda: process.poll() is not None, "the second start to end")
        assert process.returncode == 0, process.returncode

    def end(self):
        for process in self._processes:
            if process.poll() is None:
                process.kill()
            process.wait()
        self._processes.clear()


def state_of(process):
    """The kernel's letter for what the process of that number does."""
    return Path(f"/proc/{process}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()[0]
