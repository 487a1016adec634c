"""Tests the files of the macOS bundle: macos_files_test.py <plist> <entitlements> <icns> <version>

Parses them with independent code, because macOS's own tools are not available on Linux.
"""

import plistlib
import struct
import sys
import unittest
from pathlib import Path

PLIST, ENTITLEMENTS, ICNS = (Path(argument) for argument in sys.argv[1:4])
VERSION = sys.argv[4]
# Pixels by the type of an entry; ic11 to ic14 are 16, 32, 128 and 256 points at scale 2.
PICTURES = {"ic07": 128, "ic08": 256, "ic09": 512, "ic10": 1024,
            "ic11": 32, "ic12": 64, "ic13": 256, "ic14": 512}


def entries(data):
    """Yields type and content of each entry; a length includes the eight bytes of its header."""
    magic, total = struct.unpack(">4sI", data[:8])
    assert (magic, total) == (b"icns", len(data)), (magic, total, len(data))
    position = 8
    while position < len(data):
        kind, length = struct.unpack(">4sI", data[position:position + 8])
        assert 8 < length <= len(data) - position, (kind, length)
        yield kind.decode(), data[position + 8:position + length]
        position += length


class Bundle(unittest.TestCase):
    def test_description(self):
        self.assertEqual(plistlib.loads(PLIST.read_bytes()), {
            "CFBundleDevelopmentRegion": "en",
            "CFBundleDisplayName": "Frimbolate",
            "CFBundleExecutable": "Frimbolate",
            "CFBundleIconFile": ICNS.name,
            "CFBundleIdentifier": "com.qz.Frimbolate",
            "CFBundleInfoDictionaryVersion": "6.0",
            "CFBundleName": "Frimbolate",
            "CFBundlePackageType": "APPL",
            "CFBundleShortVersionString": VERSION,
            "CFBundleVersion": VERSION,
            "LSApplicationCategoryType": "public.app-category.utilities",
            "LSMinimumSystemVersion": "13.3",
            "NSHighResolutionCapable": True,
            "NSHumanReadableCopyright": "Copyright © 2026 The Frimbolate developers",
            "NSPrincipalClass": "NSApplication",
        })

    def test_entitlements(self):
        self.assertEqual(plistlib.loads(ENTITLEMENTS.read_bytes()), {
            "com.apple.security.app-sandbox": True,
            "com.apple.security.files.bookmarks.app-scope": True,
            "com.apple.security.files.user-selected.read-write": True,
        })

    def test_icon_holds_an_image_of_the_right_size_for_each_type(self):
        sizes = {}
        for kind, picture in entries(ICNS.read_bytes()):
            self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n", kind)
            width, height = struct.unpack(">II", picture[16:24])
            self.assertEqual(width, height, kind)
            self.assertNotIn(kind, sizes)
            sizes[kind] = width
        self.assertEqual(sizes, PICTURES)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
