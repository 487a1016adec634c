"""Tests what script/bench makes of its figures: the changes of counts, ratios, and the table."""

import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
sys.path.append(str(PROJECT / "bench"))

import instructions  # noqa: E402
import measure  # noqa: E402


class Counts(unittest.TestCase):
    def changes(self, before, now):
        return list(instructions.changes(before, now))

    def test_up_to_five_percent_pass_in_either_direction(self):
        for now in (100_000, 104_900, 105_000, 95_100, 95_000):
            self.assertEqual(self.changes({"read": 100_000}, {"read": now}), [], now)

    def test_more_is_told_in_either_direction(self):
        self.assertEqual(self.changes({"read": 100_000}, {"read": 105_100}),
                         ["read: 100,000 instructions before, 105,100 now: +5.1%"])
        self.assertEqual(self.changes({"read": 100_000}, {"read": 94_900}),
                         ["read: 100,000 instructions before, 94,900 now: -5.1%"])

    def test_each_changed_part_is_told(self):
        before = {"read": 1000, "write": 1000, "check": 1000}
        told = self.changes(before, {"read": 2000, "write": 1000, "check": 1})
        self.assertEqual([line.split(":")[0] for line in told], ["check", "read"])

    def test_a_missing_and_a_new_part_are_told(self):
        self.assertEqual(self.changes({"read": 1, "write": 1}, {"write": 1, "check": 1}),
                         ["check: it is not in the baseline", "read: it is in the baseline alone"])

    def test_a_part_that_took_nothing_may_not_take_anything(self):
        self.assertEqual(len(self.changes({"read": 0}, {"read": 1})), 1)
        self.assertEqual(self.changes({"read": 0}, {"read": 0}), [])

    def test_a_dump_of_the_counter_is_read(self):
        with tempfile.TemporaryDirectory() as folder:
            dump = Path(folder, "part.3")
            dump.write_text("version: 1\npart: 3\ndesc: Trigger: Client Request: read-xml\n"
                            "events: Ir\nsummary: 12340\nfn=(1)\n1 12340\ntotals: 12340\n", encoding="utf-8")
            self.assertEqual(instructions.read_part(dump), ("read-xml", 1234))
            dump.write_text("desc: Trigger: Program termination\nsummary: 5\ntotals: 5\n", encoding="utf-8")
            self.assertEqual(instructions.read_part(dump)[0], None)

    def test_the_baseline_counts_every_part(self):
        source = (PROJECT / "bench/pure_parts.cpp").read_text(encoding="utf-8")
        parts = source[source.index("std::vector<PurePart> pureParts()"):].split('{"')[1:]
        names = {part.split('"')[0] for part in parts} - set(instructions.REFERENCES)
        baseline = instructions.json.loads(instructions.BASELINE.read_text(encoding="utf-8"))
        self.assertEqual(set(baseline["instructions"]), names)
        self.assertTrue(all(count > 0 for count in baseline["instructions"].values()))


class Ratios(unittest.TestCase):
    def test_are_those_of_neighbours(self):
        # The machine became ten times as slow half-way; the ratios did not change.
        self.assertAlmostEqual(measure.ratio([2, 2, 20, 20, 20], [1, 1, 10, 10, 10]), 2)

    def test_one_disturbed_figure_does_not_count(self):
        self.assertAlmostEqual(measure.ratio([2, 2, 900], [1, 1, 1]), 2)

    def test_pairs_must_be_complete(self):
        with self.assertRaises(ValueError):
            measure.ratio([1, 2], [1])

    def test_are_measured_in_turns_after_one_that_does_not_count(self):
        calls = []

        def measurement(name):
            return lambda: calls.append(name) or len(calls)

        self.assertEqual(measure.in_turns(2, measurement("a"), measurement("b")), [[3, 5], [4, 6]])
        self.assertEqual("".join(calls), "ababab")


class Table(unittest.TestCase):
    def test_says_whether_each_bound_is_met(self):
        rows = [measure.Row("one", "other", 1.0, 1.25), measure.Row("two", "other", 1.26, 1.25),
                measure.Row("three", "other", 9.0, None)]
        lines = measure.table(rows).splitlines()[1:]
        self.assertEqual([row.is_met() for row in rows], [True, False, True])
        self.assertEqual([("met" in line, "MISSED" in line) for line in lines],
                         [(True, False), (False, True), (False, False)])
        self.assertIn("1.26 ×", lines[1])
        self.assertIn("≤ 1.25 ×", lines[1])


if __name__ == "__main__":
    unittest.main()
