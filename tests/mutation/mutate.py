"""Makes mutants of the modules of rules and files, and tells which of them the tests catch.

Called by script/mutate, which builds the test programs first."""

import argparse
import functools
import json
import random
import shlex
import shutil
import subprocess
import sys
import tempfile
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from equivalents import entry_text, outdated, read_equivalents
from mutants import mutants_of, ordered, shares
from results import Results, digest, percent, print_table, summary
from test_programs import QUICK, SUITES, Runner, in_order, nearest, read_programs, split

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "mutation"
# The output of each program without a mutant, so that it is not run again before it changes.
PASSED = BUILD / "passed"
LISTED = ROOT / "docs" / "mutants.md"
MODULES = ("core", "plist", "posix", "settings", "operations", "ui", "cli")


def parsed(arguments):
    parser = argparse.ArgumentParser(prog="script/mutate", description=__doc__.splitlines()[0])
    parser.add_argument("--count", type=int, default=600, help="how many mutants (600)")
    parser.add_argument("--seed", type=int, default=1, help="chooses the mutants (1)")
    parser.add_argument("--module", action="append", choices=MODULES, help="only this module")
    parser.add_argument("--jobs", type=int, default=2, help="how many at once (2)")
    parser.add_argument("--fresh", action="store_true", help="forget the results of earlier runs")
    parser.add_argument("--check", action="store_true",
                        help="only check that docs/mutants.md fits the sources")
    parser.add_argument("files", nargs="*", metavar="FILE", help="only these sources")
    return parser.parse_args(arguments)


@functools.cache
def possible_mutants():
    """All mutants of all modules."""
    return [mutant for module in MODULES for path in sorted((ROOT / module).glob("*.cpp"))
            for mutant in mutants_of(str(path.relative_to(ROOT)), path.read_text(encoding="utf-8"))]


def chosen_files(options):
    files = [str(path.relative_to(ROOT)) for module in (options.module or MODULES)
             for path in sorted((ROOT / module).glob("*.cpp"))]
    wanted = {str(Path(name).resolve().relative_to(ROOT)) for name in options.files}
    unknown = wanted - set(files)
    if unknown:
        sys.exit(f"No source of {', '.join(options.module or MODULES)}: {', '.join(sorted(unknown))}")
    return [name for name in files if not wanted or name in wanted]


def prefix_header(commands, folder, sources):
    """A precompiled header with the standard headers of all sources: half of the time of a mutant
    would go to them. None if it cannot be made."""
    names = set()
    for text in sources.values():
        names |= {line.strip() for line in text.splitlines()
                  if line.startswith("#include <") and ".h>" not in line and "/" not in line}
    header = folder / "standard.h"
    header.write_text("\n".join(sorted(names)) + "\n", encoding="utf-8")
    words = [word for word in shlex.split(commands[next(iter(sources))]["command"])
             if not word.startswith("-W") and Path(word).name != "ccache"]
    at = words.index("-o")
    words[at + 1] = f"{header}.gch"
    words = [word for word in words if word != "-c" and not word.endswith(".cpp")]
    done = subprocess.run([*words, "-w", "-x", "c++-header", str(header)], check=False,
                          cwd=BUILD, capture_output=True)
    return header if done.returncode == 0 else None


class Session:
    """What the processes share: the queue of each file, and the results."""

    def __init__(self, options, sources, results, listed, commands, header):
        self.lock = threading.Lock()
        self.commands = commands
        self.header = header
        self.results = results
        self.listed = listed
        self.sources = sources
        self.queues = {name: iter(ordered(mutants_of(name, text), options.seed))
                       for name, text in sources.items()}

    def next_of(self, name):
        with self.lock:
            return next(self.queues[name], None)


def compiled(runner, mutant, session, command):
    """Whether the mutant compiles to another object than its source: invalid, same, or nothing."""
    source = session.sources[mutant.file]
    arguments = (command["command"], command["file"], command["directory"])
    if mutant.file not in runner.headers:
        # A name of the source may mean another function beside headers that it does not include.
        header = next((one for one in (session.header, None) if runner.compile(*arguments, source, one)), "")
        if header == "":
            raise RuntimeError(f"{mutant.file} does not compile")
        runner.headers[mutant.file] = header
        runner.originals[mutant.file] = runner.object.read_bytes()
    if not runner.compile(*arguments, mutant.applied(source), runner.headers[mutant.file]):
        return "invalid"
    return "same" if runner.object.read_bytes() == runner.originals[mutant.file] else ""


def caught_by(runner, order):
    """The first failed test, or nothing."""
    linked = {}
    for program in order:
        if program.target not in linked:
            linked[program.target] = runner.link(program)
        outcome, _ = runner.run(program, linked[program.target])
        if outcome.caught:
            return outcome.by
    return ""


def orders(programs, name):
    """The quick programs for a source, and the others."""
    order = in_order(programs, name.split("/")[0])
    quick = [program for program in order if program.target in QUICK and not program.slow]
    return [*nearest(programs, name, ROOT / "tests"), *quick], [one for one in order if one not in quick]


