"""Measures two things in turns, and says whether the ratio of the first to the second is in bounds."""

import statistics
import subprocess
from dataclasses import dataclass


@dataclass(frozen=True)
class Row:
    """A line of the table. `measured` and `bound` are in the same unit; smaller is better."""

    what: str
    against: str
    measured: float
    bound: float | None  # None where the figure is for information
    unit: str = "×"
    detail: str = ""

    def is_met(self):
        return self.bound is None or self.measured <= self.bound

    def cells(self):
        bound = "" if self.bound is None else f"≤ {self.bound:g} {self.unit}"
        verdict = "" if self.bound is None else ("met" if self.is_met() else "MISSED")
        return [self.what, self.against, f"{self.measured:.2f} {self.unit}", bound, verdict, self.detail]


HEADINGS = ["what", "against", "measured", "bound", "", "medians"]


def table(rows):
    """The rows under their headings, in columns."""
    lines = [HEADINGS, *(row.cells() for row in rows)]
    widths = [max(len(line[i]) for line in lines) for i in range(len(HEADINGS))]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip()
                     for line in lines)


def in_turns(runs, *measurements):
    """Calls the measurements in turns, `runs` times after one that warms up; the figures of each."""
    figures = [[] for _ in measurements]
    for run in range(runs + 1):
        for found, measure in zip(figures, measurements):
            figure = measure()
            if run > 0:
                found.append(figure)
    return figures


def ratio(figures, reference):
    """The median of the ratios of figures that were measured side by side.

    What disturbs one of a pair mostly disturbs the other one too.
    """
    return statistics.median(a / b for a, b in zip(figures, reference, strict=True))


def amount(nanoseconds):
    """A duration in a unit that suits it."""
    for size, unit in ((1e9, "s"), (1e6, "ms"), (1e3, "µs")):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.0f} ns"


def medians(*figures):
    return " : ".join(amount(statistics.median(found)) for found in figures)


def compare(runs, what, against, bound, measure, reference):
    """A row from two functions that return nanoseconds."""
    figures, references = in_turns(runs, measure, reference)
    return Row(what, against, ratio(figures, references), bound, detail=medians(figures, references))


class Worker:
    """The program that does the work of ours; see worker.cpp."""

    def __init__(self, program):
        self._process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.stdout.close()
        self._process.wait()

    def ask(self, *words):
        """Nanoseconds."""
        self._process.stdin.write("\t".join(map(str, words)) + "\n")
        self._process.stdin.flush()
        answer = self._process.stdout.readline()
        if not answer:
            raise RuntimeError(f"the worker ended at: {words}")
        return int(answer)
