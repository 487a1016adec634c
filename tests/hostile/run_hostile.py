#!/usr/bin/env python3
"""Measures what each part of the program needs to read or to reject each hostile file of 16 MiB.

Usage: run_hostile.py [--count ROWS] [--seed NUMBER] [--size BYTES] [--file NAME] [--consumer NAME]

Each row is a process of the optimised program. Its time is that of the processor, which does not depend
on what else runs; its memory is the peak of its resident memory. --count takes so many rows by chance,
0 all of them. The limits are two seconds and 300 MiB.
"""

import argparse
import os
import random
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "bench"
PROGRAM = BUILD / "tests" / "hostile" / "hostile_run"
MEMORY = Path("/dev/shm")
MOST_SECONDS = 2.0
MOST_MIB = 300
# What takes longer is ended, and counts as a failure.
PATIENCE = 60
MIB = 1 << 20


def build():
    subprocess.run(["cmake", "--preset", "release", "-B", str(BUILD), "-DFRIMBOLATE_BATCHES=ON"], cwd=ROOT,
                   check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", str(BUILD), "--target", "hostile_run"], cwd=ROOT, check=True,
                   stdout=sys.stderr)


def names():
    """The names of the files, and those of the consumers."""
    lines = subprocess.run([PROGRAM], check=True, capture_output=True, text=True).stdout.splitlines()
    rows = [line.split("\t") for line in lines]
    return [[name for kind, name in rows if kind == wanted] for wanted in ("file", "consumer")]


def measured(*arguments, folder):
    """Processor seconds, wall seconds, peak MiB and a fault of one process."""
    # A process that is killed leaves its copies in a folder that goes with this one.
    environment = {**os.environ, "TMPDIR": folder}
    before = time.monotonic()
    process = subprocess.Popen([PROGRAM, *arguments], env=environment, stdout=subprocess.DEVNULL,
                               stderr=subprocess.PIPE, text=True,
                               preexec_fn=lambda: __import__("resource").setrlimit(
                                   __import__("resource").RLIMIT_CPU, (PATIENCE, PATIENCE)))
    message = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    fault = "" if process.returncode == 0 else f"exit code {process.returncode} {message.strip()[-80:]}"
    return usage.ru_utime + usage.ru_stime, time.monotonic() - before, usage.ru_maxrss / 1024, fault


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=0)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--size", type=int, default=16 * MIB)
    parser.add_argument("--file", action="append")
    parser.add_argument("--consumer", action="append")
    chosen = parser.parse_args()
    build()
    files, consumers = names()
    rows = [(file, consumer) for file in chosen.file or files for consumer in chosen.consumer or consumers]
    if 0 < chosen.count < len(rows):
        rows = sorted(random.Random(chosen.seed).sample(rows, chosen.count))
    failures = 0
    worst = {"seconds": 0, "MiB": 0}
    with tempfile.TemporaryDirectory(dir=MEMORY if os.access(MEMORY, os.W_OK) else None) as folder:
        path = Path(folder) / "hostile.plist"
        made = ""
        print(f"{'file':24}{'bytes':>10}  {'consumer':12}{'cpu s':>7}{'wall s':>8}{'MiB':>7}  fault", flush=True)
        for file, consumer in rows:
            if file != made:
                measured("make", file, str(chosen.size), str(path), folder=folder)
                made = file
            seconds, wall, memory, fault = measured("consume", consumer, str(path), folder=folder)
            if seconds > MOST_SECONDS:
                fault += " too slow"
            if memory > MOST_MIB:
                fault += " too much memory"
            failures += bool(fault)
            worst = {"seconds": max(worst["seconds"], seconds), "MiB": max(worst["MiB"], memory)}
            print(f"{file:24}{path.stat().st_size:>10}  {consumer:12}{seconds:>7.2f}{wall:>8.2f}{memory:>7.0f}  "
                  f"{fault}", flush=True)
    print(f"worst: {worst['seconds']:.2f} s, {worst['MiB']:.0f} MiB")
    print(f"result\thostile files\t{len(rows)}\trows\t{failures}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
