"""Works with a program through its accessible interface alone: no key, no click, no eye.

Import it only on a running Desktop: the binding connects to its bus at once.
"""

import sys
from pathlib import Path

import pyatspi

from desktop import wait_until
from driver import ROLES, Person, descendants, labels_of
from a11y_rules import Part

ROLES["item"] = (pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM)


def _actions(node):
    try:
        asked = node.queryAction()
    except NotImplementedError:
        return ()
    return tuple(asked.getName(i) for i in range(asked.nActions))


def part_of(node):
    """A control and all that shows of what it holds, as plain data."""
    states = node.getState()
    part = Part(node.getRoleName(), node.name, tuple(labels_of(node)),
                showing=states.contains(pyatspi.STATE_SHOWING),
                sensitive=states.contains(pyatspi.STATE_SENSITIVE),
                selectable=states.contains(pyatspi.STATE_SELECTABLE),
                focusable=states.contains(pyatspi.STATE_FOCUSABLE), actions=_actions(node))
    if part.showing:
        part.parts = [part_of(child) for child in node if child is not None]
    return part


class Assistive(Person):
    """Finds controls as a person's tools do, and works them through the bus."""

    closed = ()

    def use(self, kind, name):
        """Does the first action of a control: presses, toggles, or opens it."""
        self._act(self.look(kind, name))

    def put(self, kind, name, text):
        """Sets the text of a field."""
        node = self.look(kind, name)
        assert node.queryEditableText().setTextContents(text), f"'{name}' takes no text"
        wait_until(lambda: self.text(node) == text, f"'{name}' to show '{text}'")

    def slide(self, name, value):
        self.look("slider", name).queryValue().currentValue = value

    def pick(self, pop_up, item):
        """Selects an item of a pop-up that need not be open."""
        wanted = [node for node, _ in descendants(self.look("pop-up", pop_up), self.closed)
                  if node.getRole() == pyatspi.ROLE_LIST_ITEM and node.name == item]
        assert len(wanted) == 1, f"{len(wanted)} items '{item}' in '{pop_up}'"
        self._act(wanted[0])

    def fill_panel(self, path, prompt):
        """Answers the file panel whose button bears that prompt."""
        self.look("button", "Cancel")
        self.put("field", "Name", path)
        self.use("button", prompt)
        wait_until(lambda: not self.sees("button", "Cancel"), f"the panel '{prompt}' to close")

    def windows(self):
        """The windows in front, as plain data; none while one of them is going."""
        try:
            return [part_of(window) for window in self.front_windows()]
        except Exception:  # a part has vanished while being looked at
            return []

    @staticmethod
    def has_keyboard(node):
        return node.getState().contains(pyatspi.STATE_FOCUSED)

    def is_open(self, pop_up):
        return self.look("pop-up", pop_up).getState().contains(pyatspi.STATE_EXPANDED)

    @staticmethod
    def _act(node):
        assert node.queryAction().doAction(0), f"'{node.name}' cannot be worked"

    @staticmethod
    def _do(*command):
        raise AssertionError(f"that needs hands: {' '.join(command)}")


class Listener:
    """Hears what the program tells from its start on; to be made before the program starts."""

    def __init__(self, desktop):
        self._heard = desktop.folder / "heard.txt"
        self._heard.touch()
        desktop.start(sys.executable, str(Path(__file__).with_name("a11y_events.py")),
                      str(self._heard))
        wait_until(lambda: "listening" in self.heard(), "the listener")

    def heard(self, since=0):
        """The lines told so far, without the first ones."""
        return self._heard.read_text(encoding="utf-8").splitlines()[since:]
