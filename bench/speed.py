"""Prints the table of speeds; see README.md. Called by script/bench, which builds what it runs."""

import argparse
import sys
from pathlib import Path

import instructions
import start_rows
import work_rows
from measure import table

GROUPS = {
    "start": (start_rows.rows, "the start, against an empty window"),
    "action": (work_rows.action_rows, "any action, against a frame"),
    "codec": (work_rows.codec_rows, "property lists, against plistlib, expat and a copy"),
    "list": (work_rows.list_rows, "lists of agents, against reading the bytes"),
    "save": (work_rows.save_rows, "a save, against its system calls alone"),
    "check": (work_rows.check_rows, "the command check, against /bin/true and plistlib"),
}


def parse(arguments):
    parser = argparse.ArgumentParser(
        prog="script/bench", description="Prints how the program's speed compares, measured side by side.",
        epilog="Google Benchmark's options, such as --benchmark_filter=xml, run its programs instead.")
    parser.add_argument("groups", nargs="*", metavar="GROUP", help=f"of {', '.join(GROUPS)}; all by default")
    parser.add_argument("--list", action="store_true", help="list the groups")
    parser.add_argument("--runs", type=int, default=10, help="how often each is measured (at least 10)")
    parser.add_argument("--check", action="store_true", help="compare the instruction counts with bench/baseline.json")
    parser.add_argument("--rebase", action="store_true", help="write bench/baseline.json anew")
    chosen = parser.parse_args(arguments)
    if unknown := set(chosen.groups) - GROUPS.keys():
        parser.error(f"no group {', '.join(sorted(unknown))}")
    if chosen.runs < 10:
        parser.error("medians of less than ten runs say little")
    return chosen


def main(build, arguments):
    chosen = parse(arguments)
    if chosen.list:
        print(*(f"{name:8}{words}" for name, (_, words) in GROUPS.items()), sep="\n")
        return 0
    if chosen.check or chosen.rebase:
        return (instructions.check if chosen.check else instructions.rebase)(build)
    rows = []
    for name in chosen.groups or GROUPS:
        print(f"measuring {name} …", file=sys.stderr, flush=True)
        rows += GROUPS[name][0](build, chosen.runs)
    print(table(rows))
    missed = sum(not row.is_met() for row in rows)
    print(f"\n{len(rows)} rows, {missed} missed; medians of {chosen.runs} pairs or more")
    return 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).resolve(), sys.argv[2:]))
