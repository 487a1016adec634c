"""Fails when an include points up in the house, or Qt comes into a room that must not know it, or
painting to a place that is not for it.

Distribution Qt puts every module on the include path and all rooms share one, so that the compiler
alone would let both pass.
"""

import re
import sys
from pathlib import Path

from sources import HEIGHTS, ROOT, room_of, sources

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*(?:"([^"]*)"|<([^>]*)>)', re.MULTILINE)
# C++'s own headers have neither a suffix nor a folder nor a capital letter.
STANDARD = re.compile(r"[a-z_]+[0-9]*")
QT = re.compile(r"Q[A-Z].*|Qt.*")
QT_ROOMS = ("platform/qt", "ui/widgets", "app")
SYSTEM_ROOMS = ("platform/qt", "platform/macos")
# The window's colours, fonts and strokes are chosen in one place.
PAINTERS = re.compile(r"QPainter.*|QBrush|QPen|QStylePainter|QProxyStyle")
PAINTING = Path("ui/widgets/look")


def fault_of_own(room, target, root):
    """What is wrong with #include "target" in a room, or None."""
    if not (root / target).is_file():
        return "is no file seen from the root"
    there = room_of(Path(target))
    if room is None or there == room:
        return None
    if there is None:
        return "stands outside of all rooms"
    return None if HEIGHTS[there] < HEIGHTS[room] else f"points from {room} up to {there}"


def fault_of_foreign(path, room, target):
    """What is wrong with #include <target> in a file of a room, or None."""
    if room is None or STANDARD.fullmatch(target):
        return None
    if room == "ui/widgets" and PAINTERS.fullmatch(target) and PAINTING not in path.parents:
        return f"paints outside of {PAINTING}"
    if QT.fullmatch(target):
        return None if room in QT_ROOMS else f"brings Qt into {room}"
    return None if room in SYSTEM_ROOMS else f"brings more than the standard library into {room}"


def faults(root=ROOT):
    """A line for each forbidden include."""
    found = []
    for path in sources(root):
        room = room_of(path)
        text = (root / path).read_text(encoding="utf-8")
        for match in INCLUDE.finditer(text):
            own, foreign = match.groups()
            if own is not None:
                fault = fault_of_own(room, own, root)
            else:
                fault = fault_of_foreign(path, room, foreign)
            if fault:
                line = text.count("\n", 0, match.start(0)) + 1
                found.append(f"{path}:{line}: {own or foreign} {fault}")
    return found


if __name__ == "__main__":
    found = faults()
    print(*found, sep="\n")
    print(f"{len(sources())} sources, {len(found)} forbidden includes")
    sys.exit(1 if found or not sources() else 0)
