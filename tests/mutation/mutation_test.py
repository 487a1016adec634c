"""Tests how mutants are made, chosen, named and counted."""

import os
import tempfile
import unittest
from pathlib import Path

import mutate
from equivalents import entry_text, outdated, read_equivalents
from mutants import mutants_of, ordered, shares
from results import Results, summary
from test_programs import Program, Runner, in_order, split

# A line within a function, and all that becomes of it.
LINES = {
    "if (a < 3)": {"if (!(a < 3))", "if (a <= 3)", "if (a < 4)", "if (a < 2)"},
    "if (a >= b && c)": {"if (!(a >= b && c))", "if (a > b && c)", "if (a >= b || c)"},
    "if (a == b)": {"if (a != b)"},
    "if (!f(a))": {"if (f(a))"},
    "if (const auto* v = find(a))": {"if (const auto* v = find(a); !v)"},
    "while (next())": {"while (!(next()))"},
    "return a ? b : c;": {"return !(a) ? b : c;", "return !(a ? b : c);"},
    "return true;": {"return false;"},
    "a = b * 0x10 - c[i];": {"a = b / 0x10 - c[i];", "a = b * 0x11 - c[i];", "a = b * 0xf - c[i];",
                             "a = b * 0x10 + c[i];", ";"},
    "a += 1'000;": {"a -= 1'000;", "a += 1001;", "a += 999;", ";"},
    "auto p = &a | *b;": {"auto p = &a & *b;"},
    "const T* p = f<U>(x, -1);": {"const T* p = f<U>(x, -2);", "const T* p = f<U>(x, -0);"},
    'add("key", "");': {'add("ke~", "");', 'add("key", "~");', ";"},
    r'add("line\n");': {r'add("line\n~");', ";"},
    "take('a');": {"take('~');", ";"},
    "i++; break;": {"i--; break;", "; break;", "i++; ;"},
    "text.reserve(5);": {"text.reserve(6);", "text.reserve(4);"},
    "static_assert(sizeof(int) == 4);": set(),
    "auto f = [&](int a) { g(a); };": {"auto f = [&](int a) { ; };"},
    "[[maybe_unused]] T a; // 1 < 2": set(),
    'auto t = R"(1 < 2)";': set(),
    "/* 1 < 2 */ f(/* ! */);": {"/* 1 < 2 */ ;"},
}


def made(source, file="core/a.cpp"):
    return mutants_of(file, source)


class Changes(unittest.TestCase):
    def test_each_line(self):
        for line, wanted in LINES.items():
            with self.subTest(line):
                head = "namespace n {\nvoid f() {\n    "
                source = f"{head}{line}\n}}\n}}\n"
                lines = {mutant.applied(source)[len(head):-5] for mutant in made(source)}
                self.assertEqual(lines, wanted)

    def test_nothing_outside_of_code(self):
        self.assertEqual(made('#include "a.h"\n#define A(x) (1 + \\\n 2)\nusing T = int[3];\n'
                              "template <int = 3> struct S;\n"), [])

    def test_tables_and_member_functions_name_what_they_belong_to(self):
        source = ('constexpr Row rows[] = {\n    {"a", 1},\n};\nstruct S {\n    int x = 2;\n'
                  "    bool isOpen() const { return x > 3; }\n};\nvoid S::close() { end(4); }\n"
                  "S::~S() { end(5); }\n")
        owners = {mutant.function for mutant in made(source)}
        self.assertEqual(owners, {"rows", "x", "isOpen", "S::close", "S::~S"})

    def test_a_dropped_statement_has_all_its_lines(self):
        source = "void f() {\n    add(a,\n        b);\n    g();\n}\n"
        self.assertEqual([(mutant.before, mutant.line) for mutant in made(source)],
                         [("add(a, b);", 2), ("g();", 4)])

    def test_equal_changes_of_a_function_are_numbered(self):
        source = "void f() {\n    g();\n    g();\n}\nvoid h() {\n    g();\n}\n"
        self.assertEqual([(mutant.function, mutant.number) for mutant in made(source)],
                         [("f", 1), ("f", 2), ("h", 1)])

    def test_a_key_survives_what_changes_elsewhere(self):
        before = made("void f() {\n    g(1);\n}\n")
        after = made("// New.\nvoid e() { g(); }\n\nvoid f() {\n  g(1);\n}\n")
        self.assertLessEqual({mutant.key for mutant in before}, {mutant.key for mutant in after})

    def test_every_mutant_of_the_project_has_a_key_of_its_own(self):
        found = mutate.possible_mutants()
        self.assertEqual({mutant.file.split("/")[0] for mutant in found}, set(mutate.MODULES))
        self.assertEqual(len({mutant.key for mutant in found}), len(found))


