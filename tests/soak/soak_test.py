"""Tests the soak on rows of the test's own: what counts as failed, and when a round begins."""

import sys
import tempfile
import unittest
from pathlib import Path

import soak
from rows import ROWS, Row


def row(name: str, program: str, count: int = 10, seeded: bool = True) -> Row:
    return Row(name, count, (sys.executable, "-c", program, "{count}", "{seed}"), seeded)


SOUND = "import sys; print('more'); print('result', 'x', sys.argv[1], 'points', 0, sep='\\t')"

# What a command does, and the fault that is told of it.
FAULTS = {
    "tried all": (SOUND, ""),
    "tried one more": (SOUND.replace("sys.argv[1]", "11"), ""),
    "tried one less": (SOUND.replace("sys.argv[1]", "9"), "9 of 10 points only"),
    "found a failure": (SOUND.replace(" 0,", " 2,"), "2 failures"),
    "found one and said so": (SOUND.replace(" 0,", " 2,") + "; sys.exit(1)", "2 failures"),
    "failed in spite of its result": (SOUND + "; sys.exit(3)", "ended with 3"),
    "said nothing": ("pass", "gave no result, and ended with 0"),
    "was ended": (SOUND + "; import os; sys.stdout.flush(); os.kill(os.getpid(), 9)", "ended with -9"),
    "went on after its result": (SOUND + "; print('done')", "gave no result, and ended with 0"),
    "counted no number": (SOUND.replace("sys.argv[1]", "'ten'"), "gave no result, and ended with 0"),
    "wrote bytes that are no text": (
        "import sys; sys.stdout.buffer.write(b'\\xff\\n'); sys.stdout.flush(); " + SOUND, ""),
}


class Soak(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.logs = Path(folder.name) / "logs"

    def test_what_counts_as_failed(self):
        for name, (program, fault) in FAULTS.items():
            with self.subTest(name):
                (done,) = soak.soak([row(name, program)], 0, 1, self.logs, 1)
                self.assertEqual(done.fault, fault)

    def test_a_missing_program_fails(self):
        (done,) = soak.soak([Row("none", 1, (str(self.logs / "none"),), True)], 0, 1, self.logs, 1)
        self.assertEqual(done.fault, "gave no result, and ended with 127")

    def test_each_round_has_another_seed_and_only_seeded_rows_come_again(self):
        seeds = self.logs.parent / "seeds"
        program = f"open({str(seeds)!r}, 'a').write(sys.argv[2] + '\\n')"
        rows = [row("seeded", SOUND + "; " + program), row("once", SOUND, seeded=False)]
        # Each round reads the clock once, after the end was set.
        now = iter([0, *range(1, 1000)])
        clock = soak.time.monotonic
        soak.time.monotonic = lambda: next(now)
        try:
            outcomes = soak.soak(rows, 0.2, 5, self.logs, 1)
        finally:
            soak.time.monotonic = clock
        count = len(outcomes) - 1
        self.assertGreater(count, 1)
        self.assertEqual(seeds.read_text().split(), [str(5 + i) for i in range(count)])
        self.assertEqual([done.row.name for done in outcomes].count("once"), 1)

    def test_a_soak_of_no_time_is_one_round(self):
        self.assertEqual(len(soak.soak([row("a", SOUND), row("b", SOUND)], 0, 1, self.logs, 2)), 2)

    def test_keeps_the_output(self):
        soak.soak([row("a name", SOUND)], 0, 7, self.logs, 1)
        self.assertIn("more\n", (self.logs / "a_name-7.log").read_text())

    def test_the_table_adds_the_rounds_and_names_the_failed_ones(self):
        good, bad = row("good", SOUND), row("bad", SOUND)
        lines = soak.table([
            soak.Outcome(good, 1, 10, "points", 0, 1.2, ""), soak.Outcome(bad, 1, 5, "runs", 0, 2, ""),
            soak.Outcome(good, 2, 12, "points", 0, 1.2, ""),
            soak.Outcome(bad, 2, 0, "", 1, 0.1, "gave no result, and ended with 1")]).splitlines()
        self.assertEqual([line.split() for line in lines], [
            ["what", "tried", "unit", "failures", "seconds"], ["good", "22", "points", "0", "2"],
            ["bad", "5", "runs", "1", "2"],
            ["bad,", "seed", "2:", "gave", "no", "result,", "and", "ended", "with", "1"]])


class Rows(unittest.TestCase):
    def test_have_names_of_their_own(self):
        self.assertEqual(len({row.name for row in ROWS}), len(ROWS))

    def test_use_the_seed_if_they_are_seeded(self):
        for row in ROWS:
            with self.subTest(row.name):
                self.assertEqual(row.seeded, any("{seed}" in word for word in row.command))


if __name__ == "__main__":
    unittest.main()
