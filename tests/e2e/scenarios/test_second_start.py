"""Starts the program again and again, and counts its windows.

    test_second_start.py <program> <folder for the pictures>

The first instance is minimised, stopped, still starting or about to end.
"""

import os
import signal
import socket
import struct
import subprocess
import tempfile
from pathlib import Path

from desktop import perform, wait_until
from instances import Starts, state_of, windows


def wait_for_takeover(process):
    """Until this is the instance that others find."""
    folder = Path(os.environ["XDG_RUNTIME_DIR"]) / "frimbolate"

    def listens():
        sockets = [path for path in folder.iterdir() if path.is_socket()]
        with socket.socket(socket.AF_UNIX) as caller:
            try:
                caller.connect(str(sockets[0]))
            except (IndexError, OSError):
                return False
            peer = caller.getsockopt(socket.SOL_SOCKET, socket.SO_PEERCRED, struct.calcsize("3i"))
        return struct.unpack("3i", peer)[0] == process.pid

    wait_until(listens, "the instance to take over")


def minimised(starts):
    first = starts.shown()
    subprocess.run(["xdotool", "windowminimize", windows(first)[0]], check=True)
    wait_until(lambda: not windows(first), "the window to be minimised")
    starts.expect_told()
    wait_until(lambda: windows(first), "the window to come back")


def stopped(starts):
    first = starts.shown()
    first.send_signal(signal.SIGSTOP)
    wait_until(lambda: state_of(first.pid) == "T", "the first instance to stop")
    told = len(starts.desktop.log())
    second = starts.shown(FRIMBOLATE_TIMEOUT_MS=None)
    assert "the running instance does not answer" in starts.desktop.log()[told:]
    first.send_signal(signal.SIGCONT)
    starts.expect_told()
    assert windows(first) and windows(second)
    # The second one is found once the first has ended.
    first.kill()
    first.wait()
    wait_for_takeover(second)
    starts.expect_told()
    assert windows(second)


def three_at_once(starts):
    processes = [starts.start() for _ in range(3)]
    wait_until(lambda: sum(process.poll() is None for process in processes) == 1,
               "two of three starts to end")
    left = next(process for process in processes if process.poll() is None)
    assert all(process.returncode == 0 for process in processes if process is not left)
    wait_until(lambda: len(windows(left)) == 1, "the window of the third")


def beside(starts):
    """As after a reset of the preferences: the new instance follows the one that ends."""
    first = starts.shown()
    second = starts.shown("--new-instance")
    starts.expect_told()
    first.terminate()
    first.wait()
    wait_for_takeover(second)
    starts.expect_told()
    assert windows(second)


def without_a_runtime_folder(starts):
    with tempfile.TemporaryDirectory() as folder:
        place = {"XDG_RUNTIME_DIR": None, "TMPDIR": folder}
        first = starts.shown(**place)
        starts.expect_told(**place)
        own = Path(folder) / f"frimbolate-{os.geteuid()}"
        assert own.stat().st_mode & 0o777 == 0o700, oct(own.stat().st_mode)
        assert any(path.is_socket() for path in own.iterdir()), list(own.iterdir())
        assert windows(first)


def play(desktop, program, pictures):
    starts = Starts(desktop, program)
    for scenario in (minimised, stopped, three_at_once, beside, without_a_runtime_folder):
        print(scenario.__name__.replace("_", " "), flush=True)
        scenario(starts)
        if scenario is minimised:
            desktop.picture(pictures / "brought-back.png")
        starts.end()


if __name__ == "__main__":
    perform(play, __doc__)
