"""The accessible tree of a program: roles, states, parts and labels of its controls.

Import it only on a running Desktop: the binding connects to its bus on import.
"""

import pyatspi

ROLES = {
    "button": (pyatspi.ROLE_PUSH_BUTTON,),
    "check box": (pyatspi.ROLE_CHECK_BOX,),
    "dialog": (pyatspi.ROLE_DIALOG, pyatspi.ROLE_ALERT, pyatspi.ROLE_FILE_CHOOSER),
    "field": (pyatspi.ROLE_TEXT,),
    "label": (pyatspi.ROLE_LABEL,),
    "list": (pyatspi.ROLE_LIST,),
    "item": (pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM, pyatspi.ROLE_RADIO_MENU_ITEM),
    "pop-up": (pyatspi.ROLE_COMBO_BOX,),
    "row": (pyatspi.ROLE_TABLE_CELL,),
    "segment": (pyatspi.ROLE_RADIO_BUTTON,),
    "slider": (pyatspi.ROLE_SLIDER,),
    "table": (pyatspi.ROLE_TABLE,),
    "time": (pyatspi.ROLE_SPIN_BUTTON,),
    "window": (pyatspi.ROLE_FRAME, pyatspi.ROLE_WINDOW),
}
# A search does not descend into these: they have many parts, most of which are hidden.
CLOSED = (pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_LIST, pyatspi.ROLE_MENU_BAR, pyatspi.ROLE_TREE)


def has(node, state):
    """Whether a control is in that state; False if it no longer exists."""
    wanted = getattr(pyatspi, f"STATE_{state}")
    try:
        return node.getState().contains(wanted)
    except Exception:  # the binding raises whatever the bus answered
        return False


def is_a(node, *kinds):
    """Whether a control is of one of those kinds; False if it no longer exists."""
    try:
        return any(node.getRole() in ROLES[kind] for kind in kinds)
    except Exception:  # no longer exists
        return False


def name_of(node):
    """The accessible name of a control; empty if it no longer exists."""
    try:
        return node.name
    except Exception:  # no longer exists
        return ""


def children(node):
    """The parts of a control; none if it no longer exists."""
    try:
        return [child for child in (node.getChildAtIndex(i) for i in range(node.childCount))
                if child is not None]
    except Exception:  # no longer exists
        return []


def descendants(node, closed=CLOSED, depth=0):
    """A control and all its descendants, each with its depth."""
    yield node, depth
    try:
        if node.getRole() in closed:
            return
    except Exception:  # no longer exists
        return
    for child in children(node):
        yield from descendants(child, closed, depth + 1)


def labels_of(node):
    """The names of the labels of a control."""
    return [relation.getTarget(i).name
            for relation in node.getRelationSet()
            if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY
            for i in range(relation.getNTargets())]
