#!/usr/bin/env python3
"""Runs every fuzz target, and counts the runs that were really executed.

Usage: run_fuzzers.py [--count RUNS] [--seed NUMBER] [--target NAME …] [--merge]

Builds the fuzzer in build/fuzz. The runs of all targets together are at least RUNS. Inputs that break
a target are kept in build/fuzz/broken/. --merge keeps in tests/fuzz/corpus/ the fewest files that
cover what all inputs found so far cover.
"""

import argparse
import concurrent.futures
import math
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "fuzz"
FUZZER = BUILD / "tests" / "fuzz" / "frimbolate_fuzzer"
CORPUS = ROOT / "tests" / "fuzz" / "corpus"
CASES = ROOT / "tests" / "plist" / "cases"
FOUND = BUILD / "found"
BROKEN = BUILD / "broken"
MOST_BYTES = 4096
MEMORY = Path("/dev/shm")

# The name that libFuzzer gives a file. What has another was written by hand, and stays.
HASH = re.compile("[0-9a-f]{40}")
# The part of the runs that each target has, so that none takes much longer than the others: a run of
# the time field takes microseconds, one that writes files a millisecond.
SHARES = {
    "time_of_day": 60,
    "old_style": 16,
    "binary": 10,
    "xml": 7,
    "any_form": 4,
    "agent_reader": 1.5,
    "checks": 0.8,
    "preferences": 0.5,
    "command_line": 0.2,
}
# Words that a fuzzer would take long to find.
TOKENS = ("<plist>", "</plist>", "<dict>", "</dict>", "<key>", "</key>", "<array>", "</array>", "<string>",
          "</string>", "<integer>", "</integer>", "<real>", "</real>", "<date>", "</date>", "<data>", "</data>",
          "<true/>", "<false/>", "<!--", "-->", "<![CDATA[", "]]>", "<?xml encoding='", "<!DOCTYPE", "&amp;",
          "&#x", "bplist00", "\\U", "/*", "*/", "//", "--json", "--modern", "--output", "--force", "--name",
          "--run", "--script", "--at", "--on", "--every", "--watch", "--keep-running", "--nice", "command",
          "explain", "check", "list", "new", "load", "unload", "a.plist", "b.plist", "a.m.", "pm")


def build():
    environment = ["cmake", "--preset", "asan", "-B", str(BUILD), "-DFRIMBOLATE_FUZZ=ON",
                   "-DFRIMBOLATE_BATCHES=ON", "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -g1"]
    if compiler := os.environ.get("FUZZ_COMPILER"):
        environment.append(f"-DCMAKE_CXX_COMPILER={compiler}")
    subprocess.run(environment, cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", str(BUILD), "--target", "frimbolate_fuzzer"], cwd=ROOT, check=True,
                   stdout=sys.stderr)


def words_file(folder):
    """The words as libFuzzer reads them."""
    keys = (ROOT / "tests" / "core" / "launchd_keys.tsv").read_text(encoding="utf-8").splitlines()
    words = [*TOKENS, *(line.split("\t")[0].rsplit(".", 1)[-1] for line in keys)]
    quoted = (word.replace("\\", "\\\\").replace('"', '\\"') for word in words if word)
    path = Path(folder) / "words"
    path.write_text("".join(f'"{word}"\n' for word in quoted), encoding="utf-8")
    return path


def call(target, folder, *arguments):
    """Calls the fuzzer with a folder of its own for temporary files, in memory where there is one."""
    with tempfile.TemporaryDirectory(dir=folder) as temporary:
        environment = {**os.environ, "FUZZ_TARGET": target, "TMPDIR": temporary,
                       "ASAN_OPTIONS": "malloc_context_size=0"}
        return subprocess.run([FUZZER, *map(str, arguments)], env=environment, capture_output=True,
                              text=True, errors="replace", check=False)


def statistic(name, output):
    found = re.search(rf"^stat::{name}:\s+(\d+)$", output, re.MULTILINE)
    return int(found[1]) if found else 0


def fuzz(target, runs, seed, folder, words):
    """Runs one target. Returns its row of the table."""
    found = FOUND / target
    found.mkdir(parents=True, exist_ok=True)
    BROKEN.mkdir(parents=True, exist_ok=True)
    before = time.monotonic()
    done = call(target, folder, f"-runs={runs}", f"-seed={seed}", f"-max_len={MOST_BYTES}", f"-dict={words}",
                "-print_final_stats=1", "-timeout=20", "-rss_limit_mb=2048", "-verbosity=1",
                f"-artifact_prefix={BROKEN}/{target}-", found, CORPUS / target,
                *([CASES] if target in ("xml", "binary", "old_style", "any_form") else []))
    seconds = time.monotonic() - before
    executed = statistic("number_of_executed_units", done.stderr)
    covered = re.findall(r"cov: (\d+)", done.stderr)
    fault = ""
    if done.returncode != 0:
        lines = [line for line in done.stderr.splitlines() if re.search(r"what\(\)|ERROR|runtime error", line)]
        fault = lines[0].strip() if lines else f"exit code {done.returncode}"
    elif executed < runs:
        fault = f"only {executed} of {runs} runs"
    return {"target": target, "executed": executed, "seconds": seconds, "fault": fault,
            "covered": int(covered[-1]) if covered else 0,
            "inputs": len(list(found.iterdir()))}


def merge(target, folder):
    """Replaces the corpus by the fewest of all inputs that cover as much."""
    kept = Path(folder) / f"merged-{target}"
    kept.mkdir()
    done = call(target, folder, "-merge=1", "-use_counters=0", "-max_len=1024", kept, CORPUS / target, FOUND / target)
    if done.returncode != 0:
        raise RuntimeError(f"{target}: {done.stderr[-2000:]}")
    for path in (CORPUS / target).iterdir():
        if HASH.fullmatch(path.name):
            path.unlink()
    for path in kept.iterdir():
        shutil.copy(path, CORPUS / target / path.name)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=10_000_000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--target", action="append", choices=sorted(SHARES))
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--merge", action="store_true")
    chosen = parser.parse_args()
    targets = chosen.target or list(SHARES)
    build()
    with tempfile.TemporaryDirectory(dir=MEMORY if os.access(MEMORY, os.W_OK) else None) as folder:
        if chosen.merge:
            for target in targets:
                merge(target, folder)
            return 0
        words = words_file(folder)
        whole = sum(SHARES[target] for target in targets)
        shares = {target: math.ceil(chosen.count * SHARES[target] / whole) for target in targets}
        # The slowest first, so that the processors end together.
        order = sorted(targets, key=lambda target: SHARES[target])
        print(f"{'target':14}{'runs':>12}{'seconds':>9}{'runs/s':>9}{'edges':>8}{'inputs':>8}  fault", flush=True)
        rows = []
        with concurrent.futures.ThreadPoolExecutor(chosen.jobs) as pool:
            started = [pool.submit(fuzz, target, shares[target], chosen.seed, folder, words) for target in order]
            for one in concurrent.futures.as_completed(started):
                row = one.result()
                rows.append(row)
                print(f"{row['target']:14}{row['executed']:>12}{row['seconds']:>9.0f}"
                      f"{row['executed'] / max(row['seconds'], 0.001):>9.0f}{row['covered']:>8}{row['inputs']:>8}"
                      f"  {row['fault']}", flush=True)
    executed = sum(row["executed"] for row in rows)
    failures = sum(bool(row["fault"]) for row in rows)
    print(f"result\tfuzzing\t{executed}\truns\t{failures}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
