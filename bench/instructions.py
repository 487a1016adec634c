"""Counts the instructions of the pure parts, and compares them with those of baseline.json.

Unlike times, counts are the same on a busy machine. They depend on the compiler and on the system's
libraries, so a change of these calls for a new baseline, too.
"""

import json
import subprocess
import tempfile
from pathlib import Path

BASELINE = Path(__file__).with_name("baseline.json")
TOLERANCE = 0.05
# Measured for the table alone; they are no parts of the program.
REFERENCES = ("expat", "copy")
RUNS = 10  # of each part, in worker.cpp


def count(build):
    """The instructions of one run of each part, by its name."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["valgrind", "--quiet", "--tool=callgrind", f"--callgrind-out-file={folder}/part",
                        build / "bench/frimbolate_bench_worker", "--count"], check=True)
        return dict(part for part in map(read_part, Path(folder).iterdir())
                    if part[0] and part[0] not in REFERENCES)


def read_part(path):
    """The name and the count of one dump of callgrind; no name for that of the end."""
    name, total = None, 0
    for line in path.read_text(encoding="utf-8").splitlines():
        if line.startswith("desc: Trigger: Client Request: "):
            name = line.rpartition(": ")[2]
        elif line.startswith(("summary: ", "totals: ")):
            total = int(line.split()[1])
    return name, total // RUNS


def changes(baseline, counts):
    """A line for each part that is new, is missing, or takes over 5 % more or less than it did."""
    for name in sorted(baseline.keys() | counts.keys()):
        if name not in counts:
            yield f"{name}: it is in the baseline alone"
        elif name not in baseline:
            yield f"{name}: it is not in the baseline"
        elif abs(counts[name] - baseline[name]) > TOLERANCE * baseline[name]:
            change = counts[name] / baseline[name] - 1 if baseline[name] else float("inf")
            yield f"{name}: {baseline[name]:,} instructions before, {counts[name]:,} now: {change:+.1%}"


def compiler():
    return subprocess.run(["c++", "--version"], capture_output=True, text=True, check=True).stdout.splitlines()[0]


def check(build):
    """Prints the changes; the exit code."""
    baseline = json.loads(BASELINE.read_text(encoding="utf-8"))
    if baseline["compiler"] != compiler():
        print(f"The baseline is of another compiler: {baseline['compiler']}")
    found = list(changes(baseline["instructions"], count(build)))
    print(*found, sep="\n" if found else "")
    print(f"{len(baseline['instructions'])} parts, {len(found)} changed by more than {TOLERANCE:.0%}")
    return 1 if found else 0


def rebase(build):
    """Writes the counts as the new baseline."""
    content = {"compiler": compiler(), "instructions": dict(sorted(count(build).items()))}
    BASELINE.write_text(json.dumps(content, indent=2) + "\n", encoding="utf-8")
    print(f"{BASELINE}: {len(content['instructions'])} parts")
    return 0
