"""Runs the long forms of the tests and prints a table of what they tried.

Each row is a command that prints, as the last line of its output,

    result<TAB>name<TAB>count<TAB>unit<TAB>failures

A first round tries each row at least as often as the row states. Further rounds, with other seeds,
begin until the given minutes have passed. A row fails if its command fails, says nothing, or tried
less than it was asked to.
"""

import argparse
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

from rows import ROWS, Row

ROOT = Path(__file__).resolve().parents[2]


@dataclass
class Outcome:
    """What one run of a row tried. `fault` says why it counts as failed, and is empty otherwise."""

    row: Row
    seed: int
    count: int
    unit: str
    failures: int
    seconds: float
    fault: str


def outcome(row: Row, seed: int, asked: int, output: str, status: int, seconds: float) -> Outcome:
    lines = output.strip().splitlines()
    fields = lines[-1].split("\t") if lines else []
    if len(fields) != 5 or fields[0] != "result" or not (fields[2].isdigit() and fields[4].isdigit()):
        return Outcome(row, seed, 0, "", 1, seconds, f"gave no result, and ended with {status}")
    count, unit, failures = int(fields[2]), fields[3], int(fields[4])
    if failures:
        fault = f"{failures} failures"
    elif status:
        fault = f"ended with {status}"
    elif count < asked:
        fault = f"{count} of {asked} {unit} only"
    else:
        fault = ""
    return Outcome(row, seed, count, unit, failures, seconds, fault)


def run(row: Row, seed: int, logs: Path) -> Outcome:
    """Runs a row in the project's folder; its whole output is kept in `logs`."""
    words = [word.format(count=row.count, seed=seed) for word in row.command]
    log = logs / f"{row.name.replace(' ', '_')}-{seed}.log"
    start = time.monotonic()
    try:
        result = subprocess.run(words, cwd=ROOT, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True, errors="replace", check=False)
        output, errors, status = result.stdout, result.stderr, result.returncode
    except OSError as error:
        output, errors, status = "", f"{error}\n", 127
    log.write_text(output + errors, encoding="utf-8")
    done = outcome(row, seed, row.count, output, status, time.monotonic() - start)
    print(f"{row.name}, seed {seed}: {done.fault or 'no failure'} ({done.seconds:.0f} s)", flush=True)
    if done.fault:
        print(f"  see {log}", flush=True)
    return done


def table(outcomes: list[Outcome]) -> str:
    """One line per row of the rounds together, and one per failed run."""
    lines = [f"{'what':<24}{'tried':>12}  {'unit':<20}{'failures':>9}{'seconds':>9}"]
    for name in dict.fromkeys(done.row.name for done in outcomes):
        runs = [done for done in outcomes if done.row.name == name]
        failed = sum(max(done.failures, 1) if done.fault else 0 for done in runs)
        unit = next((done.unit for done in runs if done.unit), "")
        lines.append(f"{name:<24}{sum(done.count for done in runs):>12}  {unit:<20}{failed:>9}"
                     f"{sum(done.seconds for done in runs):>9.0f}")
    lines += [f"{done.row.name}, seed {done.seed}: {done.fault}" for done in outcomes if done.fault]
    return "\n".join(lines)


def soak(rows: list[Row], minutes: float, seed: int, logs: Path, processes: int) -> list[Outcome]:
    """Rounds over the rows, until the time is over; the first one is always whole."""
    logs.mkdir(parents=True, exist_ok=True)
    end = time.monotonic() + 60 * minutes
    outcomes: list[Outcome] = []
    while not outcomes or time.monotonic() < end:
        # A row that does not depend on the seed tells nothing new in a further round.
        due = [row for row in rows if not outcomes or row.seeded]
        if not due:
            break
        with ThreadPoolExecutor(processes) as pool:
            outcomes += pool.map(lambda row, of=seed: run(row, of, logs), due)
        seed += 1
    return outcomes


def main() -> int:
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("minutes", nargs="?", type=float, default=0,
                           help="begin further rounds until so many minutes have passed")
    arguments.add_argument("--seed", type=int, default=int(time.time()),
                           help="of the first round; each further one adds one")
    arguments.add_argument("--only", action="append", metavar="NAME", choices=[row.name for row in ROWS],
                           help="a row; may be given several times")
    arguments.add_argument("--processes", type=int, default=1, help="rows at once")
    given = arguments.parse_args()
    rows = [row for row in ROWS if not given.only or row.name in given.only]
    print(f"seed {given.seed}", flush=True)
    outcomes = soak(rows, given.minutes, given.seed, ROOT / "build" / "soak", given.processes)
    print(table(outcomes))
    return 1 if any(done.fault for done in outcomes) else 0


if __name__ == "__main__":
    sys.exit(main())
