"""The values of plistlib in the notation of value_notation.h."""

import datetime
import plistlib
import struct

EPOCH = datetime.datetime(1970, 1, 1)


def quoted(text):
    units = struct.unpack(f">{len(text.encode('utf-16-be')) // 2}H", text.encode("utf-16-be"))
    plain = lambda unit: 32 <= unit < 127 and unit not in (34, 92)
    return '"' + "".join(chr(unit) if plain(unit) else f"\\u{unit:04x}" for unit in units) + '"'


def value_text(value):
    """The notation of value_notation.h."""
    if value is None:
        return "N"
    if isinstance(value, dict):
        entries = sorted(value.items(), key=lambda entry: entry[0].encode())
        return "{" + ",".join(f"{quoted(key)}={value_text(entry)}" for key, entry in entries) + "}"
    if isinstance(value, list):
        return "(" + ",".join(map(value_text, value)) + ")"
    if isinstance(value, str):
        return "S" + quoted(value)
    if isinstance(value, bool):
        return f"B{value:d}"
    if isinstance(value, int):
        return f"I{value}"
    if isinstance(value, float):
        return "Rnan" if value != value else "R" + struct.pack(">d", value).hex()
    if isinstance(value, bytes):
        return "D" + value.hex()
    if isinstance(value, plistlib.UID):
        return value_text({"CF$UID": value.data})
    return f"T{(value - EPOCH) // datetime.timedelta(seconds=1)}"
