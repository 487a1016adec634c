"""Starts the program where something that every program takes for granted is missing.

    test_degraded_start.py <program> <folder for the pictures>

Standard streams that are closed or not read, no display, message buses that say nothing.
"""

import fcntl
import os
import signal
import socket
import struct
import subprocess

from desktop import perform, wait_until
from instances import Starts, state_of, windows

NULL = "/dev/null"


def form_answers():
    """Empties the form, which logs a dozen lines, and waits for what a later key does."""
    from driver import Person  # connects to the bus of the running desktop

    person = Person("Frimbolate")
    person.look_at_window("Frimbolate")
    shown = person.sees("button", "Tip: Name")
    person.press("ctrl+n", "ctrl+t")
    person.wait_until(lambda: person.sees("button", "Tip: Name") != shown, "the tips to change")


def quit_by_key(process):
    """Only a program that is not held up answers to a key."""
    window = windows(process)[0]
    subprocess.run(["xdotool", "windowactivate", "--sync", window, "key", "ctrl+q"], check=True)
    wait_until(lambda: process.poll() is not None, "the program to quit")
    assert process.returncode == 0, process.returncode


def closed_streams(starts):
    """Descriptors that are closed must not become those of the X server or of a bus."""
    for closed in ("2>&-", "<&-", ">&-", "<&- >&- 2>&-"):
        process = starts.shown(wrapper=("/bin/sh", "-c", f'exec "$0" "$@" {closed}'),
                               streams={"stdin": subprocess.PIPE})
        for stream, sign in enumerate(("<", ">", "2>")):
            target = os.readlink(f"/proc/{process.pid}/fd/{stream}")
            expected = f"{sign}&-" in closed.split()
            assert (target == NULL) == expected, (closed, stream, target)
        form_answers()
        assert process.poll() is None, process.returncode
        starts.end()


def reader_that_went_away(starts):
    reading, writing = os.pipe()
    process = starts.shown(streams={"stderr": writing})
    os.close(writing)
    os.close(reading)
    form_answers()
    assert process.poll() is None, process.returncode


def fill(writing):
    """Leaves a pipe full, and blocking for every writer."""
    flags = fcntl.fcntl(writing, fcntl.F_GETFL)
    os.set_blocking(writing, False)
    for size in (4096, 1):
        try:
            while True:
                os.write(writing, b"-" * size)
        except BlockingIOError:
            pass
    fcntl.fcntl(writing, fcntl.F_SETFL, flags)


def drained(reading):
    os.set_blocking(reading, False)
    found = b""
    try:
        while piece := os.read(reading, 65536):
            found += piece
    except BlockingIOError:
        pass
    return found.decode()


def reader_that_does_not_read(starts):
    reading, writing = os.pipe()
    fill(writing)
    process = starts.shown(streams={"stderr": writing})
    form_answers()
    assert os.get_blocking(writing), "the shell's descriptor was changed"
    assert drained(reading).strip("-") == ""
    form_answers()
    first = drained(reading).splitlines()[0]
    assert first.endswith(" lines of the log were dropped here"), first
    assert process.poll() is None, process.returncode
    os.close(writing)
    os.close(reading)


def no_display(starts):
    for variables, expected in (
            ({"DISPLAY": None}, "there is no display; neither DISPLAY nor WAYLAND_DISPLAY names one"),
            ({"DISPLAY": ":98765"}, 'the display ":98765" cannot be opened'),
            ({"DISPLAY": None, "WAYLAND_DISPLAY": "/nowhere", "QT_QPA_PLATFORM": None},
             'the display "/nowhere" cannot be opened')):
        ended = starts.ended(**variables)
        assert ended.returncode == 1, ended
        assert ended.stderr == f"frimbolate: {expected}\n", ended.stderr
    # What the probe cannot know of, Qt finds out, and must not abort either.
    ended = starts.ended(QT_QPA_PLATFORM="nonsense")
    assert ended.returncode == 1, ended
    for option, told in (("--version", "Frimbolate"), ("-v", "Frimbolate"), ("--help", "Usage:")):
        ended = starts.ended(option, DISPLAY=None)
        assert ended.returncode == 0 and ended.stdout.startswith(told), ended


class SilentSocket:
    """A socket that takes connections, as far as the kernel does that alone, and says nothing."""

    def __init__(self, path):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.bind(str(path))
        self._socket.listen(20)
        self.address = f"unix:path={path}"


def set_on_x_server(address):
    change = ("-set", "AT_SPI_BUS", address) if address else ("-remove", "AT_SPI_BUS")
    subprocess.run(["xprop", "-root", "-f", "AT_SPI_BUS", "8s", *change], check=True)


def mute_buses(starts):
    """Each is given up after the usual time, and the window appears without it."""
    mute = SilentSocket(starts.desktop.folder / "mute")
    runtime = starts.desktop.folder / "runtime"
    runtime.mkdir(mode=0o700)
    in_its_usual_place = SilentSocket(runtime / "bus")
    session, both = "session", "session accessibility"
    for variables, named, silent in (
            ({"DBUS_SESSION_BUS_ADDRESS": mute.address}, None, session),
            ({"DBUS_SESSION_BUS_ADDRESS": None, "XDG_RUNTIME_DIR": str(runtime)}, None, session),
            ({"AT_SPI_BUS_ADDRESS": mute.address}, None, "accessibility"),
            ({}, mute.address, "accessibility"),
            ({"DBUS_SESSION_BUS_ADDRESS": mute.address, "AT_SPI_BUS_ADDRESS": mute.address}, None,
             both)):
        set_on_x_server(named)
        told = len(starts.desktop.log())
        process = starts.shown(FRIMBOLATE_TIMEOUT_MS=None, **variables)
        for bus in both.split():
            line = f"frimbolate: the {bus} bus does not answer, going on without it"
            assert (line in starts.desktop.log()[told:]) == (bus in silent.split()), (variables, bus)
        quit_by_key(process)
    set_on_x_server(None)
    del in_its_usual_place


def stopped_accessibility_bus(starts):
    """The session bus is well, and names an accessibility bus that does not answer."""
    from gi.repository import Gio

    address = Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, -1).unpack()[0]
    set_on_x_server(None)  # which would tell of it as well
    path = address.split("path=")[1].split(",")[0]
    with socket.socket(socket.AF_UNIX) as caller:
        caller.connect(path)
        peer = caller.getsockopt(socket.SOL_SOCKET, socket.SO_PEERCRED, struct.calcsize("3i"))
    bus = struct.unpack("3i", peer)[0]  # started by this desktop's own session bus
    os.kill(bus, signal.SIGSTOP)
    try:
        wait_until(lambda: state_of(bus) == "T", "the accessibility bus to stop")
        quit_by_key(starts.shown(FRIMBOLATE_TIMEOUT_MS=None))
    finally:
        os.kill(bus, signal.SIGCONT)


def play(desktop, program, _pictures):
    starts = Starts(desktop, program)
    for scenario in (no_display, closed_streams, reader_that_went_away, reader_that_does_not_read,
                      mute_buses, stopped_accessibility_bus):
        print(scenario.__name__.replace("_", " "), flush=True)
        scenario(starts)
        starts.end()


if __name__ == "__main__":
    perform(play, __doc__)
