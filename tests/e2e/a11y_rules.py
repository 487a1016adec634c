"""Rules for the accessible tree of a window.

A tree is plain data here, independent of the bus, so that the rules themselves can be tested.
"""

from dataclasses import dataclass, field

# Roles of interactive controls; these need a name.
INTERACTIVE = {
    "push button", "toggle button", "check box", "radio button", "combo box", "text", "entry",
    "password text", "spin button", "slider", "menu item", "check menu item", "radio menu item",
    "menu", "list item", "tree item", "table column header", "page tab", "link",
}
# Interactive controls that need an action, so that they work without the keyboard.
PRESSED = {"push button", "toggle button", "check box", "radio button", "combo box", "menu item",
           "check menu item", "list item"}
WINDOWS = {"frame", "window", "dialog", "alert", "file chooser"}
# Roles that may have the focus without being interactive: a label's text can be selected.
CONTAINERS = WINDOWS | {"list", "tree", "table", "tree table", "table cell", "menu bar",
                        "popup menu", "panel", "label"}
# Interactive roles of which several may have the same name.
LISTED = {"list item", "tree item", "table column header"}


@dataclass
class Part:
    """A part of a window as the accessibility bus describes it."""

    role: str
    name: str = ""
    labels: tuple = ()
    showing: bool = True
    sensitive: bool = True
    selectable: bool = True
    focusable: bool = False
    actions: tuple = ()
    parts: list = field(default_factory=list)

    def accessible_name(self):
        """The name of the control; a pop-up's is its label, as its own name is the chosen item."""
        if self.role == "combo box":
            return " ".join(label for label in self.labels if label)
        return self.name or " ".join(label for label in self.labels if label)

    def __str__(self):
        return f"{self.role} '{self.accessible_name()}'"


def shown(part):
    """The part and all of its descendants that are showing."""
    if part.showing:
        yield part
        for inner in part.parts:
            yield from shown(inner)


def faults(tree):
    """A line for each violation in a window."""
    found, met = [], set()
    for part in shown(tree):
        # A separator in a list is an item that cannot be chosen.
        if part.role in LISTED and not part.selectable and not part.name:
            continue
        # A border has the role "frame" too; only the root of the tree is a window.
        if part.role == "frame" and part is not tree:
            continue
        if part.role in INTERACTIVE | WINDOWS and not part.accessible_name().strip():
            found.append(f"{part.role} without a name (it shows '{part.name}')")
        if part.role not in INTERACTIVE | CONTAINERS and part.focusable:
            found.append(f"{part} takes the keyboard, but its role is none of a control")
        if part.role in PRESSED and part.sensitive and not part.actions:
            found.append(f"{part} cannot be pressed")
        if part.role in INTERACTIVE - LISTED:
            if str(part) in met:
                found.append(f"{part} is there twice")
            met.add(str(part))
    return found


def missing(tree, expected):
    """The expected parts, written as "role 'name'", that are not showing."""
    there = {str(part) for part in shown(tree)}
    return [one for one in expected if one not in there]
