"""A second start, while the first instance is minimised, stopped, still starting or ending."""

import os
import signal
import socket
import struct
import subprocess
from pathlib import Path

from instances import state_of, windows
from waiting import wait_until


def wait_for_takeover(process, home):
    """Waits until this instance listens on the socket."""
    folder = Path(home.environment["XDG_RUNTIME_DIR"]) / "frimbolate"

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


def test_minimised_window_is_brought_back(desktop, instances, pictures):
    first = instances.start_shown()
    subprocess.run(["xdotool", "windowminimize", windows(first)[0]], check=True)
    wait_until(lambda: not windows(first), "the window to be minimised")
    instances.expect_handover()
    wait_until(lambda: windows(first), "the window to come back")
    desktop.save_screenshot(pictures / "brought-back.png")


def test_stopped_instance_is_given_up(instances):
    first = instances.start_shown()
    first.send_signal(signal.SIGSTOP)
    wait_until(lambda: state_of(first.pid) == "T", "the first instance to stop")
    second = instances.start_shown(FRIMBOLATE_TIMEOUT_MS=None)
    assert "the running instance does not answer" in instances.home.log()
    first.send_signal(signal.SIGCONT)
    instances.expect_handover()
    assert windows(first) and windows(second)
    # After the first instance has ended, the second one listens.
    first.kill()
    first.wait()
    wait_for_takeover(second, instances.home)
    instances.expect_handover()
    assert windows(second)


def test_three_starts_at_once_leave_one(instances):
    processes = [instances.start() for _ in range(3)]
    wait_until(lambda: sum(process.poll() is None for process in processes) == 1,
               "two of three starts to end")
    left = next(process for process in processes if process.poll() is None)
    assert all(process.returncode == 0 for process in processes if process is not left)
    wait_until(lambda: len(windows(left)) == 1, "the window of the third")


def test_new_instance_beside_the_old_one(instances):
    """As after a reset of the preferences: the new instance takes over when the old one ends."""
    first = instances.start_shown()
    second = instances.start_shown("--new-instance")
    instances.expect_handover()
    first.terminate()
    first.wait()
    wait_for_takeover(second, instances.home)
    instances.expect_handover()
    assert windows(second)


def test_without_runtime_folder(instances):
    """The socket lies in a subfolder of the temporary folder that only the user can enter."""
    folder = instances.home.folder / "temporary"
    folder.mkdir()
    place = {"XDG_RUNTIME_DIR": None, "TMPDIR": str(folder)}
    first = instances.start_shown(**place)
    instances.expect_handover(**place)
    own = folder / f"frimbolate-{os.geteuid()}"
    assert own.stat().st_mode & 0o777 == 0o700, oct(own.stat().st_mode)
    assert any(path.is_socket() for path in own.iterdir()), list(own.iterdir())
    assert windows(first)
