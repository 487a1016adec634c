"""Runs clang-tidy and cppcheck over all sources, those that have changed, or those named.

Usage: check_tidy.py BUILD (--all | --changed | FILE …). BUILD is a configured build of any kind;
nothing of it needs to be compiled. Sources of one target are read together, which saves most of the
time: it goes to the headers that they share."""

import argparse
import json
import os
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from sources import ROOT, sources

CLANG_TIDY = "clang-tidy-14"
# Batches include sources.
WITHOUT = "--checks=-bugprone-suspicious-include"
# In tests a function is often a table, which is as long as its rows.
WITHOUT_IN_TESTS = f"{WITHOUT},-readability-function-size"
CPPCHECK = ("cppcheck", "--quiet", "--std=c++20", "--language=c++", "--inline-suppr",
            "--enable=warning,performance,portability", "--library=googletest", "--library=gnu",
            "--library=posix", "--library=qt", f"--library={Path(__file__).with_name('cppcheck.cfg')}",
            "-I", ".",
            f"--suppressions-list={Path(__file__).with_name('cppcheck.txt')}",
            "--template={file}:{line}:{column}: {severity}: {message} [{id}]")
FINDING = re.compile(r"^(\S+?:\d+):\d+: (?:error|warning|performance|portability): .*\[(\S+)\]$",
                     re.MULTILINE)


def git(root, *arguments):
    done = subprocess.run(["git", "-C", str(root), *arguments], capture_output=True, text=True,
                          check=False)
    return done.stdout.strip() if done.returncode == 0 else None


def base_of_changes(root):
    """The commit from which the changes count: where the branch left its upstream branch, or the
    last commit but one. In a clone without earlier commits the last one: what it changed is not
    known there."""
    head = git(root, "rev-parse", "HEAD")
    base = git(root, "merge-base", "HEAD", "@{upstream}")
    if base is None or base == head:
        base = git(root, "rev-parse", "--verify", "--quiet", "HEAD~1") or head
    return base


def changed_files(root):
    """The files that differ from the base, committed or not, and those that git does not know yet."""
    if git(root, "rev-parse", "HEAD") is None:
        return []
    base = base_of_changes(root)
    known = git(root, "diff", "--name-only", "--diff-filter=d", base)
    new = git(root, "ls-files", "--others", "--exclude-standard")
    names = {*known.splitlines(), *new.splitlines()}
    return sorted(name for name in names if (root / name).is_file())


def sources_of(path):
    """The sources of a batch, or the source itself."""
    if Path(path).suffix != ".cxx":
        return [path]
    return re.findall(r'^#include "(.*)"$', Path(path).read_text(encoding="utf-8"), re.MULTILINE)


def read_entries(build):
    """The commands of the build, without those of generated sources."""
    entries = json.loads(Path(build, "compile_commands.json").read_text(encoding="utf-8"))
    return [entry for entry in entries if "autogen" not in entry["file"]]


def source_for(header, known, root):
    """A source through which a header is read: its own, else the first that includes it. None where
    no source of this system does."""
    own = str(root / Path(header).with_suffix(".cpp"))
    if own in known:
        return own
    wanted = re.compile(rf'^#include "(?:\S*/)?{re.escape(Path(header).name)}"$', re.MULTILINE)
    return next((name for name in sorted(known)
                 if wanted.search(Path(name).read_text(encoding="utf-8"))), None)


def entries_for(files, entries, folder, root=ROOT):
    """Entries that read the files alone, the sources of one target together in a new source of the
    folder. Sources that this system does not build are left out."""
    entry_of = {name: entry for entry in entries for name in sources_of(entry["file"])}
    chosen = {}
    for file in files:
        name = str(root / file)
        if name.endswith(".h"):
            name = source_for(file, entry_of, root)
        if name in entry_of:
            chosen.setdefault(entry_of[name]["file"], set()).add(name)
    result = []
    for number, (of, names) in enumerate(sorted(chosen.items())):
        batch = Path(folder, f"batch_{number}.cxx")
        batch.write_text("".join(f'#include "{name}"\n' for name in sorted(names)), encoding="utf-8")
        entry = entry_of[min(names)]
        result.append({**entry, "file": str(batch), "command": entry["command"].replace(of, str(batch))})
    return result


def tidy(entry, folder):
    """What clang-tidy reports of a source, or nothing."""
    is_test = all(str(ROOT / "tests") in name for name in sources_of(entry["file"]))
    done = subprocess.run([CLANG_TIDY, "--quiet", f"--config-file={ROOT / '.clang-tidy'}",
                           WITHOUT_IN_TESTS if is_test else WITHOUT, "-p", folder, entry["file"]],
                          cwd=ROOT, capture_output=True, text=True, check=False)
    if FINDING.search(done.stdout):
        return done.stdout
    return done.stdout + done.stderr if done.returncode != 0 else ""


def run_clang_tidy(entries, folder, jobs):
    Path(folder, "compile_commands.json").write_text(json.dumps(entries), encoding="utf-8")
    with ThreadPoolExecutor(jobs) as pool:
        return [report for report in pool.map(lambda entry: tidy(entry, folder), entries) if report]


def run_cppcheck(files, jobs):
    names = [str(file) for file in files if Path(file).suffix == ".cpp"]
    if not names:
        return []
    done = subprocess.run([*CPPCHECK, "-j", str(jobs), *names], cwd=ROOT, capture_output=True,
                          text=True, check=False)
    report = done.stdout + done.stderr
    return [report] if report.strip() or done.returncode != 0 else []


def findings_in(reports):
    """Each finding once, though several sources may include its header; a report without any, such
    as that of a tool that ended early, is one, too."""
    return {finding for report in reports for finding in FINDING.findall(report) or [(report, "")]}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build")
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--changed", action="store_true")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("files", nargs="*")
    options = parser.parse_args()
    every = sources(ROOT)
    known = {path.as_posix() for path in every}
    entries = read_entries(options.build)
    with tempfile.TemporaryDirectory() as folder:
        if options.all:
            files = sorted(known)
        else:
            named = [os.path.relpath(name, ROOT) for name in options.files]
            files = [name for name in (changed_files(ROOT) if options.changed else named)
                     if name in known]
            entries = entries_for(files, entries, folder)
        # The headers are read through sources, too, since some are written in Objective-C.
        read = files if options.all else sorted({os.path.relpath(name, ROOT) for entry in entries
                                                 for name in sources_of(entry["file"])})
        reports = [*run_clang_tidy(entries, folder, options.jobs),
                   *run_cppcheck(read, options.jobs)]
    print(*reports, sep="\n")
    found = findings_in(reports)
    print(f"result\ttidy\t{len(files)}\tfiles\t{len(found)}")
    return 1 if found or (options.all and not (files and entries)) else 0


if __name__ == "__main__":
    sys.exit(main())
