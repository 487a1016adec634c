"""Operates a program through its accessible interface only, without keys and clicks.

Import it only on a running Desktop: the binding connects to its bus on import.
"""

import sys
from pathlib import Path

import pyatspi

from a11y_rules import Part
from accessible import descendants, has, labels_of
from driver import Driver
from waiting import wait_until


def _actions(node):
    try:
        asked = node.queryAction()
    except NotImplementedError:
        return ()
    return tuple(asked.getName(i) for i in range(asked.nActions))


def part_of(node):
    """A control and all of its showing descendants, as plain data."""
    states = node.getState()
    part = Part(node.getRoleName(), node.name, tuple(labels_of(node)),
                showing=states.contains(pyatspi.STATE_SHOWING),
                sensitive=states.contains(pyatspi.STATE_SENSITIVE),
                selectable=states.contains(pyatspi.STATE_SELECTABLE),
                focusable=states.contains(pyatspi.STATE_FOCUSABLE), actions=_actions(node))
    if part.showing:
        part.parts = [part_of(child) for child in node if child is not None]
    return part


class AtspiDriver(Driver):
    """Finds controls as a Driver does and operates them through the bus. A key or click raises."""

    closed = ()

    def use(self, kind, name):
        """Performs the first action of a control: presses, toggles or opens it."""
        self._act(self.find(kind, name))

    def set_text(self, kind, name, text):
        node = self.find(kind, name)
        assert node.queryEditableText().setTextContents(text), f"'{name}' takes no text"
        self.wait_until(lambda: self.text(node) == text, f"'{name}' to show '{text}'")

    def set_value(self, name, value):
        slider = self.find("slider", name).queryValue()
        slider.currentValue = value
        self.wait_until(lambda: slider.currentValue == value, f"'{name}' to show {value}")

    def pick(self, pop_up, item):
        """Selects an item of a pop-up, open or not."""
        wanted = [node for node, _ in descendants(self.find("pop-up", pop_up), self.closed)
                  if node.getRole() == pyatspi.ROLE_LIST_ITEM and node.name == item]
        assert len(wanted) == 1, f"{len(wanted)} items '{item}' in '{pop_up}'"
        self._act(wanted[0])

    def fill_panel(self, path, prompt):
        """Enters a path into the file panel with that button and accepts it."""
        self.find("button", "Cancel")
        self.set_text("field", "Name", path)
        self.use("button", prompt)
        self.wait_until(lambda: not self.shows("button", "Cancel"),
                        f"the panel '{prompt}' to close")

    def windows(self):
        """The active windows, as plain data; none if one of them closes during the query."""
        try:
            return [part_of(window) for window in self.front_windows()]
        except Exception:  # a part no longer exists
            return []

    def is_open(self, pop_up):
        return has(self.find("pop-up", pop_up), "EXPANDED")

    @staticmethod
    def _act(node):
        assert node.queryAction().doAction(0), f"'{node.name}' does not act"

    @staticmethod
    def _do(*command):
        raise AssertionError(f"that is no call of the accessibility bus: {' '.join(command)}")


class EventListener:
    """Records what the program announces. Create it before the program starts."""

    def __init__(self, desktop, file):
        self._file = file
        self._file.touch()
        self._process = desktop.start(
            sys.executable, str(Path(__file__).with_name("a11y_events.py")), str(file))
        wait_until(lambda: "listening" in self.lines(), "the listener")

    def close(self):
        self._process.kill()
        self._process.wait()

    def lines(self, since=0):
        """The lines recorded so far, from index `since` on."""
        return self._file.read_text(encoding="utf-8").splitlines()[since:]

    def expect(self, start, since=0):
        """Waits for a line that starts with `start`."""
        wait_until(lambda: any(line.startswith(start) for line in self.lines(since)), start)
