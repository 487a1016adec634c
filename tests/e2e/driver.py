"""Finds the controls of a program by role and accessible name and works them as a user does.

Clicks and keys go through the X server. Import it only on a running Desktop: the binding connects
to its bus at once.
"""

import itertools
import subprocess

import pyatspi

from accessible import CLOSED, ROLES, children, descendants, has, labels_of
from waiting import wait_until
from xdotool import Xdotool

# The X server keeps the order of the keys, so they need no pause between them.
TYPE = ("type", "--clearmodifiers", "--delay", "1")


class Driver:
    """Finds controls of the program of that application name and sends it input."""

    closed = CLOSED

    def __init__(self, program):
        self.program = program
        # Two processes: keys would go to the window that was queried last in the same one.
        self._keys, self._queries = Xdotool(), Xdotool()
        self._drag_position = None
        self._known = []  # pairs of a window and its controls found so far, by kind and name

    def close(self):
        """Ends the processes that carry the input."""
        self._keys.close()
        self._queries.close()

    # Controls

    def find(self, kind, name):
        """The showing control of that kind and accessible name, waited for."""
        return self.wait_until(lambda: self._found(kind, name), f"{kind} '{name}'")

    def shows(self, kind, name):
        return self._found(kind, name) is not None

    def find_window(self, title):
        """The window of that title, once it is in front and has the keyboard."""
        window = self.wait_until(
            lambda: next((window for window in self.front_windows()
                          if window.name == title and self._has_keyboard()), None),
            f"the window '{title}'")
        self._settle()
        return window

    def find_panel(self, prompt):
        """The file panel with that button, once it is in front and has the keyboard."""
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
        """The name of a control; the own name of a pop-up is the item that it shows."""
        return next(iter(labels_of(node)), node.name)

    def state_of(self, node):
        """What a control holds: its text, or whether it is on."""
        if node.getRole() in ROLES["check box"]:
            return "on" if self.is_checked(node) else "off"
        return self.text(node)

    def showing(self, *kinds):
        """All showing controls of those kinds in the window in front, in their order."""
        roles = [role for kind in kinds for role in ROLES[kind]]
        return [node for window in self.front_windows()
                for node, _ in descendants(window, self.closed)
                if node.getRole() in roles and has(node, "SHOWING")]

    def dump_ui(self):
        """All controls that show, for the message of a failed search."""
        lines = [f"the keyboard goes to the window '{self._focus()}'"]
        for window in self.all_windows():
            lines.append(f"{'in front' if has(window, 'ACTIVE') else 'behind'}:")
            lines += (f"{'  ' * depth}{node.getRoleName()} '{node.name}'"
                      f"{' with the focus' if has(node, 'FOCUSED') else ''}"
                      for node, depth in descendants(window, self.closed) if has(node, "SHOWING"))
        return "\n".join(lines)

    def all_windows(self):
        """The program's windows, shown or not; none when it is not running."""
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
            except Exception:  # ended meanwhile
                continue
        return found

    def front_windows(self):
        """The windows that have the keyboard, as the others do not answer a click."""
        windows = self.all_windows()
        active = [window for window in windows if has(window, "ACTIVE")]
        if active:
            return active
        # A window manager may take the focus away and give it back at once, some time
        # after a window was closed. While a pop-up is open Qt notices the first and not the second.
        focus = self._focus()
        return [window for window in windows if window.name == focus and has(window, "SHOWING")]

    # Pointer

    def click(self, kind, name):
        """Clicks into the middle of a control once it has come to rest."""
        node = self.find(kind, name)
        # Between a sheet's showing and its getting the keyboard a click would go astray.
        self.wait_until(self._has_keyboard, "the window in front to get the keyboard")
        self.click_node(node)
        return node

    def centre_of(self, node):
        """The middle of a control on the screen, once it has come to rest."""
        places = [None]

        def at_rest():
            box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            places.append((box.x + box.width // 2, box.y + box.height // 2))
            return box.width > 0 and places[-1] == places[-2]

        self.wait_until(at_rest, f"'{node.name}' to come to rest")
        return places[-1]

    def click_node(self, node):
        x, y = self.centre_of(node)
        # A click of the tool's own would wait for another one to follow.
        self._do("mousemove", str(x), str(y), "mousedown", "1", "mouseup", "1")

    def drag_begin(self, place):
        """Presses the button at a place of the screen and begins to drag."""
        self._drag_position = place
        self._do("mousemove", *map(str, place), "mousedown", "1")

    def drag_to(self, place, is_accepted, what):
        """Drags on to a place, and moves about there until is_accepted() is true."""
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
        """Drags the handle of a slider from its middle until it shows the level."""
        node = self.find("slider", name)
        value, (x, y) = node.queryValue(), self.centre_of(node)
        width = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS).width
        step = width / (value.maximumValue - value.minimumValue)
        self._do("mousemove", str(x), str(y), "mousedown", "1")
        # The handle's own width makes a step a little shorter than that.
        for distance in range(1, round(step * abs(level)) + 1):
            if value.currentValue == level:
                break
            self._do("mousemove", str(x + (distance if level > 0 else -distance)), str(y))
        self.wait_until(lambda: value.currentValue == level, f"'{name}' to show {level}")
        self.drop()

    def click_menu_item(self, menu, item):
        """Opens a menu of the bar and clicks an item of it."""
        title = self._menu_part(menu)
        self.click_node(title)
        self.wait_for_menu()
        self.click_node(self._menu_part(item))

    # Keyboard

    def press(self, *keys):
        """Presses keys one after another, such as "ctrl+s"."""
        self.wait_until(self._has_keyboard, "the window in front to get the keyboard")
        self._do("key", "--clearmodifiers", "--delay", "1", *keys)

    def type(self, text):
        self._do(*TYPE, text)

    def write(self, name, text):
        """Clicks into a field, replaces what it holds, and waits until it shows the text."""
        self.overwrite(self.click("field", name), text)

    def overwrite(self, node, text):
        """Replaces by typing what a field holds that was clicked or reached by a key."""
        self.wait_for_focus(node)
        self.press("ctrl+a")
        self.type(text)
        self.wait_until(lambda: self.text(node) == text, f"'{node.name}' to show '{text}'")

    def wait_for_focus(self, node):
        self.wait_until(lambda: has(node, "FOCUSED"), f"'{node.name}' to get the focus")

    def choose(self, pop_up, item):
        """Opens a pop-up and walks down to an item."""
        node = self.click("pop-up", pop_up)
        self.walk_down(node, item)

    def walk_down(self, node, item):
        """Chooses an item of an open pop-up with the arrow keys."""
        items = self.items(node)
        titles = [each.name for each in items]
        # Separators and items that are disabled are passed over.
        steps = sum(has(each, "FOCUSABLE") for each in items[:titles.index(item)])
        self.press("Home", *["Down"] * steps)
        self.wait_until(lambda: has(items[titles.index(item)], "SELECTED"), f"'{item}' to be lit")
        self.press("Return")
        self.wait_until(lambda: not self.is_expanded(node), f"the list with '{item}' to close")

    def items(self, node):
        """The items of a pop-up, once its list is open."""
        self.wait_until(lambda: self.is_expanded(node), f"'{node.name}' to open")
        return [item for part in children(node) for item in children(part)]

    def choose_file(self, pop_up, item, path):
        """Chooses an item that asks for a file, and answers with the path."""
        self.choose(pop_up, item)
        self.answer_panel(path, "Select")

    def answer_panel(self, path, prompt):
        """Writes a path into the file panel with that button, and enters it."""
        panel = self.find_panel(prompt)
        self.write("Name", path)
        # A click would only close the list of completions below the field.
        self.press("Return")
        self.wait_until_gone(panel)

    def wait_until_gone(self, window):
        self.wait_until(lambda: not has(window, "SHOWING"), "a window to close")
        self._settle()

    def tab_to(self, node):
        """Presses Tab until the control has the focus, once around at most."""
        for _ in range(60):
            if has(node, "FOCUSED"):
                return
            before = self.focused()
            self.press("Tab")
            self.wait_until(lambda: not has(before, "FOCUSED"), "Tab to lead on")
        raise AssertionError(f"Tab does not reach '{node.name}' in:\n{self.dump_ui()}")

    def focused(self):
        """The control that has the focus, waited for."""
        return self.wait_until(lambda: next(
            (node for window in self.front_windows()
             for node, depth in descendants(window, self.closed)
             if depth and has(node, "FOCUSED")), None), "a control with the focus")

    def wait_for_menu(self):
        """Waits until a menu of the bar is open."""
        bar = next(node for window in self.front_windows() for node in children(window)
                   if node.getRole() == pyatspi.ROLE_MENU_BAR)
        self.wait_until(lambda: any(has(menu, "SHOWING") for title in children(bar)
                                    for menu in children(title)), "a menu to open")

    def _menu_part(self, name):
        """The showing title or item of the menu bar of that name, waited for."""
        return self.wait_until(lambda: next(
            (node for window in self.front_windows() for node, _ in descendants(window, ())
             if node.getRole() in ROLES["item"] and node.name == name and has(node, "SHOWING")),
            None), f"the menu's '{name}'")

    def set_time(self, name, time):
        """Types a time such as "07:05" into a time field."""
        self.type_time(self.click("time", name), time)

    def type_time(self, node, time):
        """Types a time into the field that was just entered, which has it selected as a whole."""
        self.wait_for_focus(node)
        self.type(time.replace(":", ""))
        self.press("Return")
        self.wait_until(lambda: self.text(node) == time, f"'{node.name}' to show '{time}'")

    # Pop-over and states

    def type_into_pop_over(self, title, text):
        """Types into the pop-over of that title, which has the keyboard while it is open."""
        self.wait_until(lambda: self.pop_over_shows(title), f"the pop-over '{title}'")
        self.type(text)

    def click_beside_pop_over(self):
        """Clicks into the status line at the foot of the window, where no control is."""
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
        """Whether the program and the window manager agree on which window has the keyboard."""
        return self._focus() in [window.name for window in self.front_windows()]

    def _settle(self):
        """Waits until the window manager has handled all requests so far.

        After a window has come or gone it may still take the focus away and give it back, and Qt
        misses the second while a pop-up is open. It handles requests in their order, so a harmless
        one that has had its effect means that all before it are done.
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
            # What was found once is there still, unless it is hidden or has got another name.
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
        """Whether the control is called so: by itself, or by the label beside it.

        The own name of a pop-up is the item that it shows.
        """
        try:
            return node.getRole() in ROLES[kind] and (node.name == name or name in labels_of(node))
        except Exception:  # vanished while being looked at
            return False

    def _do(self, *command):
        # A text may hold blanks and quotes, which the tool that is kept running would take apart.
        if command[0] == "type":
            subprocess.run(["xdotool", *command], check=True)
        else:
            self._keys.do(*command)
