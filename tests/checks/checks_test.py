"""The checks' own test: each fault, put into a house of its own, is found, and a sound one passes."""

import tempfile
import unittest
from pathlib import Path

import check_files
import check_layers

SOUND = {
    "core/value.h": "#include <vector>\n",
    "core/value.cpp": '#include "core/value.h"\n#include <cstdint>\n',
    "plist/reader.h": '#include "core/value.h"\n',
    "platform/files.h": '#include "core/value.h"\n',
    "settings/preferences.h": '#include "platform/files.h"\n',
    "operations/deletion.h": '#include "settings/preferences.h"\n',
    "ui/app_delegate.h": '#include "operations/deletion.h"\n',
    "ui/widgets/window.h": '#include "ui/app_delegate.h"\n#include <QWidget>\n',
    "ui/widgets/look/style.cpp": "#include <QPainter>\n",
    "platform/qt/files.cpp": '#include "platform/files.h"\n#include "plist/reader.h"\n'
    "#include <QFile>\n#include <unistd.h>\n",
    "platform/macos/files.mm": '#import <Foundation/Foundation.h>\n#import "platform/files.h"\n',
    "app/main.cpp": '#include "ui/widgets/window.h"\n#include <QApplication>\n',
    "tests/core/value_test.cpp": '#include "ui/widgets/window.h"\n#include <gtest/gtest.h>\n',
}

FORBIDDEN = {
    "up by one": ("core/value.h", '#include "platform/files.h"'),
    "up to the window": ("ui/app_delegate.h", '#include "ui/widgets/window.h"'),
    "up to Qt's services": ("platform/files.h", '#include "platform/qt/files.h"'),
    "up from the property lists": ("plist/reader.h", '#include "platform/files.h"'),
    "up to the property lists": ("core/value.h", '#include "plist/reader.h"'),
    "sideways": ("ui/widgets/window.h", '#include "platform/qt/files.h"'),
    "Qt in core": ("core/value.cpp", "#include <QString>"),
    "Qt in the controller": ("ui/app_delegate.h", "#include <QtCore/QString>"),
    "Qt in settings, indented": ("settings/preferences.h", "  #  include <QSettings>"),
    "Qt in the property lists": ("plist/reader.h", "#include <QByteArray>"),
    "the system in the property lists": ("plist/reader.h", "#include <sys/stat.h>"),
    "the system in core": ("core/value.cpp", "#include <unistd.h>"),
    "the system in the window": ("ui/widgets/window.h", "#include <sys/stat.h>"),
    "Qt beside the Mac": ("platform/macos/files.mm", "#include <QString>"),
    "painting in the window": ("ui/widgets/window.h", "#include <QPainter>"),
    "relative": ("core/value.cpp", '#include "value.h"'),
    "relative in a test": ("tests/core/value_test.cpp", '#include "nothing.h"'),
    "tests in the program": ("core/value.cpp", '#include "tests/core/fake.h"'),
}


class Checks(unittest.TestCase):
    def house(self, changes):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        root = Path(folder.name)
        files = {"platform/qt/files.h": "", "tests/core/fake.h": "", **SOUND, **changes}
        for name, text in files.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text, encoding="utf-8")
        return root

    def test_sound_includes_pass(self):
        self.assertEqual(check_layers.faults(self.house({})), [])

    def test_each_forbidden_include_is_found(self):
        for name, (path, include) in FORBIDDEN.items():
            with self.subTest(name):
                found = check_layers.faults(self.house({path: f"{SOUND[path]}{include}\n"}))
                self.assertEqual(len(found), 1, found)
                line = SOUND[path].count("\n") + 1
                self.assertTrue(found[0].startswith(f"{path}:{line}: "), found)

    def test_four_hundred_lines_pass_and_one_more_fails(self):
        readmes = {f"{folder}/README.md": "" for folder in check_files.EXPLAINED}
        for length, expected in ((400, []), (401, ["core/long.cpp: 401 lines, 400 at most"])):
            root = self.house({**readmes, "core/long.cpp": "\n" * length})
            self.assertEqual(check_files.faults(root), expected)

    def test_each_missing_readme_is_found(self):
        readmes = {f"{folder}/README.md": "" for folder in check_files.EXPLAINED}
        for folder in check_files.EXPLAINED:
            rest = {name: text for name, text in readmes.items() if name != f"{folder}/README.md"}
            root = self.house(rest)
            (root / folder).mkdir(exist_ok=True)
            self.assertEqual(check_files.faults(root), [f"{folder}/README.md is missing"])


if __name__ == "__main__":
    unittest.main()
