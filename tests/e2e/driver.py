"""Finds the controls of a program by role and accessible name and operates them.

Clicks and keys go through the X server. Import it only on a running Desktop: the binding connects
to its bus on import.
"""

import itertools
import subprocess

import pyatspi

from accessible import CLOSED, ROLES, children, descendants, has, is_a, labels_of
from waiting import wait_until
from xdotool import Xdotool

# The X server keeps the order of the keys, so no longer delay is needed.
TYPE = ("type", "--clearmodifiers", "--delay", "1")


class Driver:
    """Finds controls of the program of that application name and sends it input."""

    closed = CLOSED

    def __init__(self, program):
        self.program = program
        # Two processes: in a shared one, keys would go to the window that was queried last.
        self._keys, self._queries = Xdotool(), Xdotool()
        self._drag_position = None
        self._known = []  # pairs of a window and its controls found so far, by kind and name

    def close(self):
        """Ends the xdotool processes."""
        self._keys.close()
        self._queries.close()

    # Controls

    def find(self, kind, name):
        """Waits for the showing control of that kind and accessible name."""
        return self.wait_until(lambda: self._found(kind, name), f"{kind} '{name}'")

    def shows(self, kind, name):
        return self._found(kind, name) is not None

    def find_window(self, title):
        """Waits until the window of that title is active and has the focus."""
        window = self.wait_until(
            lambda: next((window for window in self.front_windows()
                          if window.name == title and self._has_keyboard()), None),
            f"the window '{title}'")
        self._settle()
        return window

    def find_panel(self, prompt):
        """Waits until the file panel with that button is active and has the focus."""
        panel = self.wait_until(
            lambda: next((window for window in self.front_windows()
                          if window.getRole() in ROLES["dialog"] and self._has_keyboard()
                          and self._found("button", prompt)), None),
            f"the panel with '{prompt}'")
        self._settle()
        return panel

    def read(self, kind, name):
        return self.text(self.find(kind, name))

    @staticmethod
    def text(node):
        try:
            return node.queryText().getText(0, -1)
        except NotImplementedError:
            return node.name

    @staticmethod
    def name_of(node):
        """The name of a control's label, else its own; a pop-up's own name is its current item."""
        return next(iter(labels_of(node)), node.name)

    def state_of(self, node):
        """The value of a control: its text, or "on" or "off"."""
        if node.getRole() in ROLES["check box"]:
            return "on" if self.is_checked(node) else "off"
        return self.text(node)

    def showing(self, *kinds):
        """All showing controls of those kinds in the active window, in tree order."""
        return [node for window in self.front_windows()
                for node, _ in descendants(window, self.closed)
                if is_a(node, *kinds) and has(node, "SHOWING")]

    def dump_ui(self):
        """All showing controls, for the message of a failed search."""
        lines = [f"the keyboard goes to the window '{self._focus()}'"]
        for window in self.all_windows():
            lines.append(f"{'in front' if has(window, 'ACTIVE') else 'behind'}:")
            lines += (f"{'  ' * depth}{node.getRoleName()} '{node.name}'"
                      f"{' with the focus' if has(node, 'FOCUSED') else ''}"
                      for node, depth in descendants(window, self.closed) if has(node, "SHOWING"))
        return "\n".join(lines)

    def all_windows(self):
        """The program's windows, hidden ones included; none if it is not running."""
        return [window for application in self._applications() for window in children(application)]

    def is_running(self):
        """Whether the bus knows the program."""
        return bool(self._applications())

    def _applications(self):
        found = []
        for application in children(pyatspi.Registry.getDesktop(0)):
            try:
                if application.name == self.program:
                    found.append(application)
            except Exception:  # the program has ended
                continue
        return found

    def front_windows(self):
        """The active windows; others do not react to a click."""
        windows = self.all_windows()
        active = [window for window in windows if has(window, "ACTIVE")]
        if active:
            return active
        # After a window was closed the window manager may remove the focus and restore it at once.
        # While a pop-up is open Qt notices only the removal.
        focus = self._focus()
        return [window for window in windows if window.name == focus and has(window, "SHOWING")]

    # Pointer

    def click(self, kind, name):
        """Clicks the centre of a control after it has stopped moving."""
        node = self.find(kind, name)
        # A click between a sheet's appearance and its activation would be lost.
        self.wait_until(self._has_keyboard, "the window in front to get the keyboard")
        self.click_node(node)
        return node

    def centre_of(self, node):
        """The centre of a control on the screen, after it has stopped moving."""
        places = [None]

        def at_rest():
            box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            places.append((box.x + box.width // 2, box.y + box.height // 2))
            return box.width > 0 and places[-1] == places[-2]

        self.wait_until(at_rest, f"'{node.name}' to come to rest")
        return places[-1]

    def click_node(self, node):
        x, y = self.centre_of(node)
        # xdotool's own click waits to detect a second one.
        self._do("mousemove", str(x), str(y), "mousedown", "1", "mouseup", "1")

    def drag_begin(self, place):
        """Presses the mouse button at a point of the screen and starts a drag there."""
        self._drag_position = place
        self._do("mousemove", *map(str, place), "mousedown", "1")

    def drag_to(self, place, is_accepted, what):
        """Drags to a point, and moves the pointer there until is_accepted() is true."""
        (x, y), (to_x, to_y) = self._drag_position, place
        for step in range(1, 10):
            self._do("mousemove", str(x + (to_x - x) * step // 10),
                     str(y + (to_y - y) * step // 10))
        self._drag_position = place
        offsets = itertools.cycle((0, 1))

        def accepted():
            self._do("mousemove", str(to_x + next(offsets)), str(to_y))
            return is_accepted()

        self.wait_until(accepted, what)

    def drop(self):
        self._do("mouseup", "1")

    def drag_slider(self, name, level):
        """Drags the handle of a slider from its centre until it shows the level."""
        node = self.find("slider", name)
        value, (x, y) = node.queryValue(), self.centre_of(node)
        width = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS).width
        step = width / (value.maximumValue - value.minimumValue)
        self._do("mousemove", str(x), str(y), "mousedown", "1")
        # A step is slightly shorter than that, because the handle's width reduces the range.
        for distance in range(1, round(step * abs(level)) + 1):
            if value.currentValue == level:
                break
            self._do("mousemove", str(x + (distance if level > 0 else -distance)), str(y))
        self.wait_until(lambda: value.currentValue == level, f"'{name}' to show {level}")
        self.drop()

    def click_menu_item(self, menu, item):
        """Opens a menu of the menu bar and clicks one of its items."""
        title = self._menu_part(menu)
        self.click_node(title)
        self.wait_for_menu()
        self.click_node(self._menu_part(item))

    # Keyboard

    def press(self, *keys):
        """Sends keys such as "ctrl+s", one after another."""
        self.wait_until(self._has_keyboard, "the window in front to get the keyboard")
        self._do("key", "--clearmodifiers", "--delay", "1", *keys)

    def type(self, text):
        self._do(*TYPE, text)

    def write(self, name, text):
        """Clicks a field, replaces its text, and waits until it shows the new text."""
        self.overwrite(self.click("field", name), text)

    def overwrite(self, node, text):
        """Replaces the text of a field that was clicked or reached by a key, by typing."""
        self.wait_for_focus(node)
        self.press("ctrl+a")
        self.type(text)
        self.wait_until(lambda: self.text(node) == text, f"'{node.name}' to show '{text}'")

    def wait_for_focus(self, node):
        self.wait_until(lambda: has(node, "FOCUSED"), f"'{node.name}' to get the focus")

    def choose(self, pop_up, item):
        """Opens a pop-up and chooses an item with the arrow keys."""
        node = self.click("pop-up", pop_up)
        self.walk_down(node, item)

    def walk_down(self, node, item):
        """Chooses an item of an open pop-up with the arrow keys."""
        items = self.items(node)
        titles = [each.name for each in items]
        # The arrow keys skip separators and disabled items.
        steps = sum(has(each, "FOCUSABLE") for each in items[:titles.index(item)])
        self.press("Home", *["Down"] * steps)
        self.wait_until(lambda: has(items[titles.index(item)], "SELECTED"), f"'{item}' to be lit")
        self.press("Return")
        self.wait_until(lambda: not self.is_expanded(node), f"the list with '{item}' to close")

    def items(self, node):
        """Waits until the list of a pop-up is open; returns its items."""
        self.wait_until(lambda: self.is_expanded(node), f"'{node.name}' to open")
        return [item for part in children(node) for item in children(part)]

    def choose_file(self, pop_up, item, path):
        """Chooses an item that opens a file panel, and answers it with the path."""
        self.choose(pop_up, item)
        self.answer_panel(path, "Select")

    def answer_panel(self, path, prompt):
        """Types a path into the file panel with that button and accepts it."""
        panel = self.find_panel(prompt)
        self.write("Name", path)
        # Not a click: it would only close the list of completions below the field.
        self.press("Return")
        self.wait_until_gone(panel)

    def wait_until_gone(self, window):
        self.wait_until(lambda: not has(window, "SHOWING"), "a window to close")
        self._settle()

    def tab_to(self, node):
        """Presses Tab until the control has the focus, at most 60 times."""
        for _ in range(60):
            if has(node, "FOCUSED"):
                return
            before = self.focused()
            self.press("Tab")
            self.wait_until(lambda: not has(before, "FOCUSED"), "Tab to lead on")
        raise AssertionError(f"Tab does not reach '{node.name}' in:\n{self.dump_ui()}")

    def focused(self):
        """Waits for a control with the focus and returns it.

        Not a row: the current one keeps that state when the focus leaves its table.
        """
        return self.wait_until(lambda: next(
            (node for window in self.front_windows()
             for node, depth in descendants(window, self.closed)
             if depth and has(node, "FOCUSED") and not is_a(node, "row")), None),
            "a control with the focus")

    def wait_for_menu(self):
        """Waits until a menu of the menu bar is open."""
        bar = next(node for window in self.front_windows() for node in children(window)
                   if node.getRole() == pyatspi.ROLE_MENU_BAR)
        self.wait_until(lambda: any(has(menu, "SHOWING") for title in children(bar)
                                    for menu in children(title)), "a menu to open")

    def _menu_part(self, name):
        """Waits for the showing title or item of that name in the menu bar."""
        return self.wait_until(lambda: next(
            (node for window in self.front_windows() for node, _ in descendants(window, ())
             if node.getRole() in ROLES["item"] and node.name == name and has(node, "SHOWING")),
            None), f"the menu's '{name}'")

    def set_time(self, name, time):
        """Types a time such as "07:05" into a time field."""
        self.type_time(self.click("time", name), time)

    def type_time(self, node, time):
        """Types a time into the field that was just entered, whose whole text is selected."""
        self.wait_for_focus(node)
        self.type(time.replace(":", ""))
        self.press("Return")
        self.wait_until(lambda: self.text(node) == time, f"'{node.name}' to show '{time}'")

    # Pop-over and states

    def type_into_pop_over(self, title, text):
        """Types into the pop-over of that title, which has the focus while it is open."""
        self.wait_until(lambda: self.pop_over_shows(title), f"the pop-over '{title}'")
        self.type(text)

    def click_beside_pop_over(self):
        """Clicks the status line at the bottom of the window, where no control is."""
        window = next(window for window in self.all_windows() if window.name == self.program)
        box = window.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self._do("mousemove", str(box.x + box.width // 2), str(box.y + box.height - 6),
                 "mousedown", "1", "mouseup", "1")

    @staticmethod
    def is_expanded(pop_up):
        return has(pop_up, "EXPANDED")

    @staticmethod
    def is_checked(box):
        return has(box, "CHECKED")

    @staticmethod
    def pop_over_shows(title):
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
                              capture_output=True).returncode == 0

    def wait_until(self, condition, what):
        try:
            return wait_until(condition, what)
        except TimeoutError as error:
            raise TimeoutError(f"{error}; the window shows:\n{self.dump_ui()}") from error

    def _has_keyboard(self):
        """Whether the program and the window manager agree on which window has the focus."""
        return self._focus() in [window.name for window in self.front_windows()]

    def _settle(self):
        """Waits until the window manager has handled all requests so far.

        After a window was opened or closed it may still remove the focus and restore it, and Qt
        misses the restoring while a pop-up is open. It handles requests in order, so all earlier
        ones are done once a harmless request has had its effect.
        """
        wanted = "3" if self._queries.do("get_num_desktops") == "2" else "2"
        self._keys.do("set_num_desktops", wanted)
        self.wait_until(lambda: self._queries.do("get_num_desktops") == wanted,
                        "the window manager to settle")

    def _focus(self):
        """The title of the window to which the X server sends the keys."""
        return self._queries.do("getwindowfocus", "getwindowname")

    def _found(self, kind, name):
        for window in self.front_windows():
            known = self._known_in(window)
            # A control found before is still valid unless it is hidden or renamed.
            if has(known.get((kind, name)), "SHOWING") and self._is(known[kind, name], kind, name):
                return known[kind, name]
            for node, _ in descendants(window, self.closed):
                if self._is(node, kind, name) and has(node, "SHOWING"):
                    known[kind, name] = node
                    return node
        return None

    def _known_in(self, window):
        for each, known in self._known:
            if each == window:
                return known
        self._known.append((window, {}))
        return self._known[-1][1]

    @staticmethod
    def _is(node, kind, name):
        """Whether the control is of that kind and has that name, or a label of that name.

        The own name of a pop-up is its current item.
        """
        try:
            return node.getRole() in ROLES[kind] and (node.name == name or name in labels_of(node))
        except Exception:  # no longer exists
            return False

    def _do(self, *command):
        # A text may contain spaces and quotes, which the long-running xdotool would split.
        if command[0] == "type":
            subprocess.run(["xdotool", *command], check=True)
        else:
            self._keys.do(*command)