class Choice(unittest.TestCase):
    def test_a_seed_gives_an_order_and_the_kinds_take_turns(self):
        found = made("void f() {\n" + "    if (a < 3) g(\"t\");\n" * 20 + "}\n")
        self.assertEqual(ordered(found, 1), ordered(found, 1))
        self.assertNotEqual(ordered(found, 1), ordered(found, 2))
        self.assertEqual(set(ordered(found, 1)), set(found))
        self.assertEqual({mutant.kind for mutant in ordered(found, 1)[:4]},
                         {"bound", "negation", "statement", "text"})

    def test_the_count_is_shared_by_size(self):
        self.assertEqual(shares({"a": 300, "b": 100, "c": 100}, 10), {"a": 6, "b": 2, "c": 2})
        self.assertEqual(sum(shares({"a": 301, "b": 107, "c": 92}, 50).values()), 50)
        self.assertEqual(shares({"a": 1000, "b": 1}, 10)["b"], 1)


class Equivalents(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = Path(folder.name, "mutants.md")
        self.mutants = made("void f() {\n    g();\n    g();\n    h(a < b);\n}\n")

    def read(self, text):
        self.path.write_text("# Title\n\nWords.\n\n" + text, encoding="utf-8")
        return read_equivalents(self.path)

    def test_are_read_as_they_are_printed(self):
        listed = self.read("## core\n\n" + "\n".join(entry_text(mutant, f"Why {mutant.number}.")
                                                 for mutant in self.mutants) + "\n## plist\n")
        self.assertEqual(listed, {mutant.key: f"Why {mutant.number}." for mutant in self.mutants})

    def test_need_a_reason_and_stand_once(self):
        with self.assertRaises(ValueError):
            self.read(entry_text(self.mutants[0], ""))
        with self.assertRaises(ValueError):
            self.read(entry_text(self.mutants[0]) + "\n" + entry_text(self.mutants[0]))
        with self.assertRaises(ValueError):
            self.read("### core/a.cpp: f\n\nNo change.\n")

    def test_of_the_project_are_mutants_of_its_sources(self):
        keys = [mutant.key for mutant in mutate.possible_mutants()]
        self.assertEqual(outdated(read_equivalents(mutate.LISTED), keys), [])

    def test_that_fit_no_source_are_told(self):
        listed = {self.mutants[0].key: "", ("core/a.cpp", "f", "gone();", ";", 1): ""}
        self.assertEqual(outdated(listed, [mutant.key for mutant in self.mutants]),
                         [("core/a.cpp", "f", "gone();", ";", 1)])


class Counting(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = Path(folder.name, "results.tsv")
        self.source = "void f() {\n    if (a < 3)\n        g();\n}\n"
        self.mutants = made(self.source)

    def results(self, source=None, fresh=False):
        return Results(self.path, {"core/a.cpp": source or self.source}, fresh)

    def test_modules_and_all(self):
        results = self.results()
        for mutant, outcome in zip(self.mutants, ("caught", "caught", "survived", "survived")):
            results.add(mutant, outcome, "Suite.Test", 1)
        figures = summary(results.of_this_run(), {self.mutants[2].key: "equal"})
        for name in ("core", "all"):
            total = figures[name]
            self.assertEqual((total.mutants, total.caught, total.equivalent, total.survived),
                             (4, 2, 1, 1))
        self.assertEqual(list(figures), ["core", "all"])

    def test_are_kept_for_the_next_run(self):
        self.results().add(self.mutants[0], "caught", "Suite.Test", 1)
        self.assertEqual(self.results().known(self.mutants[0]), "caught")
        self.assertIsNone(self.results().known(self.mutants[1]))
        self.assertIsNone(self.results(self.source + "\n").known(self.mutants[0]))
        self.assertIsNone(self.results(fresh=True).known(self.mutants[0]))

    def test_a_later_outcome_counts(self):
        results = self.results()
        results.add(self.mutants[0], "survived", "", 1)
        results.add(self.mutants[0], "caught", "Suite.Test", 1)
        self.assertEqual([row.outcome for row in results.of_this_run()], ["caught"])
        self.assertEqual(self.results().known(self.mutants[0]), "caught")


class Running(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.folder.chmod(0o755)

    def run_script(self, text, **bounds):
        program = Program("a_test", [], "a_test", ["/bin/sh", "-c", text], **bounds)
        return Runner(self.folder, self.folder).run(program, "")[0]

    def test_tells_the_first_failed_test(self):
        self.assertFalse(self.run_script("echo '[ RUN      ] A.B'").caught)
        outcome = self.run_script("echo '[ RUN      ] A.B'; echo '[  FAILED  ] A.B (3 ms)'; exit 1")
        self.assertEqual((outcome.caught, outcome.by), (True, "A.B"))
        self.assertEqual(self.run_script("echo '[ RUN      ] A.C'; kill -ABRT $$").by,
                         "A.C (ends with -6)")
        self.assertEqual(self.run_script("exit 3").by, "a_test (ends with 3)")
        self.assertEqual(self.run_script("echo 'FAIL: test_one (T)'; exit 1").by, "test_one")

    def test_ends_what_would_not_end(self):
        self.assertEqual(self.run_script("while :; do :; done", processor_seconds=1).by,
                         "a_test (endless)")
        self.assertEqual(self.run_script("read line </dev/ptmx; sleep 99", seconds=0.2).by,
                         "a_test (endless)")

    def test_has_folders_of_its_own(self):
        names = "HOME TMPDIR XDG_RUNTIME_DIR XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_STATE_HOME"
        self.assertFalse(self.run_script(
            f'for n in {names}; do eval "d=\\$$n"; case $d in {self.folder}/*) test -d "$d" || exit 1 ;; '
            "*) exit 1 ;; esac; touch $d/x; done").caught)
        self.assertFalse(self.run_script("test ! -e $TMPDIR/x").caught, "left by the run before")

    @unittest.skipUnless(os.geteuid() == 0, "a namespace of mounts is root's")
    def test_as_root_writes_into_its_folder_only(self):
        with tempfile.TemporaryDirectory() as other:
            self.assertTrue(self.run_script(f"touch {other}/x").caught)
            self.assertFalse(Path(other, "x").exists())

    def test_the_modules_own_tests_come_first_and_the_window_last(self):
        def program(target, *libraries, slow=False):
            return Program(target, [f"m/libfrimbolate_{name}.a" for name in libraries], target, slow=slow)

        programs = [program("core_test", "core"), program("plist_test", "plist", "core"),
                    program("plist_test", "plist", "core", slow=True),
                    program("widgets_test", "core", "plist"), program("plist_dump", "core", "plist")]
        self.assertEqual([(one.target, one.slow) for one in in_order(programs, "plist")],
                         [("plist_test", False), ("plist_dump", False), ("plist_test", True),
                          ("widgets_test", False)])

    def test_slow_suites_run_apart(self):
        program = Program("a_test", [], "a_test", ["{}"])
        text = ("[----------] 3 tests from A (1200 ms total)\n[----------] 1 test from B/C (7 ms total)\n"
                "[----------] 1 test from D (2000 ms total)\n")
        self.assertEqual([(one.run[1], one.slow) for one in split(program, text)],
                         [("--gtest_filter=-A.*:D.*", False), ("--gtest_filter=A.*:D.*", True)])
        self.assertEqual(split(program, "[----------] 1 test from B (7 ms total)\n"), [program])


if __name__ == "__main__":
    unittest.main()
