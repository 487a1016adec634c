"""What must be true of a window for somebody who does not see it: a check of its accessible tree.

Knows no bus: a tree is plain data, so that the check itself can be tested.
"""

from dataclasses import dataclass, field

# What is worked with, and so needs a name.
INTERACTIVE = {
    "push button", "toggle button", "check box", "radio button", "combo box", "text", "entry",
    "password text", "spin button", "slider", "menu item", "check menu item", "radio menu item",
    "menu", "list item", "tree item", "table column header", "page tab", "link",
}
# Of these, what can be worked without the keyboard.
PRESSED = {"push button", "toggle button", "check box", "radio button", "combo box", "menu item",
           "check menu item", "list item"}
WINDOWS = {"frame", "window", "dialog", "alert", "file chooser"}
# What may have the keyboard without being worked with by itself: a label's text can be selected.
HOLDERS = WINDOWS | {"list", "tree", "table", "tree table", "table cell", "menu bar", "popup menu",
                     "panel", "label"}
# Where many things of one name are in order.
LISTED = {"list item", "tree item", "table column header"}


@dataclass
class Part:
    """A part of a window as assistive tools are told of it."""

    role: str
    name: str = ""
    labels: tuple = ()
    showing: bool = True
    sensitive: bool = True
    selectable: bool = True
    focusable: bool = False
    actions: tuple = ()
    parts: list = field(default_factory=list)

    def called(self):
        """A pop-up tells the item that it shows as its name; its own name is its label's."""
        if self.role == "combo box":
            return " ".join(label for label in self.labels if label)
        return self.name or " ".join(label for label in self.labels if label)

    def __str__(self):
        return f"{self.role} '{self.called()}'"


def shown(part):
    """The part and all that shows of what it holds."""
    if part.showing:
        yield part
        for inner in part.parts:
            yield from shown(inner)


def faults(tree):
    """What is wrong with a window, a line for each."""
    found, met = [], set()
    for part in shown(tree):
        # A separator in a list is an item that nobody can choose.
        if part.role in LISTED and not part.selectable and not part.name:
            continue
        # A border has the role of a window's frame, and is one only where it stands for it all.
        if part.role == "frame" and part is not tree:
            continue
        if part.role in INTERACTIVE | WINDOWS and not part.called().strip():
            found.append(f"{part.role} without a name (it shows '{part.name}')")
        if part.role not in INTERACTIVE | HOLDERS and part.focusable:
            found.append(f"{part} takes the keyboard, but its role tells nobody what it is")
        if part.role in PRESSED and part.sensitive and not part.actions:
            found.append(f"{part} cannot be pressed")
        if part.role in INTERACTIVE - LISTED:
            if str(part) in met:
                found.append(f"{part} is there twice")
            met.add(str(part))
    return found


def missing(tree, expected):
    """Those of the expected parts, told as "role 'name'", that do not show."""
    there = {str(part) for part in shown(tree)}
    return [one for one in expected if one not in there]
