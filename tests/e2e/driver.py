"""What a person does with a program: looks for a control, clicks it, types.

Controls are found as a screen reader finds them, by role and accessible name; clicks and keys go
through the X server. Import it only on a running Desktop: the binding connects to its bus at once.
"""

import itertools
import subprocess

import pyatspi

from desktop import wait_until
from xdotool import Tool

ROLES = {
    "button": (pyatspi.ROLE_PUSH_BUTTON,),
    "check box": (pyatspi.ROLE_CHECK_BOX,),
    "dialog": (pyatspi.ROLE_DIALOG, pyatspi.ROLE_ALERT, pyatspi.ROLE_FILE_CHOOSER),
    "field": (pyatspi.ROLE_TEXT,),
    "label": (pyatspi.ROLE_LABEL,),
    "list": (pyatspi.ROLE_LIST,),
    "pop-up": (pyatspi.ROLE_COMBO_BOX,),
    "slider": (pyatspi.ROLE_SLIDER,),
    "time": (pyatspi.ROLE_SPIN_BUTTON,),
    "window": (pyatspi.ROLE_FRAME, pyatspi.ROLE_WINDOW),
}
# What these hold is asked for by who looks into them; there is much of it, and most is not shown.
CLOSED = (pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_LIST, pyatspi.ROLE_MENU_BAR, pyatspi.ROLE_TREE)
# The X server keeps the order of the keys, however fast they come; a pause serves nobody.
TYPE = ("type", "--clearmodifiers", "--delay", "1")


def has(node, state):
    """Whether a control is in that state; one that has vanished is in none."""
    wanted = getattr(pyatspi, f"STATE_{state}")
    try:
        return node.getState().contains(wanted)
    except Exception:  # the binding raises whatever the bus told
        return False


def children(node):
    try:
        return [child for child in (node.getChildAtIndex(i) for i in range(node.childCount))
                if child is not None]
    except Exception:  # vanished while being looked at
        return []


def descendants(node, closed=CLOSED, depth=0):
    """A control and all that it holds, with how deep it stands."""
    yield node, depth
    try:
        if node.getRole() in closed:
            return
    except Exception:  # vanished while being looked at
        return
    for child in children(node):
        yield from descendants(child, closed, depth + 1)


def labels_of(node):
    """The names of the labels that stand beside a control."""
    return [relation.getTarget(i).name
            for relation in node.getRelationSet()
            if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY
            for i in range(relation.getNTargets())]


