"""Starts the program where something that every program takes for granted is missing.

    degraded_start.py <program> <folder for the pictures>

Standard streams that are closed or not read, and no display.
"""

import fcntl
import os
import subprocess

from desktop import perform
from starts import Starts

NULL = "/dev/null"


def form_answers():
    """Empties the form, which logs a dozen lines, and waits for what a later key does."""
    from hands_and_eyes import Person  # connects to the bus of the running desktop

    person = Person("Frimbolate")
    person.look_at_window("Frimbolate")
    shown = person.sees("button", "Tip: Name")
    person.press("ctrl+n", "ctrl+t")
    person.wait_until(lambda: person.sees("button", "Tip: Name") != shown, "the tips to change")


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


def play(desktop, program, _pictures):
    starts = Starts(desktop, program)
    for scenario in (no_display, closed_streams, reader_that_went_away,
                     reader_that_does_not_read):
        print(scenario.__name__.replace("_", " "), flush=True)
        scenario(starts)
        starts.end()


if __name__ == "__main__":
    perform(play, __doc__)
