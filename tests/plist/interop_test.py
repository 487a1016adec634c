"""Our reader reads the files that Python's plistlib writes as plistlib does.

Usage: interop_test.py PLIST_DUMP
"""

import plistlib
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from random_plist import FINITE_REALS, XML_TEXTS, Source  # found through the line above
from value_text import value_text

DUMP = sys.argv[1]
ROUNDS = 80
# plistlib writes every line end of a text into XML as a line feed.
TEXTS = (*XML_TEXTS, "\r", "\0", "\x1b")
REALS = (*FINITE_REALS, float("inf"), float("-inf"), float("nan"))


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