class Person:
    """Works with the program that calls itself so."""

    closed = CLOSED

    def __init__(self, program):
        self._program = program
        # Apart, for keys would go to the window that was asked for last in the same tool.
        self._keys, self._asked = Tool(), Tool()
        self._desktops = 2
        self._at = None  # where a drag is
        self._known = []  # a window, and what was found in it by kind and name

    # Eyes

    def look(self, kind, name):
        """The showing control of that kind and accessible name, waited for."""
        return self.wait_until(lambda: self._found(kind, name), f"{kind} '{name}'")

    def sees(self, kind, name):
        return self._found(kind, name) is not None

    def look_at_window(self, title):
        """The window of that title, once it is in front and listens."""
        window = self.wait_until(
            lambda: next((window for window in self.front_windows()
                          if window.name == title and self._listens()), None),
            f"the window '{title}'")
        self._settle()
        return window

    def look_at_panel(self, prompt):
        """The file panel whose button bears that prompt, once it is in front and listens."""
        panel = self.wait_until(
            lambda: next((window for window in self.front_windows()
                          if window.getRole() in ROLES["dialog"] and self._listens()
                          and self._found("button", prompt)), None),
            f"the panel with '{prompt}'")
        self._settle()
        return panel

    def read(self, kind, name):
        return self.text(self.look(kind, name))

    @staticmethod
    def text(node):
        try:
            return node.queryText().getText(0, -1)
        except NotImplementedError:
            return node.name

    @staticmethod
    def name_of(node):
        """What a control is called; a pop-up tells the item that it shows as its own name."""
        return next(iter(labels_of(node)), node.name)

    def state_of(self, node):
        """What a control holds: its text, or whether it is on."""
        if node.getRole() in ROLES["check box"]:
            return "on" if self.is_checked(node) else "off"
        return self.text(node)

    def showing(self, *kinds):
        """All showing controls of those kinds in the window in front, in their order."""
        roles = [role for kind in kinds for role in ROLES[kind]]
        return [node for window in self.front_windows() for node, _ in descendants(window, self.closed)
                if node.getRole() in roles and has(node, "SHOWING")]

    def sight(self):
        """All that shows, for the report of a search in vain."""
        lines = [f"the keyboard goes to the window '{self._focus()}'"]
        for window in self.all_windows():
            lines.append(f"{'in front' if has(window, 'ACTIVE') else 'behind'}:")
            lines += (f"{'  ' * depth}{node.getRoleName()} '{node.name}'"
                      f"{' with the focus' if has(node, 'FOCUSED') else ''}"
                      for node, depth in descendants(window, self.closed) if has(node, "SHOWING"))
        return "\n".join(lines)

    def all_windows(self):
        """The program's windows, shown or not; none when it is not running."""
        for application in children(pyatspi.Registry.getDesktop(0)):
            try:
                if application.name == self._program:
                    return children(application)
            except Exception:  # ended meanwhile
                continue
        return []

    def front_windows(self):
        """The windows that have the keyboard, as the others do not answer a click."""
        windows = self.all_windows()
        active = [window for window in windows if has(window, "ACTIVE")]
        if active:
            return active
        # A window manager may take the keyboard away and give it back in one breath, some time
        # after a window was closed. While a pop-up is open Qt heeds the first and not the second.
        focus = self._focus()
        return [window for window in windows if window.name == focus and has(window, "SHOWING")]

    # Pointer

    def click(self, kind, name):
        """Clicks into the middle of a control once it has come to rest."""
        node = self.look(kind, name)
        # Between a sheet's showing and its getting the keyboard a click would go astray.
        self.wait_until(self._listens, "the window in front to get the keyboard")
        self.click_node(node)
        return node

    def place_of(self, node):
        """The middle of a control on the screen, once it has come to rest."""
        places = [None]

        def at_rest():
            box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            places.append((box.x + box.width // 2, box.y + box.height // 2))
            return box.width > 0 and places[-1] == places[-2]

        self.wait_until(at_rest, f"'{node.name}' to come to rest")
        return places[-1]

    def click_node(self, node):
        x, y = self.place_of(node)
        # A click of the tool's own would wait for another one to follow.
        self._do("mousemove", str(x), str(y), "mousedown", "1", "mouseup", "1")

    def grasp(self, place):
        """Presses the button at a place of the screen and begins to drag."""
        self._at = place
        self._do("mousemove", *map(str, place), "mousedown", "1")

    def drag_to(self, place, is_felt, what):
        """Drags on to a place, and moves about there as a hand does until it is felt."""
        (x, y), (to_x, to_y) = self._at, place
        for step in range(1, 10):
            self._do("mousemove", str(x + (to_x - x) * step // 10), str(y + (to_y - y) * step // 10))
        self._at = place
        trembling = itertools.cycle((0, 1))

        def felt():
            self._do("mousemove", str(to_x + next(trembling)), str(to_y))
            return is_felt()

        self.wait_until(felt, what)

    def let_go(self):
        self._do("mouseup", "1")

    # Keyboard

    def press(self, *keys):
        """Presses keys one after another, such as "ctrl+s"."""
        self.wait_until(self._listens, "the window in front to get the keyboard")
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
        self.wait_until(lambda: has(node, "FOCUSED"), f"'{node.name}' to listen")

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
        """Writes a path into the file panel whose button bears that prompt, and enters it."""
        panel = self.look_at_panel(prompt)
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
        raise AssertionError(f"Tab does not reach '{node.name}' in:\n{self.sight()}")

    def focused(self):
        """The control that has the focus, waited for."""
        return self.wait_until(lambda: next(
            (node for window in self.front_windows() for node, depth in descendants(window, self.closed)
             if depth and has(node, "FOCUSED")), None), "a control with the focus")

    def wait_for_menu(self):
        """Waits until a menu of the bar is open."""
        bar = next(node for window in self.front_windows() for node in children(window)
                   if node.getRole() == pyatspi.ROLE_MENU_BAR)
        self.wait_until(lambda: any(has(menu, "SHOWING") for title in children(bar)
                                    for menu in children(title)), "a menu to open")

    def set_time(self, name, time):
        """Types a time such as "07:05" into a time field."""
        self.type_time(self.click("time", name), time)

    def type_time(self, node, time):
        """Types a time into the field that was just entered, which has it selected as a whole."""
        self.wait_for_focus(node)
        self.type(time.replace(":", ""))
        self.press("Return")
        self.wait_until(lambda: self.text(node) == time, f"'{node.name}' to show '{time}'")

    # Accessibility bus

    def act(self, kind, name, action=None):
        """Sends an action to a control, its first one unless it is named."""
        node = self.look(kind, name)
        actions = node.queryAction()
        names = [actions.getName(i) for i in range(actions.nActions)]
        assert actions.doAction(names.index(action) if action else 0), f"'{name}' did not act"
        return node

    def set_text(self, name, text):
        """Sets the text of a field without typing it."""
        node = self.look("field", name)
        node.queryEditableText().setTextContents(text)
        self.wait_until(lambda: self.text(node) == text, f"'{name}' to show '{text}'")

    def type_into_pop_over(self, title, text):
        """Types into the pop-over of that title, which has the keyboard while it is open."""
        wait_until(lambda: self.pop_over_shows(title), f"the pop-over '{title}'")
        self.type(text)

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
            raise TimeoutError(f"{error}; in sight are:\n{self.sight()}") from error

    def _listens(self):
        """Whether the program and the window manager agree on which window has the keyboard."""
        return self._focus() in [window.name for window in self.front_windows()]

    def _settle(self):
        """Waits until the window manager has worked off what it was told so far.

        After a window has come or gone it may still take the keyboard away and give it back, and Qt
        loses sight of that while a pop-up is open. It takes its messages in their order, so that
        the last one done, a harmless one, means that all are.
        """
        self._desktops = 5 - self._desktops  # 2 or 3
        self._keys.do("set_num_desktops", str(self._desktops))
        self.wait_until(lambda: self._asked.do("get_num_desktops") == str(self._desktops),
                        "the window manager to settle")

    def _focus(self):
        """The title of the window to which the X server sends the keys."""
        return self._asked.do("getwindowfocus", "getwindowname")

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

        A pop-up tells the item that it shows as its own name.
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
