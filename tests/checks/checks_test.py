"""Tests the checks: a small valid project passes, and each fault that is put into it is found."""

import tempfile
import unittest
from pathlib import Path

import check_files
import check_layers
import check_security
import check_words
from sources import MODULES

SOUND = {
    "core/value.h": "#include <vector>\n",
    "core/value.cpp": '#include "core/value.h"\n#include <cstdint>\n',
    "core/value_text.cpp": '#include "core/value.h"\n',
    "plist/reader.h": '#include "core/value.h"\n',
    "platform/files.h": '#include "core/value.h"\n',
    "posix/local_files.h": '#include "platform/files.h"\n#include <unistd.h>\n',
    "settings/preferences.h": '#include "platform/files.h"\n',
    "operations/deletion.h": '#include "settings/preferences.h"\n',
    "ui/app_delegate.h": '#include "operations/deletion.h"\n',
    "qt/qt_files.h": '#include "posix/local_files.h"\n#include <QFile>\n',
    "macos/mac_files.h": '#import <Foundation/Foundation.h>\n#import "platform/files.h"\n',
    "widgets/style/proxy_style.h": "#include <QPainter>\n",
    "widgets/controls/button.h": '#include "widgets/style/proxy_style.h"\n#include <QWidget>\n',
    "widgets/form/card.h": '#include "widgets/controls/button.h"\n',
    "widgets/window.h": '#include "ui/app_delegate.h"\n#include "widgets/form/card.h"\n',
    "app/main.cpp": '#include "widgets/window.h"\n#include <QApplication>\n',
    "tests/core/value_test.cpp": '#include "widgets/window.h"\n#include <gtest/gtest.h>\n',
}

FORBIDDEN = {
    "a lower layer includes a higher one": ("core/value.h", '#include "platform/files.h"'),
    "the controller includes the window": ("ui/app_delegate.h", '#include "widgets/window.h"'),
    "an interface includes its service": ("platform/files.h", '#include "qt/qt_files.h"'),
    "the window includes a service": ("widgets/window.h", '#include "qt/qt_files.h"'),
    "a control includes the form": ("widgets/controls/button.h", '#include "widgets/form/card.h"'),
    "a part includes the window": ("widgets/form/card.h", '#include "widgets/window.h"'),
    "Qt in core": ("core/value.cpp", "#include <QString>"),
    "Qt in plist": ("plist/reader.h", "#include <QByteArray>"),
    "Qt in posix": ("posix/local_files.h", "#include <QFile>"),
    "Qt in the controller": ("ui/app_delegate.h", "#include <QtCore/QString>"),
    "Qt in settings, indented": ("settings/preferences.h", "  #  include <QSettings>"),
    "the system in core": ("core/value.cpp", "#include <unistd.h>"),
    "the system in plist": ("plist/reader.h", "#include <fcntl.h>"),
    "the system in the window": ("widgets/window.h", "#include <sys/stat.h>"),
    "Qt beside the Mac": ("macos/mac_files.h", "#include <QString>"),
    "painting in the window": ("widgets/window.h", "#include <QPainter>"),
    "painting in a control": ("widgets/controls/button.h", "#include <QPen>"),
    "relative": ("core/value.cpp", '#include "value.h"'),
    "relative in a test": ("tests/core/value_test.cpp", '#include "nothing.h"'),
    "tests in the program": ("core/value.cpp", '#include "tests/core/fake.h"'),
}

LAYERS = "core\nplist core\n"


class Project(unittest.TestCase):
    def project(self, changes):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        root = Path(folder.name)
        for name, text in {"tests/core/fake.h": "", **SOUND, **changes}.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text, encoding="utf-8")
        return root


class Layers(Project):
    def test_sound_includes_pass(self):
        self.assertEqual(check_layers.faults(self.project({})), [])

    def test_each_forbidden_include_is_found(self):
        for name, (path, include) in FORBIDDEN.items():
            with self.subTest(name):
                found = check_layers.faults(self.project({path: f"{SOUND[path]}{include}\n"}))
                self.assertEqual(len(found), 1, found)
                line = SOUND[path].count("\n") + 1
                self.assertTrue(found[0].startswith(f"{path}:{line}: "), found)

    def test_cycles_are_found(self):
        self.assertEqual(check_layers.cycles({"a": ["b"], "b": ["c"], "c": ["b"], "d": []}), ["b", "c"])


