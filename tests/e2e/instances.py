"""Several instances of the program in one home, and the windows of each.

Windows are found through the X server, because all instances have the same name on the
accessibility bus.
"""

import plistlib
import subprocess
from pathlib import Path

from waiting import TIMEOUT, wait_until


def windows(process):
    """The X window ids of the visible main windows of a process."""
    found = subprocess.run(
        ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(process.pid),
         "--name", "^Frimbolate$"], capture_output=True, text=True)
    return found.stdout.split()


def state_of(process):
    """The state letter of the process of that id, from /proc."""
    return Path(f"/proc/{process}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()[0]


class Instances:
    """Starts the program with settings that skip welcome and folder panel.

    The home ends the processes.
    """

    def __init__(self, home, program):
        self.home, self._program = home, program
        home.preference_file.write_bytes(plistlib.dumps({
            "ShowWelcomeWindow": "False - 3.0",
            "Bookmark": f"path1:{home.folder}".encode()}))

    def start(self, *arguments, wrapper=(), streams=None, **variables):
        """Starts the program with changed variables; None removes a variable."""
        return self.home.start(*wrapper, self._program, *arguments, streams=streams, **variables)

    def start_shown(self, *arguments, **options):
        """Starts an instance that opens a window."""
        process = self.start(*arguments, **options)
        wait_until(lambda: windows(process), "a window")
        return process

    def run(self, *arguments, **variables):
        """Runs an instance that ends by itself; returns its exit code and output."""
        return subprocess.run([self._program, *arguments], capture_output=True, text=True,
                              env=self.home.variables(variables), timeout=TIMEOUT)

    def expect_handover(self, **variables):
        """Starts an instance that hands over to the running one and ends."""
        process = self.start(**variables)
        wait_until(lambda: process.poll() is not None, "the second start to end")
        assert process.returncode == 0, process.returncode
