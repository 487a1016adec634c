"""What a person does with a program: looks for a control, clicks it, types.

Controls are found as a screen reader finds them, by role and accessible name; clicks and keys go
through the X server. Import it only on a running Desktop: the binding connects to its bus at once.
"""

import subprocess

import pyatspi

from desktop import wait_until

ROLES = {
    "button": (pyatspi.ROLE_PUSH_BUTTON,),
    "check box": (pyatspi.ROLE_CHECK_BOX,),
    "dialog": (pyatspi.ROLE_DIALOG, pyatspi.ROLE_ALERT, pyatspi.ROLE_FILE_CHOOSER),
    "field": (pyatspi.ROLE_TEXT,),
    "label": (pyatspi.ROLE_LABEL,),
    "pop-up": (pyatspi.ROLE_COMBO_BOX,),
    "time": (pyatspi.ROLE_SPIN_BUTTON,),
    "window": (pyatspi.ROLE_FRAME, pyatspi.ROLE_WINDOW),
}


def _descendants(node, depth=0):
    """A control and all that it holds. What vanishes meanwhile is passed over."""
    yield node, depth
    try:
        children = [node.getChildAtIndex(i) for i in range(node.childCount)]
    except Exception:  # the binding raises whatever the bus told
        return
    for child in children:
        if child is not None:
            yield from _descendants(child, depth + 1)


def _is_showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


class Person:
    """Works with the program that calls itself so."""

    def __init__(self, program):
        self._program = program

    def look(self, kind, name):
        """The showing control of that kind and accessible name, waited for."""
        try:
            return wait_until(lambda: self._found(kind, name), f"{kind} '{name}'")
        except TimeoutError as error:
            raise TimeoutError(f"{error}; in sight are:\n{self.sight()}") from error

    def sees(self, kind, name):
        return self._found(kind, name) is not None

    def click(self, kind, name):
        """Clicks into the middle of a control once it has come to rest."""
        node = self.look(kind, name)
        # Between a sheet's showing and its getting the keyboard a click would go astray.
        wait_until(self._front_window_listens, "the window in front to get the keyboard")
        places = [None]

        def at_rest():
            box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            places.append((box.x + box.width // 2, box.y + box.height // 2))
            return box.width > 0 and places[-1] == places[-2]

        wait_until(at_rest, f"{kind} '{name}' to come to rest")
        x, y = places[-1]
        self._do("mousemove", str(x), str(y), "click", "1")
        return node

    def press(self, *keys):
        """Presses keys one after another, such as "ctrl+s"."""
        self._do("key", "--clearmodifiers", *keys)

    def write(self, name, text):
        """Clicks into a field, replaces what it holds, and waits until it shows the text."""
        node = self.click("field", name)
        wait_until(lambda: node.getState().contains(pyatspi.STATE_FOCUSED), f"'{name}' to listen")
        self.press("ctrl+a")
        self._do("type", "--clearmodifiers", "--delay", "20", text)
        wait_until(lambda: self.text(node) == text, f"'{name}' to show '{text}'")

    def choose(self, pop_up, item):
        """Opens a pop-up and chooses an item by typing its title."""
        node = self.click("pop-up", pop_up)
        wait_until(lambda: node.getState().contains(pyatspi.STATE_EXPANDED), f"'{pop_up}' to open")
        self._do("type", "--clearmodifiers", "--delay", "20", item)
        self.press("Return")

    def choose_file(self, pop_up, item, path):
        """Chooses an item that asks for a file, and answers with the path."""
        self.choose(pop_up, item)
        self.answer_panel(path, "Select")

    def answer_panel(self, path, prompt):
        """Writes a path into the file panel whose button bears that prompt, and enters it."""
        self.look("button", prompt)
        self.write("Name", path)
        # A click would only close the list of completions below the field.
        self.press("Return")
        wait_until(lambda: not self.sees("button", prompt), f"the panel '{prompt}' to close")

    def set_time(self, name, time):
        """Types a time such as "07:05" into a time field, from its first section on."""
        node = self.click("time", name)
        # Entered by Tab, and only so, the field selects its first section.
        self.press("Home", "shift+Tab", "Tab")
        self._do("type", "--clearmodifiers", "--delay", "20", time.replace(":", ""))
        wait_until(lambda: self.text(node) == time, f"'{name}' to show '{time}'")

    def read(self, kind, name):
        return self.text(self.look(kind, name))

    @staticmethod
    def text(node):
        try:
            return node.queryText().getText(0, -1)
        except NotImplementedError:
            return node.name

    def sight(self):
        """All that shows, for the report of a search in vain."""
        return "\n".join(
            f"{'  ' * depth}{node.getRoleName()} '{node.name}'"
            for node, depth in self._nodes()
            if _is_showing(node)
        )

    def type_into_pop_over(self, title, text):
        """Types into the pop-over of that title, which assistive tools do not list as a window."""
        wait_until(lambda: subprocess.run(["xdotool", "search", "--onlyvisible", "--name",
                                           f"^{title}$"], capture_output=True).returncode == 0,
                   f"the pop-over '{title}'")
        self._do("type", "--clearmodifiers", "--delay", "20", text)

    def _front_windows(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.name == self._program:
                for window in application:
                    if window.getState().contains(pyatspi.STATE_ACTIVE):
                        yield window

    def _front_window_listens(self):
        """Whether the program and the window manager agree on which window has the keyboard."""
        asked = subprocess.run(["xdotool", "getwindowfocus", "getwindowname"],
                               capture_output=True, text=True)
        return asked.stdout.strip() in [window.name for window in self._front_windows()]

    def _nodes(self):
        """The controls of the window in front, as the others do not answer a click."""
        for window in self._front_windows():
            yield from _descendants(window)

    def _found(self, kind, name):
        for node, _ in self._nodes():
            try:
                if (node.getRole() in ROLES[kind] and name in self._names(node)
                        and _is_showing(node)):
                    return node
            except Exception:  # vanished while being looked at
                continue
        return None

    @staticmethod
    def _names(node):
        """What the control is called: by itself, and by the label beside it.

        A pop-up tells the item that it shows as its own name.
        """
        labels = [relation.getTarget(i).name
                  for relation in node.getRelationSet()
                  if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY
                  for i in range(relation.getNTargets())]
        return [node.name, *labels]

    @staticmethod
    def _do(*command):
        subprocess.run(["xdotool", *command], check=True)
