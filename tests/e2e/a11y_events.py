"""Writes the accessibility events of all programs on the bus, one line for each event.

    a11y_events.py <file>
"""

import sys

import pyatspi

EVENTS = ("window:activate", "object:state-changed:showing",
          "object:property-change:accessible-description")


def write(line):
    with open(sys.argv[1], "a", encoding="utf-8") as file:
        print(line, file=file)


def record(event):
    try:
        words = (event.type, event.source.getRoleName(), event.source.name,
                 event.source.description, event.detail1)
    except Exception:  # the source no longer exists; the binding raises the bus's own errors
        return
    write(" | ".join(str(word).replace("\n", " ") for word in words))


pyatspi.Registry.registerEventListener(record, *EVENTS)
write("listening")
pyatspi.Registry.start()
