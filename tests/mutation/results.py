"""The results of the mutants: a file that grows while they are tried, and the table at the end."""

import hashlib
from collections import defaultdict
from dataclasses import dataclass

HEAD = ("file", "source", "function", "kind", "before", "after", "number", "outcome", "by", "seconds")


@dataclass
class Row:
    mutant: object
    outcome: str
    by: str


@dataclass
class Figures:
    mutants: int = 0
    caught: int = 0
    equivalent: int = 0
    survived: int = 0


def digest(content):
    return hashlib.sha256(content).hexdigest()[:12]


class Results:
    """What is known of the mutants. Rows of a source that has changed since are left out."""

    def __init__(self, path, sources, fresh=False):
        self.path = path
        self.digests = {name: digest(text.encode("utf-8")) for name, text in sources.items()}
        self.outcomes = {}
        self.rows = []
        if fresh or not path.exists():
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text("\t".join(HEAD) + "\n", encoding="utf-8")
        for line in path.read_text(encoding="utf-8").splitlines()[1:]:
            cells = line.split("\t")
            if len(cells) != len(HEAD) or self.digests.get(cells[0]) != cells[1]:
                continue
            self.outcomes[cells[0], cells[2], cells[4], cells[5], int(cells[6])] = cells[7:9]

    def known(self, mutant):
        """The outcome of an earlier run, or None. It becomes one of this run."""
        outcome, by = self.outcomes.get(mutant.key, (None, ""))
        if outcome and outcome != "quick":
            self.rows.append(Row(mutant, outcome, by))
        return outcome

    def add(self, mutant, outcome, by, seconds):
        self.rows = [row for row in self.rows if row.mutant.key != mutant.key]
        self.rows.append(Row(mutant, outcome, by))
        cells = (mutant.file, self.digests[mutant.file], mutant.function, mutant.kind, mutant.before,
                 mutant.after, mutant.number, outcome, by, f"{seconds:.1f}")
        with self.path.open("a", encoding="utf-8") as file:
            file.write("\t".join(str(cell).replace("\t", " ") for cell in cells) + "\n")

    def of_this_run(self):
        return sorted(self.rows, key=lambda row: (row.mutant.file, row.mutant.start, row.mutant.text))


def summary(rows, listed):
    """The figures of each module, and of all."""
    figures = defaultdict(Figures)
    for row in rows:
        for name in (row.mutant.file.split("/")[0], "all"):
            total = figures[name]
            total.mutants += 1
            if row.outcome == "caught":
                total.caught += 1
            elif row.mutant.key in listed:
                total.equivalent += 1
            else:
                total.survived += 1
    figures["all"] = figures.pop("all", Figures())
    return figures


def percent(part, whole):
    return f"{100 * part / whole:.1f}" if whole else "–"


def print_table(figures):
    print(f"{'module':12}{'mutants':>9}{'caught':>9}{'equivalent':>12}{'survived':>10}{'caught, %':>11}")
    for name, total in figures.items():
        print(f"{name:12}{total.mutants:9}{total.caught:9}{total.equivalent:12}{total.survived:10}"
              f"{percent(total.caught, total.mutants):>11}")
