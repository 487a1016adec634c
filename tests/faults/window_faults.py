"""Makes calls of the real program fail, in its window, and prints a line for a script.

    /usr/bin/python3 -B tests/faults/window_faults.py [--count N] [--seed S] [pytest's options]

N points, shared by the scenarios, or 'all'. The last line is "result", the name, the number of
points, "points" and that of failures, with tabs in between.
"""

import argparse
import subprocess
import sys
import tempfile
from pathlib import Path

END_TO_END = Path(__file__).resolve().parents[1] / "e2e"
SCENARIOS = 3


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--count", default="21")
    parser.add_argument("--seed", default="1")
    arguments, options = parser.parse_known_args()
    count = arguments.count
    if count != "all":
        count = max(1, -(-int(count) // SCENARIOS))
    with tempfile.TemporaryDirectory() as folder:
        report = Path(folder) / "report"
        report.touch()
        code = subprocess.run(
            ["/usr/bin/python3", "-B", "-m", "pytest", "-q", "scenarios/test_faults.py",
             f"--fault-points={count}", f"--fault-seed={arguments.seed}",
             f"--fault-report={report}", *options], cwd=END_TO_END, check=False).returncode
        rows = [line.split("\t") for line in report.read_text(encoding="utf-8").splitlines()]
    points = sum(int(row[1]) for row in rows)
    # A scenario that breaks off reports nothing: it fails as a whole.
    failures = sum(int(row[2]) for row in rows) + SCENARIOS - len(rows)
    failures = max(failures, int(code != 0))
    print(f"result\twindow faults\t{points}\tpoints\t{failures}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
