"""Tests of the program in a terminal: terminal_test.py <program>"""

import json
import os
import pty
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv[1]).resolve()
SOUND = """<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0">
<dict>
\t<key>Label</key>
\t<string>org.example.sync</string>
\t<key>ProgramArguments</key>
\t<array>
\t\t<string>/bin/sh</string>
\t</array>
\t<key>RunAtLoad</key>
\t<true/>
</dict>
</plist>
"""
BAD = SOUND.replace("<key>RunAtLoad", "<key>RunAtLoadd")
WORDS = ("check", "explain", "new", "on", "off", "list", "command")
COMPLETIONS = Path(__file__).resolve().parents[2] / "resources" / "completions"
ESCAPE = "\x1b["
# Without a display, a session or a bus.
VARIABLES = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "TERM": "xterm", "TZ": "UTC0"}
# Of a build with coverage or with sanitizers.
for name in ("GCOV_PREFIX", "GCOV_PREFIX_STRIP", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
    if name in os.environ:
        VARIABLES[name] = os.environ[name]


class Terminal(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = Path(holder.name)
        self.sound = self.make("org.example.sync.plist", SOUND)
        self.variables = {**VARIABLES, "HOME": holder.name}

    def make(self, name, text):
        path = self.folder / name
        path.write_text(text, encoding="utf-8")
        path.chmod(0o644)
        return path

    def call(self, *arguments, **options):
        environment = {**self.variables, **options.pop("variables", {})}
        options.setdefault("stdin", subprocess.DEVNULL if "input" not in options else None)
        if "input" in options:
            del options["stdin"]
        return subprocess.run([PROGRAM, *arguments], env=environment, text=True, check=False,
                              capture_output=True, cwd=self.folder, **options)

    def on_terminal(self, *arguments, variables=None):
        """What the program prints on a terminal."""
        ours, its = pty.openpty()
        process = subprocess.Popen([PROGRAM, *arguments], stdin=its, stdout=its, stderr=its,
                                   env={**self.variables, **(variables or {})}, cwd=self.folder)
        os.close(its)
        text = b""
        try:
            while part := os.read(ours, 65536):
                text += part
        except OSError:  # the terminal's other side was closed
            pass
        process.wait()
        os.close(ours)
        return text.decode()

    def test_the_exit_code_tells_nothing_findings_and_could_not_look(self):
        bad = self.make("bad.plist", BAD)
        self.assertEqual(self.call("check", self.sound).returncode, 0)
        self.assertEqual(self.call("check", bad).returncode, 1)
        self.assertEqual(self.call("check", self.sound, bad).returncode, 1)
        self.assertEqual(self.call("check", self.folder / "none.plist", bad).returncode, 2)
        self.assertEqual(self.call("check").returncode, 2)
        self.assertEqual(self.call("frobnicate").returncode, 2)

    def test_a_folder_is_checked_file_by_file(self):
        for number in range(20):
            self.make(f"org.example.bad{number:02}.plist", BAD)
        found = self.call("check", ".")
        self.assertEqual(found.returncode, 1)
        named = [line for line in found.stderr.splitlines() if ": RunAtLoadd: " in line]
        self.assertEqual([line.split(":")[:2] for line in named],
                         [[f"./org.example.bad{number:02}.plist", "10"] for number in range(20)])
        self.assertEqual(found.stdout, "")

    def test_the_standard_input_is_read(self):
        self.assertEqual(self.call("check", "-", input=SOUND).returncode, 0)
        found = self.call("check", "-", input=BAD)
        self.assertEqual(found.returncode, 1)
        self.assertIn("-:10: RunAtLoadd: ", found.stderr)

    def test_names_with_a_dash_follow_two_dashes(self):
        self.make("-x.plist", SOUND)
        self.assertEqual(self.call("explain", "--", "-x.plist").returncode, 0)
        self.assertEqual(self.call("explain", "./-x.plist").returncode, 0)
        self.assertEqual(self.call("explain", "-x.plist").returncode, 2)

    def test_colours_are_for_a_terminal_whose_user_wants_them(self):
        self.make("bad.plist", BAD)
        for word in ("check", "explain", "list"):
            subject = "." if word == "list" else "bad.plist"
            self.assertIn(ESCAPE, self.on_terminal(word, subject), word)
            for variables in ({"NO_COLOR": "1"}, {"TERM": "dumb"}):
                plain = self.on_terminal(word, subject, variables=variables)
                self.assertTrue(plain)
                self.assertNotIn(ESCAPE, plain, (word, variables))
            piped = self.call(word, subject)
            self.assertNotIn(ESCAPE, piped.stdout + piped.stderr, word)

    def test_an_output_that_is_closed_or_full_is_an_error(self):
        closed = subprocess.run(["/bin/sh", "-c", '"$0" list . >&-', PROGRAM], check=False,
                                env=self.variables, cwd=self.folder, stderr=subprocess.PIPE)
        self.assertEqual(closed.returncode, 2)
        self.assertIn(b"standard output: ", closed.stderr)
        # Nothing is to be printed: nothing is lost.
        silent = subprocess.run(["/bin/sh", "-c", '"$0" check . >&-', PROGRAM], check=False,
                                env=self.variables, cwd=self.folder)
        self.assertEqual(silent.returncode, 0)
        with open("/dev/full", "w", encoding="utf-8") as full:
            process = subprocess.run([PROGRAM, "list", "."], check=False, env=self.variables,
                                     cwd=self.folder, stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(process.returncode, 2)
        self.assertIn(b"standard output: ", process.stderr)

    def test_a_reader_that_goes_away_gets_no_message(self):
        ours, its = os.pipe()
        os.close(ours)
        process = subprocess.run([PROGRAM, "list", "."], check=False, env=self.variables,
                                 cwd=self.folder, stdout=its, stderr=subprocess.PIPE)
        os.close(its)
        self.assertEqual((process.returncode, process.stderr), (2, b""))

    def test_every_word_prints_the_same_shape(self):
        keys = ["path", "error", "kind", "name", "on", "sentence", "program", "nextRun", "result",
                "findings"]
        calls = (["check", "."], ["explain", self.sound], ["list", "."],
                 ["command", "load", self.sound], ["off", self.sound], ["on", self.sound],
                 ["new", "--name", "A", "--script", "true", "--at", "07:05"])
        for arguments in calls:
            document = json.loads(self.call(*arguments, "--json").stdout)
            self.assertEqual(list(document), ["version", "command", "agents"])
            self.assertEqual((document["version"], document["command"]), (1, arguments[0]))
            for agent in document["agents"]:
                self.assertEqual(list(agent), keys, arguments)

    def test_json_tells_findings_with_their_lines(self):
        self.make("bad.plist", BAD)
        [agent] = json.loads(self.call("check", "bad.plist", "--json").stdout)["agents"]
        [finding] = [one for one in agent["findings"] if one["key"] == "RunAtLoadd"]
        self.assertEqual(list(finding), ["rule", "severity", "key", "line", "text"])
        self.assertEqual((finding["severity"], finding["line"]), ("suspicious", 10))

    def test_names_of_any_bytes_give_valid_json(self):
        path = os.fsencode(self.folder) + b"/\xff\"\n.plist"
        Path(os.fsdecode(path)).write_text(SOUND, encoding="utf-8")
        document = json.loads(self.call("check", ".", "--json").stdout)
        self.assertIn("./\ufffd\"\n.plist", [agent["path"] for agent in document["agents"]])

    def test_an_agent_goes_the_whole_way(self):
        made = self.call("new", "--name", "Backup", "--run", "/bin/sh", "--at", "07:05", "--on",
                         "wed", "--output", "com.frimbolate.Backup.plist")
        self.assertEqual((made.returncode, made.stdout, made.stderr), (0, "", ""))
        self.assertEqual(self.call("check", "com.frimbolate.Backup.plist").returncode, 0)
        said = self.call("explain", "com.frimbolate.Backup.plist").stdout
        self.assertIn("Backup (own, on)\n  Runs sh every Wednesday at 07:05.\n", said)
        self.assertRegex(said, r"\n  Next: Wednesday \d+ [A-Z][a-z]+( \d{4})?, 07:05\n$")
        self.assertEqual(self.call("off", "com.frimbolate.Backup.plist").returncode, 0)
        said = self.call("explain", "com.frimbolate.Backup.plist").stdout
        self.assertIn("(own, off)", said)
        self.assertNotIn("Next", said)

    def test_no_library_of_the_window_is_loaded(self):
        loaded = self.call("check", self.sound, variables={"LD_DEBUG": "libs"}).stderr
        self.assertIn("libstdc++", loaded)
        for library in ("libQt", "libxcb", "frimbolate-window"):
            self.assertNotIn(library, loaded)


class Completion(unittest.TestCase):
    def completed(self, *words):
        """What bash offers for the last word."""
        script = (f'source {COMPLETIONS / "frimbolate.bash"}; COMP_WORDS=("$@"); '
                  'COMP_CWORD=$(($# - 1)); _frimbolate; printf "%s\\n" "${COMPREPLY[@]}"')
        shell = subprocess.run(["bash", "--norc", "-c", script, "bash", "frimbolate", *words],
                               text=True, capture_output=True, check=True, cwd=COMPLETIONS)
        return shell.stdout.split()

    def test_both_shells_know_every_option_of_every_word(self):
        for word in WORDS:
            said = subprocess.run([PROGRAM, word, "--help"], env=VARIABLES, text=True,
                                  capture_output=True, check=True).stdout
            options = set(re.findall(r"^ +(?:-h,)?(--[a-z-]+)", said, re.MULTILINE))
            self.assertIn("--json", options)
            self.assertEqual(set(self.completed(word, "-")), options, word)
            for option in options - {"--help"}:
                self.assertIn(f"'{option}[", (COMPLETIONS / "_frimbolate").read_text(), word)

    def test_bash_completes_words_days_and_files(self):
        self.assertEqual(self.completed("o"), ["on", "off"])
        self.assertEqual(set(self.completed("")) & set(WORDS), set(WORDS))
        self.assertEqual(self.completed("new", "--on", "t"), ["tue", "thu"])
        self.assertEqual(self.completed("command", "l"), ["load"])
        self.assertEqual(self.completed("check", "frim"), ["frimbolate.bash"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
