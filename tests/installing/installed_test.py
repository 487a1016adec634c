"""Tests of the installed files: installed_test.py <prefix> <version>"""

import gzip
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from validators import ID, desktop_entry_faults, faults_below, manual_faults, metainfo_faults

PREFIX, VERSION = Path(sys.argv[1]), sys.argv[2]
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
PICTURES = {f"share/icons/hicolor/{size}x{size}/apps/{ID}.png": size for size in SIZES}
FILES = {
    "bin/frimbolate",
    "lib/frimbolate/modules/frimbolate-window.so",
    f"share/applications/{ID}.desktop",
    "share/bash-completion/completions/frimbolate",
    "share/doc/frimbolate/changelog.gz",
    "share/doc/frimbolate/copyright",
    f"share/icons/hicolor/scalable/apps/{ID}.svg",
    "share/man/man1/frimbolate.1.gz",
    f"share/metainfo/{ID}.metainfo.xml",
    "share/zsh/vendor-completions/_frimbolate",
    *PICTURES,
}
MANUAL = PREFIX / "share/man/man1/frimbolate.1.gz"
CHANGELOG = PREFIX / "share/doc/frimbolate/changelog.gz"


def answer(*arguments):
    """The standard output of the installed program, run without a display."""
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    environment["QT_QPA_PLATFORM"] = "offscreen"
    return subprocess.run([PREFIX / "bin/frimbolate", *arguments], env=environment, text=True,
                          capture_output=True, check=True).stdout


class Installed(unittest.TestCase):
    def test_exactly_these_files_are_installed(self):
        found = {path.relative_to(PREFIX).as_posix()
                 for path in PREFIX.rglob("*") if not path.is_dir()}
        self.assertEqual(found, FILES)

    def test_all_files_are_readable_and_only_the_program_is_executable(self):
        for name in FILES:
            mode = (PREFIX / name).stat().st_mode & 0o777
            self.assertEqual(mode, 0o755 if name == "bin/frimbolate" else 0o644, name)

    def test_the_validators_find_no_fault(self):
        self.assertEqual(faults_below(PREFIX), [])

    def test_the_program_prints_its_version(self):
        self.assertEqual(answer("--version"), f"Frimbolate {VERSION}\n")

    def test_the_newest_release_is_this_version(self):
        changelog = gzip.decompress(CHANGELOG.read_bytes()).decode()
        self.assertTrue(changelog.startswith(f"frimbolate ({VERSION}) "), changelog)
        metainfo = (PREFIX / f"share/metainfo/{ID}.metainfo.xml").read_text(encoding="utf-8")
        self.assertEqual(re.findall(r'<release version="([^"]*)"', metainfo)[0], VERSION)

    def test_the_manual_lists_the_options_of_the_program(self):
        manual = gzip.decompress(MANUAL.read_bytes()).decode().replace("\\-", "-")
        options = manual[manual.index(".SH OPTIONS"):manual.index(".SH ENVIRONMENT")]
        option = re.compile(r"(?<![\w-])--?[a-z][a-z-]*")
        self.assertEqual(set(option.findall(options)), set(option.findall(answer("--help"))))

    def test_compressed_files_contain_neither_name_nor_time(self):
        for path in (MANUAL, CHANGELOG):
            magic, _, flags, time = struct.unpack("<HBBI", path.read_bytes()[:8])
            self.assertEqual((magic, flags, time), (0x8B1F, 0, 0), path)

    def test_every_icon_has_the_size_of_its_folder_and_an_alpha_channel(self):
        for name, size in PICTURES.items():
            data = (PREFIX / name).read_bytes()
            self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n", name)
            width, height, _, colour = struct.unpack(">IIBB", data[16:26])
            self.assertEqual((width, height, colour), (size, size, 6), name)


class Validators(unittest.TestCase):
    """The validators find a fault in a damaged file."""

    def faults_of(self, validator, name, sound, damaged):
        content = (PREFIX / name).read_bytes()
        content = gzip.decompress(content) if name.endswith(".gz") else content
        self.assertIn(sound, content)
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / Path(name).name.removesuffix(".gz")
            path.write_bytes(content.replace(sound, damaged))
            return validator(path)

    def test_desktop_entry(self):
        self.assertTrue(self.faults_of(desktop_entry_faults, f"share/applications/{ID}.desktop",
                                       b"Categories=Utility;", b"Categories=Nonsense;"))

    def test_metainfo(self):
        name = f"share/metainfo/{ID}.metainfo.xml"
        self.assertTrue(self.faults_of(metainfo_faults, name, b"<summary>", b"<resume>"))
        self.assertTrue(self.faults_of(metainfo_faults, name, b'<content_rating type="oars-1.1"/>',
                                       b""))

    def test_manual(self):
        self.assertTrue(self.faults_of(manual_faults, "share/man/man1/frimbolate.1.gz",
                                       b".SH FILES", b".XY FILES"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
