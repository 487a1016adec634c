"""Python's plistlib reads our files, xmllint validates them, and we read the files of plistlib.

Usage: interop_test.py PROPERTY_LIST_TOOL DTD. Fails without xmllint.
"""

import plistlib
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from random_plist import XML_TEXTS, Source  # found through the line above

TOOL, DTD = sys.argv[1:3]
ROUNDS = 60
# plistlib writes every line end into XML as a line feed.
TEXTS = (*XML_TEXTS, "\r")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


def typed(value):
    """The value with the type of each part, since Python compares 1, 1.0 and True as equal."""
    if isinstance(value, dict):
        return {key: typed(inner) for key, inner in value.items()}
    if isinstance(value, list):
        return [typed(inner) for inner in value]
    return type(value).__name__, value


class Agreement(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = Path(folder.name) / "list.plist"

    def our_view(self, content):
        self.file.write_bytes(content)
        return run(TOOL, "rewrite", self.file)

    def test_we_read_what_plistlib_writes(self):
        for seed in range(ROUNDS):
            for kind, texts in ((plistlib.FMT_XML, XML_TEXTS), (plistlib.FMT_BINARY, TEXTS)):
                original = Source(seed, texts).dictionary()
                with self.subTest(seed=seed, kind=kind.name):
                    ours = self.our_view(plistlib.dumps(original, fmt=kind))
                    self.assertTrue(typed(plistlib.loads(ours)) == typed(original))

    def test_both_forms_of_a_list_become_the_same_bytes(self):
        for seed in range(ROUNDS):
            with self.subTest(seed=seed):
                run(TOOL, "random", str(seed), self.file)
                written = self.file.read_bytes()
                self.assertEqual(run(TOOL, "rewrite", self.file), written)
                binary = plistlib.dumps(plistlib.loads(written), fmt=plistlib.FMT_BINARY)
                self.assertEqual(self.our_view(binary), written)

    def test_a_large_binary_list_with_wide_references(self):
        original = {str(number): number for number in range(70000)}
        ours = self.our_view(plistlib.dumps(original, fmt=plistlib.FMT_BINARY))
        self.assertEqual(plistlib.loads(ours), original)

    def test_what_we_write_is_valid(self):
        for seed in range(ROUNDS):
            with self.subTest(seed=seed):
                run(TOOL, "random", str(seed), self.file)
                run("xmllint", "--nonet", "--noout", "--dtdvalid", DTD, self.file)

    def test_values_survive_a_switch(self):
        for seed in range(ROUNDS):
            for kind in plistlib.FMT_XML, plistlib.FMT_BINARY:
                original = Source(seed, XML_TEXTS).dictionary()
                with self.subTest(seed=seed, kind=kind.name):
                    self.file.write_bytes(plistlib.dumps(original, fmt=kind))
                    for enabled in False, True:
                        run(TOOL, "switch", self.file)
                        switched = plistlib.loads(self.file.read_bytes())
                        self.assertTrue(typed(switched) == typed(original | {"Enabled": enabled}))

    def test_the_validator_does_refuse(self):
        for body in ("<set/>", "<dict><true/></dict>", "<true/><true/>"):
            with self.subTest(body=body):
                self.file.write_text(f"<plist>{body}</plist>")
                with self.assertRaises(subprocess.CalledProcessError):
                    run("xmllint", "--nonet", "--noout", "--dtdvalid", DTD, self.file)

    def test_an_identifier_is_written_in_its_xml_form(self):
        original = {"k": plistlib.UID(1)}
        ours = self.our_view(plistlib.dumps(original, fmt=plistlib.FMT_BINARY))
        self.assertEqual(plistlib.loads(ours), {"k": {"CF$UID": 1}})

    def test_we_refuse_what_has_no_xml_form(self):
        identifier = plistlib.dumps({"k": plistlib.UID(1)}, fmt=plistlib.FMT_BINARY)
        # plistlib writes no null, so the marker of the identifier is changed into one.
        null = identifier.replace(b"\x80\x01", b"\x00\x01")
        with self.assertRaises(subprocess.CalledProcessError) as caught:
            self.our_view(null)
        self.assertIn(b"a null", caught.exception.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
