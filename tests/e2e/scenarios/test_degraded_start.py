"""Starts without standard streams or display, and with buses that do not answer."""

import fcntl
import os
import signal
import socket
import struct
import subprocess

import pytest

from instances import state_of, windows
from waiting import wait_until

NULL = "/dev/null"
BUSES = ("session", "accessibility")


@pytest.fixture
def form_answers():
    """A function that resets the form, which logs a dozen lines, and checks that keys work."""
    from driver import Driver

    driver = Driver("Frimbolate")

    def check():
        driver.find_window("Frimbolate")
        shown = driver.shows("button", "Tip: Name")
        driver.press("ctrl+n", "ctrl+t")
        driver.wait_until(lambda: driver.shows("button", "Tip: Name") != shown,
                          "the tips to change")

    yield check
    driver.close()


def quit_by_key(process):
    """Quits by a key, to which a blocked program would not react."""
    window = windows(process)[0]
    subprocess.run(["xdotool", "windowactivate", "--sync", window, "key", "ctrl+q"], check=True)
    wait_until(lambda: process.poll() is not None, "the program to quit")
    assert process.returncode == 0, process.returncode


@pytest.mark.parametrize("closed", ("2>&-", "<&-", ">&-", "<&- >&- 2>&-"),
                         ids=("error", "input", "output", "all"))
def test_closed_streams(instances, form_answers, closed):
    """Closed standard descriptors are not reused for the X server or a bus."""
    process = instances.start_shown(wrapper=("/bin/sh", "-c", f'exec "$0" "$@" {closed}'),
                                    streams={"stdin": subprocess.PIPE})
    for stream, sign in enumerate(("<", ">", "2>")):
        target = os.readlink(f"/proc/{process.pid}/fd/{stream}")
        expected = f"{sign}&-" in closed.split()
        assert (target == NULL) == expected, (stream, target)
    form_answers()
    assert process.poll() is None, process.returncode


def test_reader_of_the_log_that_went_away(instances, form_answers):
    reading, writing = os.pipe()
    process = instances.start_shown(streams={"stderr": writing})
    os.close(writing)
    os.close(reading)
    form_answers()
    assert process.poll() is None, process.returncode


def fill(writing):
    """Fills a pipe, so that it blocks every writer."""
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


def test_reader_of_the_log_that_does_not_read(instances, form_answers):
    reading, writing = os.pipe()
    fill(writing)
    process = instances.start_shown(streams={"stderr": writing})
    form_answers()
    assert os.get_blocking(writing), "the shell's descriptor was changed"
    assert drained(reading).strip("-") == ""
    form_answers()
    first = drained(reading).splitlines()[0]
    assert first.endswith(" lines of the log were dropped here"), first
    assert process.poll() is None, process.returncode
    os.close(writing)
    os.close(reading)


@pytest.mark.parametrize("variables, expected", (
    ({"DISPLAY": None}, "there is no display; neither DISPLAY nor WAYLAND_DISPLAY names one"),
    ({"DISPLAY": ":98765"}, 'the display ":98765" cannot be opened'),
    ({"DISPLAY": None, "WAYLAND_DISPLAY": "/nowhere", "QT_QPA_PLATFORM": None},
     'the display "/nowhere" cannot be opened'),
), ids=("unset", "x11", "wayland"))
def test_no_display(instances, variables, expected):
    ended = instances.run(**variables)
    assert ended.returncode == 1, ended
    assert ended.stderr == f"frimbolate: {expected}\n", ended.stderr


def test_unknown_platform_plugin(instances):
    """Qt reports the plugin itself and does not abort the program."""
    ended = instances.run(QT_QPA_PLATFORM="nonsense")
    assert ended.returncode == 1, ended


@pytest.mark.parametrize("option, printed", (
    ("--version", "Frimbolate"), ("-v", "Frimbolate"), ("--help", "Usage:")))
def test_option_without_display(instances, option, printed):
    ended = instances.run(option, DISPLAY=None)
    assert ended.returncode == 0 and ended.stdout.startswith(printed), ended


class SilentSocket:
    """A socket that accepts connections and never answers."""

    def __init__(self, path):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.bind(str(path))
        self._socket.listen(20)
        self.address = f"unix:path={path}"

    def close(self):
        self._socket.close()


def set_on_x_server(address):
    """Sets the address of the accessibility bus on the root window; None removes it."""
    change = ("-set", "AT_SPI_BUS", address) if address else ("-remove", "AT_SPI_BUS")
    subprocess.run(["xprop", "-root", "-f", "AT_SPI_BUS", "8s", *change], check=True)


@pytest.fixture
def bus_on_x_server():
    """set_on_x_server; restores the previous address afterwards."""
    shown = subprocess.run(["xprop", "-root", "AT_SPI_BUS"], capture_output=True, text=True,
                           check=True).stdout
    yield set_on_x_server
    set_on_x_server(shown.split('"')[1] if '"' in shown else None)


@pytest.fixture
def silent(home):
    bus = SilentSocket(home.folder / "silent")
    yield bus
    bus.close()


@pytest.mark.parametrize("case", ("session", "usual place", "accessibility", "x server", "both"))
def test_silent_bus(instances, silent, bus_on_x_server, home, case):
    """After the default timeout the window appears without the bus."""
    session, accessibility = ({"DBUS_SESSION_BUS_ADDRESS": silent.address},
                              {"AT_SPI_BUS_ADDRESS": silent.address})
    usual = home.folder / "runtime"
    usual.mkdir(mode=0o700)
    in_usual_place = SilentSocket(usual / "bus")
    variables, silent_buses = {
        "session": (session, ["session"]),
        "usual place": ({"DBUS_SESSION_BUS_ADDRESS": None, "XDG_RUNTIME_DIR": str(usual)},
                        ["session"]),
        "accessibility": (accessibility, ["accessibility"]),
        "x server": ({}, ["accessibility"]),
        "both": (session | accessibility, list(BUSES)),
    }[case]
    bus_on_x_server(silent.address if case == "x server" else None)
    process = instances.start_shown(FRIMBOLATE_TIMEOUT_MS=None, **variables)
    log = home.log()
    for bus in BUSES:
        line = f"frimbolate: the {bus} bus does not answer, going on without it"
        assert (line in log) == (bus in silent_buses), bus
    quit_by_key(process)
    in_usual_place.close()


def test_stopped_accessibility_bus(desktop, instances, bus_on_x_server):
    """The session bus answers with the address of an accessibility bus that does not answer."""
    from gi.repository import Gio

    address = Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0,
        -1).unpack()[0]
    bus_on_x_server(None)  # only the session bus gives the address
    path = address.split("path=")[1].split(",")[0]
    with socket.socket(socket.AF_UNIX) as caller:
        caller.connect(path)
        peer = caller.getsockopt(socket.SOL_SOCKET, socket.SO_PEERCRED, struct.calcsize("3i"))
    bus = struct.unpack("3i", peer)[0]  # started by this desktop's own session bus
    os.kill(bus, signal.SIGSTOP)
    try:
        wait_until(lambda: state_of(bus) == "T", "the accessibility bus to stop")
        quit_by_key(instances.start_shown(FRIMBOLATE_TIMEOUT_MS=None))
    finally:
        os.kill(bus, signal.SIGCONT)
