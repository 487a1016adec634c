"""Our reader reads the files that Python's plistlib writes as plistlib does.

Usage: interop_test.py PLIST_DUMP
"""

import datetime
import plistlib
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from random_plist import FINITE_REALS, XML_TEXTS, Source  # found through the line above

DUMP = sys.argv[1]
ROUNDS = 80
# plistlib writes every line end of a text into XML as a line feed.
TEXTS = (*XML_TEXTS, "\r", "\0", "\x1b")
REALS = (*FINITE_REALS, float("inf"), float("-inf"), float("nan"))
EPOCH = datetime.datetime(1970, 1, 1)


def quoted(text):
    units = struct.unpack(f">{len(text.encode('utf-16-be')) // 2}H", text.encode("utf-16-be"))
    plain = lambda unit: 32 <= unit < 127 and unit not in (34, 92)
    return '"' + "".join(chr(unit) if plain(unit) else f"\\u{unit:04x}" for unit in units) + '"'


def value_text(value):
    """The notation of value_notation.h."""
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


class Interop(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def dumped(self, files):
        """The line of plist_dump for each content."""
        paths = [self.folder / str(number) for number in range(len(files))]
        for path, content in zip(paths, files):
            path.write_bytes(content)
        output = subprocess.run([DUMP, *paths], check=True, capture_output=True, text=True).stdout
        return output.splitlines()

    def check(self, values, kind):
        files = [plistlib.dumps(value, fmt=kind) for value in values]
        lines = self.dumped(files)
        self.assertEqual(len(lines), len(values))
        for number, (value, line) in enumerate(zip(values, lines)):
            with self.subTest(number=number):
                self.assertEqual(line, "ok\t" + value_text(value))

    def test_xml(self):
        self.check([Source(seed, XML_TEXTS, REALS).dictionary() for seed in range(ROUNDS)], plistlib.FMT_XML)

    def test_binary(self):
        self.check([Source(seed, TEXTS, REALS).dictionary() for seed in range(ROUNDS)], plistlib.FMT_BINARY)

    def test_wide_references(self):
        self.check([{str(number): number for number in range(70000)}], plistlib.FMT_BINARY)

    def test_identifiers(self):
        values = [{"k": plistlib.UID(number)} for number in (0, 255, 256, 65536, 2**32 - 1)]
        self.check(values, plistlib.FMT_BINARY)

    def test_what_neither_reads(self):
        files = [b"<plist><dict><key>a</key></dict></plist>", b"<plist><dict><true/></dict></plist>",
                 b"<plist><array></plist>", b"bplist00" + bytes(40)]
        for content in files:
            with self.subTest(content=content), self.assertRaises(Exception):
                plistlib.loads(content)
        self.assertEqual(self.dumped(files), ["error"] * len(files))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
