"""Runs the scripts that sign the macOS bundle and make its disk image: signing_test.py <cmake> <app>

The tools of macOS are pretended: each writes its arguments into a journal.
"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CMAKE, SCRIPTS = sys.argv[1], Path(sys.argv[2])
TOOLS = ("codesign", "ditto", "hdiutil")
PRETENDED = """#!/bin/sh
echo "$(basename "$0") $*" >>"$JOURNAL"
case "$*" in *"$FAILS_FOR") exit 1 ;; esac
case "$0" in *ditto) mkdir -p "$2" ;; *hdiutil) for image; do :; done; : >"$image" ;; esac
"""
PARTS = (
    "Frameworks/QtWidgets.framework/Versions/A/QtWidgets",
    "Frameworks/QtCore.framework/Versions/A/QtCore",
    "Frameworks/libmd4c.0.dylib",
    "PlugIns/platforms/libqcocoa.dylib",
    "PlugIns/imageformats/libqsvg.dylib",
    "MacOS/Frimbolate",
    "Resources/empty.lproj",
)
LIBRARIES = ("Frameworks/QtCore.framework", "Frameworks/QtWidgets.framework",
             "Frameworks/libmd4c.0.dylib")
PLUGINS = ("PlugIns/imageformats/libqsvg.dylib", "PlugIns/platforms/libqcocoa.dylib")


class Signing(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.bundle = self.folder / "A B" / "Frimbolate.app"
        for part in PARTS:
            path = self.bundle / "Contents" / part
            path.parent.mkdir(parents=True, exist_ok=True)
            path.touch()
        tools = self.folder / "tools"
        tools.mkdir()
        for name in TOOLS:
            (tools / name).write_text(PRETENDED, "utf-8")
            (tools / name).chmod(0o755)
        self.journal = self.folder / "journal"
        self.environment = {**os.environ, "PATH": f"{tools}:{os.environ['PATH']}",
                            "JOURNAL": str(self.journal), "FAILS_FOR": "(nothing)"}

    def run_script(self, name, **values):
        definitions = [f"-D{key}={value}" for key, value in values.items()]
        return subprocess.run([CMAKE, *definitions, "-P", SCRIPTS / name], check=False,
                              env=self.environment, capture_output=True).returncode

    def sign(self, identity):
        return self.run_script("sign_bundle.cmake", BUNDLE=self.bundle, IDENTITY=identity,
                               ENTITLEMENTS="/e.plist")

    def calls(self):
        text = self.journal.read_text("utf-8") if self.journal.exists() else ""
        return [line.replace(f"{self.bundle}/Contents/", "") for line in text.splitlines()]

    def test_signs_from_the_inside_out_and_verifies(self):
        self.assertEqual(self.sign("Developer ID"), 0)
        options = "--force --sign Developer ID --timestamp --options runtime"
        self.assertEqual(self.calls(), [
            *(f"codesign {options} {part}" for part in (*LIBRARIES, *PLUGINS)),
            f"codesign {options} --entitlements /e.plist {self.bundle}",
            *(f"codesign --verify --strict --verbose=2 {part}"
              for part in (*LIBRARIES, *PLUGINS, self.bundle)),
        ])

    def test_an_ad_hoc_signature_is_without_the_runtime_that_needs_a_team(self):
        self.assertEqual(self.sign("-"), 0)
        self.assertEqual(self.calls()[0], f"codesign --force --sign - {LIBRARIES[0]}")
        self.assertFalse([call for call in self.calls() if "runtime" in call or "--deep" in call])

    def test_the_first_failure_ends_the_signing(self):
        self.environment["FAILS_FOR"] = PLUGINS[0]
        self.assertNotEqual(self.sign("-"), 0)
        self.assertEqual(len(self.calls()), len(LIBRARIES) + 1)

    def test_a_failed_verification_is_a_failure(self):
        self.environment["FAILS_FOR"] = f"--verbose=2 {self.bundle}"
        self.assertNotEqual(self.sign("-"), 0)

    def test_every_argument_is_needed(self):
        self.assertNotEqual(self.run_script("sign_bundle.cmake", BUNDLE=self.bundle), 0)
        self.assertNotEqual(self.run_script("make_image.cmake", BUNDLE=self.bundle), 0)
        self.assertEqual(self.calls(), [])

    def image(self, identity):
        path = self.folder / "out" / "F.dmg"
        path.parent.mkdir()
        path.write_text("old", "utf-8")
        code = self.run_script("make_image.cmake", BUNDLE=self.bundle, IDENTITY=identity,
                               IMAGE=path)
        return code, path

    def test_the_image_holds_the_verified_bundle(self):
        code, image = self.image("-")
        self.assertEqual(code, 0)
        content = f"{image}.content"
        self.assertEqual(self.calls(), [
            f"codesign --verify --strict {self.bundle}",
            f"ditto {self.bundle} {content}/Frimbolate.app",
            f"hdiutil create -volname Frimbolate -srcfolder {content} -format UDZO -ov {image}",
        ])
        self.assertEqual([path.name for path in image.parent.iterdir()], ["F.dmg"])
        self.assertEqual(image.read_text("utf-8"), "")

    def test_the_image_is_signed_too(self):
        code, image = self.image("Developer ID")
        self.assertEqual(code, 0)
        self.assertEqual(self.calls()[-2:], [
            f"codesign --force --timestamp --sign Developer ID {image}",
            f"codesign --verify --strict {image}",
        ])

    def test_no_image_is_made_of_an_unsigned_bundle(self):
        self.environment["FAILS_FOR"] = str(self.bundle)
        self.assertNotEqual(self.image("-")[0], 0)
        self.assertEqual(len(self.calls()), 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
