"""Starts of the program beside each other in one home, and the windows of each.

Windows are found through the X server: on the accessibility bus all instances have the same name.
"""

import plistlib
import subprocess
from pathlib import Path

from waiting import TIMEOUT, wait_until


def windows(process):
    """The main windows of a process that are shown, by the X server's numbers."""
    found = subprocess.run(
        ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(process.pid),
         "--name", "^Frimbolate$"], capture_output=True, text=True)
    return found.stdout.split()


def state_of(process):
    """The kernel's letter for the state of the process of that number."""
    return Path(f"/proc/{process}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()[0]


class Instances:
    """Starts the program with settings that need no question; the home ends the processes."""

    def __init__(self, home, program):
        self.home, self._program = home, program
        home.preference_file.write_bytes(plistlib.dumps({
            "ShowWelcomeWindow": "False - 3.0",
            "Bookmark": f"path1:{home.folder}".encode()}))

    def start(self, *arguments, wrapper=(), streams=None, **variables):
        """Starts the program with other variables, and without those that are None."""
        return self.home.start(*wrapper, self._program, *arguments, streams=streams, **variables)

    def start_shown(self, *arguments, **options):
        """Starts an instance that opens a window."""
        process = self.start(*arguments, **options)
        wait_until(lambda: windows(process), "a window")
        return process

    def run(self, *arguments, **variables):
        """Runs a start that ends by itself; returns its code and what it printed."""
        return subprocess.run([self._program, *arguments], capture_output=True, text=True,
                              env=self.home.variables(variables), timeout=TIMEOUT)

    def expect_handover(self, **variables):
        """Starts an instance that leaves the window to the one that runs, and ends."""
        process = self.start(**variables)
        wait_until(lambda: process.poll() is not None, "the second start to end")
        assert process.returncode == 0, process.returncode
