"""The memory through which a test tells the library of faults in the program what to do.

The layout is that of tests/faults/fault_control.h.
"""

import mmap
import struct
from itertools import takewhile

KINDS = ("none", "no space", "quota", "input/output", "denied", "read-only", "interrupted",
         "too many open", "done but error", "short transfer", "zero transfer", "killed before",
         "killed after")
KILLS = ("killed before", "killed after")
TRANSFERS = ("short transfer", "zero transfer")

_HEAD = struct.Struct("=6I4I16s512s512s")
_CALL = struct.Struct("=16s112sII")
_LOGGED = 512


def _text(field):
    return bytes(takewhile(bool, field)).decode(errors="replace")


class FaultControl:
    """A file that the program maps. Arms one fault at a time below one folder."""

    def __init__(self, path, watched):
        self.path = path
        self._watched = str(watched).encode()
        path.write_bytes(bytes(_HEAD.size + _LOGGED * _CALL.size))
        with open(path, "r+b") as file:
            self._memory = mmap.mmap(file.fileno(), 0)

    def variables(self, library):
        """The environment of a program that is to meet the faults."""
        return {"LD_PRELOAD": str(library), "FRIMBOLATE_FAULT_CONTROL": str(self.path)}

    def arm(self, call=0, kind="none"):
        """Counts calls from now on; the one of that number, the first being 1, meets the fault."""
        self.disarm()
        self._memory[:_HEAD.size] = _HEAD.pack(0, 0, 0, 0, 0, 0, call, KINDS.index(kind), 0, 0,
                                               b"", b"", self._watched)
        self._memory[:4] = struct.pack("=I", 1)

    def disarm(self):
        self._memory[:4] = bytes(4)

    def took_place(self):
        return self._head()[2] != 0

    def calls(self):
        """The counted calls: the function, and whether it transfers bytes."""
        count = min(self._head()[1], _LOGGED)
        found = (_CALL.unpack_from(self._memory, _HEAD.size + i * _CALL.size)
                 for i in range(count))
        return [(_text(function), bool(is_transfer)) for function, _, is_transfer, _ in found]

    def _head(self):
        return _HEAD.unpack_from(self._memory)


def points(calls):
    """All pairs of the number of a call and a kind of fault that the call can meet."""
    return [(number, kind) for number, (_, is_transfer) in enumerate(calls, 1)
            for kind in KINDS[1:] if is_transfer or kind not in TRANSFERS]