def try_quickly(runner, programs, name, session):
    """Tries mutants of a source on the quick tests until one of them compiles. Returns that one if
    they do not catch it."""
    while (mutant := session.next_of(name)) is not None:
        known = session.results.known(mutant)
        if known in ("invalid", "same"):
            continue
        if known == "caught" or (known == "survived" and mutant.key in session.listed):
            return None
        before = time.monotonic()
        outcome = compiled(runner, mutant, session, session.commands[name])
        by = "" if outcome else caught_by(runner, orders(programs, name)[0])
        if by:
            outcome = "caught"
        session.results.add(mutant, outcome or "quick", by, time.monotonic() - before)
        if not outcome:
            return mutant
        if by:
            return None
    return None


def try_slowly(runner, programs, mutant, session):
    """Tries a mutant on the tests that try_quickly() left out."""
    before = time.monotonic()
    compiled(runner, mutant, session, session.commands[mutant.file])
    by = caught_by(runner, orders(programs, mutant.file)[1])
    session.results.add(mutant, "caught" if by else "survived", by, time.monotonic() - before)


def unmutated(runner, program):
    """Runs a program without a mutant. It must pass. Returns it with bounds of time, and slow suites
    apart."""
    runner.object.unlink(missing_ok=True)
    path = runner.link(program)
    parts = [path, *(Path(word) for word in program.run if Path(word).is_file())]
    passed = PASSED / f"{program.target}-{digest(b''.join(part.read_bytes() for part in parts))}"
    if passed.exists():
        text, _, log = passed.read_text(encoding="utf-8").partition("\n")
        seconds = float(text)
    else:
        outcome, seconds = runner.run(program, path)
        log = runner.log.read_text(encoding="utf-8", errors="replace")
        if outcome.caught:
            raise RuntimeError(f"{program.target} fails without a mutant: {outcome.by}\n{log[-4000:]}")
        PASSED.mkdir(exist_ok=True)
        passed.write_text(f"{seconds}\n{log}", encoding="utf-8")
    # Generous: other programs may take the processors meanwhile.
    program.processor_seconds = 10 + int(4 * seconds)
    program.seconds = 60 + int(20 * seconds)
    print(f"{program.target} passes in {seconds:.1f} s", file=sys.stderr, flush=True)
    return split(program, log) if program.target in SUITES else [program]


class Pool:
    """Calls functions with a runner that is free, as many at once as there are runners."""

    def __init__(self, runners):
        self.free = list(runners)
        self.threads = ThreadPoolExecutor(len(runners))

    def map(self, function, values):
        """The results in the order of the values. The first exception ends what has not begun."""

        def call(value):
            runner = self.free.pop()
            try:
                return function(runner, value)
            finally:
                self.free.append(runner)

        try:
            return list(self.threads.map(call, values))
        except BaseException:
            self.threads.shutdown(cancel_futures=True)
            raise


def run_all(options, sources, results, listed, folder):
    commands = {str(Path(entry["file"]).relative_to(ROOT)): entry
                for entry in json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
                if Path(entry["file"]).is_relative_to(ROOT)}
    session = Session(options, sources, results, listed, commands,
                      prefix_header(commands, folder, sources))
    runners = []
    for number in range(options.jobs):
        scratch = folder / str(number)
        scratch.mkdir()
        runners.append(Runner(BUILD, scratch))
    pool = Pool(runners)
    programs = sum(pool.map(unmutated, read_programs(str(BUILD))), [])
    sizes = {name: text.count("\n") for name, text in sources.items()}
    slots = [name for name, share in shares(sizes, options.count).items() for _ in range(share)]
    # So that a run that is ended early has tried some of every module.
    random.Random(options.seed).shuffle(slots)
    left = pool.map(lambda runner, name: try_quickly(runner, programs, name, session), slots)
    pool.map(lambda runner, mutant: try_slowly(runner, programs, mutant, session), filter(None, left))


def main():
    options = parsed(sys.argv[1:])
    listed = read_equivalents(LISTED)
    every = {mutant.key for mutant in possible_mutants()}
    old = outdated(listed, every)
    for key in old:
        print(f"{LISTED.relative_to(ROOT)}: no mutant of the sources: {' | '.join(map(str, key))}")
    if options.check or old:
        print(f"{len(listed)} listed, {len(every)} possible mutants")
        return 1 if old else 0
    sources = {name: (ROOT / name).read_text(encoding="utf-8") for name in chosen_files(options)}
    results = Results(BUILD / "results.tsv", sources, options.fresh)
    folder = Path(tempfile.mkdtemp(prefix="mutation-"))
    folder.chmod(0o755)
    before = time.monotonic()
    try:
        run_all(options, sources, results, listed, folder)
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    rows = [row for row in results.of_this_run() if row.outcome in ("caught", "survived")]
    for row in rows:
        if row.outcome == "survived" and row.mutant.key not in listed:
            print(f"survived, {row.mutant.file}:{row.mutant.line}, {row.mutant.kind}\n"
                  f"{entry_text(row.mutant)}")
    figures = summary(rows, listed)
    print_table(figures)
    total = figures["all"]
    counted = total.mutants - total.equivalent
    print(f"{percent(total.caught, total.mutants)} % of all {total.mutants} are caught; "
          f"{percent(total.caught, counted)} % without the {total.equivalent} that "
          f"{LISTED.relative_to(ROOT)} lists as equivalent. Seed {options.seed}, "
          f"{(time.monotonic() - before) / 60:.0f} minutes.")
    print(f"result\tmutants\t{total.mutants}\tmutants\t{total.survived}")
    return 1 if total.survived or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
