"""Tests which sources check_tidy.py reads, in small repositories, and that it reports faults."""

import json
import subprocess
import tempfile
import unittest
from pathlib import Path

import check_tidy


class Folder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, name, text=""):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return str(path)


class Changed(Folder):
    def git(self, *arguments):
        subprocess.run(["git", "-c", "user.name=A", "-c", "user.email=a@example.org", "-c",
                        "commit.gpgsign=false", "-C", str(self.root), *arguments],
                       check=True, capture_output=True)

    def commit(self, *names):
        for name in names:
            self.write(name, name + str(self.id()) + str(len(names)))
        self.git("add", "-A")
        self.git("commit", "-q", "-m", "Change")

    def changed(self):
        return check_tidy.changed_files(self.root)

    def test_without_git_nothing_is_known(self):
        self.write("a.cpp")
        self.assertEqual(self.changed(), [])

    def test_what_is_not_committed_where_only_the_last_commit_is_known(self):
        self.git("init", "-q", "-b", "main")
        self.commit("a.cpp", "core/b.h")
        self.assertEqual(self.changed(), [])
        self.write("core/b.h", "changed")
        self.write("new.cpp")
        self.assertEqual(self.changed(), ["core/b.h", "new.cpp"])

    def test_the_last_commit_where_there_is_no_upstream_branch(self):
        self.git("init", "-q", "-b", "main")
        self.commit("a.cpp", "b.cpp")
        self.commit("c.cpp")
        self.assertEqual(self.changed(), ["c.cpp"])
        self.write("b.cpp", "changed")
        self.write("new.cpp")
        self.write(".gitignore", "ignored.cpp\n")
        self.write("ignored.cpp")
        self.assertEqual(self.changed(), [".gitignore", "b.cpp", "c.cpp", "new.cpp"])

    def test_all_since_the_branch_left_its_upstream(self):
        self.git("init", "-q", "-b", "main")
        self.commit("a.cpp", "b.cpp")
        self.git("switch", "-q", "-c", "topic", "--track", "main")
        self.commit("c.cpp")
        self.commit("d.cpp")
        self.git("switch", "-q", "main")
        self.commit("a.cpp")
        self.git("switch", "-q", "topic")
        self.assertEqual(self.changed(), ["c.cpp", "d.cpp"])

    def test_the_last_commit_where_upstream_has_it(self):
        self.git("init", "-q", "-b", "main")
        self.commit("a.cpp")
        self.commit("b.cpp")
        self.git("switch", "-q", "-c", "topic", "--track", "main")
        self.assertEqual(self.changed(), ["b.cpp"])

    def test_not_what_is_gone(self):
        self.git("init", "-q", "-b", "main")
        self.commit("a.cpp", "b.cpp")
        self.commit("c.cpp")
        (self.root / "c.cpp").unlink()
        self.git("rm", "-q", "a.cpp")
        self.assertEqual(self.changed(), [])


class Entries(Folder):
    def setUp(self):
        super().setUp()
        self.sources = [self.write(f"core/{name}.cpp", f'#include "core/{name}.h"\n') for name in "abc"]
        for name in "abc":
            self.write(f"core/{name}.h")
        self.write("core/of_b.h")
        self.write("core/b.cpp", '#include "core/b.h"\n#include "core/of_b.h"\n')
        self.write("core/unread.h")
        batch = self.write("build/unity_0.cxx", "".join(f'#include "{name}"\n' for name in self.sources[:2]))
        self.entries = [{"directory": "/", "file": batch, "command": f"c++ -DCORE -c {batch}"},
                        {"directory": "/", "file": self.sources[2], "command": f"c++ -c {self.sources[2]}"}]

    def read(self, *files):
        entries = check_tidy.entries_for(files, self.entries, self.root, self.root)
        for entry in entries:
            self.assertIn(entry["file"], entry["command"])
        return [(check_tidy.sources_of(entry["file"]), "-DCORE" in entry["command"]) for entry in entries]

    def test_sources_of_a_target_are_read_together(self):
        a, b, c = self.sources
        self.assertEqual(self.read("core/a.cpp"), [([a], True)])
        self.assertEqual(self.read("core/b.cpp", "core/a.cpp"), [([a, b], True)])
        self.assertEqual(sorted(self.read("core/b.cpp", "core/c.cpp")), [([b], True), ([c], False)])

    def test_headers_are_read_through_a_source(self):
        self.assertEqual(self.read("core/a.h"), [([self.sources[0]], True)])
        self.assertEqual(self.read("core/of_b.h", "core/b.h"), [([self.sources[1]], True)])

    def test_what_no_source_reads_is_left_out(self):
        self.assertEqual(self.read("core/unread.h", "core/gone.cpp", "macos/a.mm"), [])

    def test_of_generated_sources_are_left_out(self):
        self.entries.append({"directory": "/", "file": "/b/a_autogen/moc.cpp", "command": ""})
        self.write("build/compile_commands.json", json.dumps(self.entries))
        self.assertEqual(check_tidy.read_entries(self.root / "build"), self.entries[:2])


class Findings(Folder):
    def test_of_both_tools_are_found(self):
        source = self.write("a.cpp", "struct S { virtual int f(); };\nstruct T : S { virtual int f(); };\n"
                            "int g() {\n    int a[2] = {0, 1};\n    return a[2];\n}\n")
        entry = {"directory": str(self.root), "file": source, "command": f"clang++ -w -c {source}"}
        reports = check_tidy.run_clang_tidy([entry], self.root, 1)
        self.assertEqual([name for place, name in check_tidy.findings_in(reports) if place == f"{source}:2"],
                         ["modernize-use-override,-warnings-as-errors"])
        found = check_tidy.findings_in(check_tidy.run_cppcheck([source], 1))
        self.assertEqual(found, {(f"{source}:5", "arrayIndexOutOfBounds")})

    def test_sound_sources_have_none(self):
        source = self.write("a.cpp", "int f(int a) { return a; }\n")
        entry = {"directory": str(self.root), "file": source, "command": f"clang++ -c {source}"}
        self.assertEqual(check_tidy.run_clang_tidy([entry], self.root, 1), [])
        self.assertEqual(check_tidy.run_cppcheck([source, "a.mm"], 1), [])

    def test_a_tool_that_ends_early_is_one(self):
        entry = {"directory": str(self.root), "file": str(self.root / "gone.cpp"), "command": "clang++"}
        self.assertEqual(len(check_tidy.findings_in(check_tidy.run_clang_tidy([entry], self.root, 1))), 1)

    def test_are_counted_once(self):
        report = "/core/a.h:3:5: error: no [b-c,-warnings-as-errors]\n/core/a.h:3:5: note: here\n"
        self.assertEqual(len(check_tidy.findings_in([report, report])), 1)
        self.assertEqual(len(check_tidy.findings_in([report, report.replace(":3", ":4")])), 2)


if __name__ == "__main__":
    unittest.main()