class Files(Project):
    readmes = {f"{folder}/README.md": "" for folder in check_files.WITH_README}

    def faults(self, changes):
        return check_files.faults(self.project({**self.readmes, **changes}), LAYERS)

    def test_a_sound_project_passes(self):
        self.assertEqual(self.faults({}), [])

    def test_four_hundred_lines_pass_and_one_more_fails(self):
        for path in ("core/value.h", "tests/e2e/driver.py"):
            self.assertEqual(self.faults({path: "\n" * 400}), [])
            self.assertEqual(self.faults({path: "\n" * 401}), [f"{path}: 401 lines, 400 at most"])

    def test_each_missing_readme_is_found(self):
        for folder in check_files.WITH_README:
            rest = {name: text for name, text in self.readmes.items() if not name.startswith(folder + "/")}
            root = self.project(rest)
            (root / folder).mkdir(exist_ok=True)
            self.assertEqual(check_files.faults(root, LAYERS), [f"{folder}/README.md is missing"])

    def test_headers_of_one_name_are_found(self):
        found = self.faults({"widgets/files.h": ""})
        self.assertEqual([line.split(":")[0] for line in found], ["platform/files.h", "widgets/files.h"])

    def test_a_source_without_its_header_is_found(self):
        self.assertEqual(
            self.faults({"core/words.cpp": ""}), ["core/words.cpp: no header declares what it defines"]
        )

    def test_a_list_of_layers_that_differs_is_found(self):
        for name in check_files.QUOTING:
            self.assertEqual(self.faults({name: f"Layers:\n\n```\n{LAYERS}```\n"}), [])
            self.assertEqual(
                self.faults({name: "```\ncore\n```\n"}), [f"{name}: does not quote layers.txt as it is"]
            )


class Words(Project):
    words = {"house": "project", "Plane": "Surface"}

    def found(self, changes):
        return check_words.faults(self.project(changes), self.words)

    def test_each_word_of_the_list_is_found(self):
        for word, use in check_words.read_words().items():
            root = self.project({"README.md": f"One {word}, two.\n"})
            self.assertIn(f"README.md:1: “{word}”; say “{use}”", check_words.faults(root))

    def test_words_are_whole_and_either_case_begins_them(self):
        self.assertEqual(self.found({"README.md": "houses, warehouse, a_house\n"}), [])
        self.assertEqual(self.found({"README.md": "House\n"}), ["README.md:1: “House”; say “project”"])
        self.assertEqual(self.found({"core/a.h": "\nenum Plane {};\n"}), ["core/a.h:2: “Plane”; say “Surface”"])
        self.assertEqual(self.found({"core/a.h": "int plane;\n"}), [])

    def test_file_names_are_read(self):
        self.assertEqual(self.found({"core/house.h": ""}), ["core/house.h: its name holds “house”"])

    def test_data_is_not_read(self):
        self.assertEqual(self.found({"tests/plist/corpus/house.txt": "house"}), [])


class Security(Project):
    def faults(self, rows, header=check_security.HEADER):
        tests = {"tests/posix/a_test.cpp": "TEST_F(Socket, IsPrivate) {\n}\nTEST(\n    Lock, IsHeld) {\n",
                 "tests/b_test.py": "class Other(Base):\n    def test_it(self):\n        pass\n"}
        text = "\n".join(("# Security", "", header, "|---|---|", *rows, "", "| a | b |", ""))
        return check_security.faults(self.project({**tests, check_security.DOCUMENT: text}))

    def test_tests_of_each_kind_are_found(self):
        self.assertEqual(self.faults(["| It is. | `Socket.IsPrivate` `Lock.IsHeld` |",
                                      "| It has. | `Other.test_it` `b_test.py::test_it` |"]), [])

    def test_a_test_that_is_not_there_is_found(self):
        for name in ("Socket.IsPublic", "IsPrivate", "Other.test_that", "a_test.py::test_it"):
            self.assertEqual(self.faults([f"| It is. | `Socket.IsPrivate` `{name}` |"]),
                             [f"docs/security.md:5: there is no test {name}"])

    def test_a_claim_without_a_test_is_found(self):
        for cell in ("", "Socket.IsPrivate"):
            self.assertEqual(self.faults([f"| It is. | {cell} |"]), ["docs/security.md:5: no test for “It is.”"])

    def test_a_page_without_claims_is_found(self):
        self.assertEqual(self.faults([], "| Other | table |"), ["docs/security.md: it claims nothing"])


class List(unittest.TestCase):
    def test_every_layer_is_listed_before_those_that_include_it(self):
        seen = set()
        for module, allowed in MODULES.items():
            self.assertLessEqual(allowed, seen, module)
            seen.add(module)


if __name__ == "__main__":
    unittest.main()
