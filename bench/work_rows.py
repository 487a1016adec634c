"""The work without a window: property lists, lists of agents, saves, and the command `check`."""

import plistlib
import subprocess
import tempfile
import time
from pathlib import Path

from measure import Row, Worker, amount, compare, in_turns, medians, ratio

TIMES = 200  # how often a short piece of work is repeated for one figure
PYTHON = "/usr/bin/python3"  # not a wrapper that chooses between several
ONE_LINER = "import plistlib, sys; plistlib.load(open(sys.argv[1], 'rb'))"


def worker_of(build):
    return Worker(build / "bench/frimbolate_bench_worker")


def repeated(work):
    """A function that returns the nanoseconds of TIMES calls."""

    def measure():
        start = time.perf_counter_ns()
        for _ in range(TIMES):
            work()
        return time.perf_counter_ns() - start

    return measure


def codec_rows(build, runs):
    with tempfile.TemporaryDirectory() as folder, worker_of(build) as worker:
        worker.ask("store", folder)
        xml, binary = (Path(folder, f"agent.{form}").read_bytes() for form in ("xml", "binary"))
        agent = plistlib.loads(xml)
        assert agent == plistlib.loads(binary) and len(agent) == 25

        def part(name):
            return lambda: worker.ask("part", name, TIMES)

        python = "Python's plistlib"
        yield compare(runs, "bytes to agent, XML, 25 keys", python, 0.1,
                      part("read-xml"), repeated(lambda: plistlib.loads(xml)))
        yield compare(runs, "bytes to agent, binary", python, 0.1,
                      part("read-binary"), repeated(lambda: plistlib.loads(binary)))
        yield compare(runs, "agent to bytes, XML", python, 0.1,
                      part("write-xml"), repeated(lambda: plistlib.dumps(agent)))
        yield compare(runs, "bytes to agent, XML", "expat alone", 3, part("read-xml"), part("expat"))
        yield compare(runs, "bytes to agent, binary", "copying it in memory", 3,
                      part("read-binary"), part("copy"))


def list_rows(build, runs):
    few, many = 10_000, 100_000
    with tempfile.TemporaryDirectory(dir=build) as folder, worker_of(build) as worker:
        for count in (few, many):
            Path(folder, str(count)).mkdir()
            worker.ask("fill", f"{folder}/{count}", count)
        yield compare(runs, f"{few:,} agents read, checked, described", "reading the bytes", 10,
                      lambda: worker.ask("describe", f"{folder}/{few}"),
                      lambda: worker.ask("bytes", f"{folder}/{few}"))
        yield compare(runs, f"{many:,} agents", f"{few:,} agents", 11,
                      lambda: worker.ask("describe", f"{folder}/{many}"),
                      lambda: worker.ask("describe", f"{folder}/{few}"))


def save_rows(build, runs):
    # In the build folder: that for temporary files may lie in memory, where a flush does nothing.
    with tempfile.TemporaryDirectory(dir=build) as folder, worker_of(build) as worker:
        yield compare(runs * 20, "a save with its flushes", "write, fsync, rename, fsync of the folder", 1.2,
                      lambda: worker.ask("save", f"{folder}/saved.plist"),
                      lambda: worker.ask("bare", f"{folder}/bare.plist"))


def check_rows(build, runs):
    with tempfile.TemporaryDirectory() as folder, worker_of(build) as worker:
        worker.ask("store", folder)
        file = f"{folder}/agent.plist"
        Path(folder, "agent.xml").rename(file)
        program = str(build / "app/frimbolate")
        found = subprocess.run([program, "check", file], capture_output=True, check=False)
        assert found.returncode in (0, 1), found.stderr
        check, nothing, python = in_turns(
            runs * 5, lambda: worker.ask("spawn", program, "check", file),
            lambda: worker.ask("spawn", "/bin/true"),
            lambda: worker.ask("spawn", PYTHON, "-c", ONE_LINER, file))
    over = sorted(a - b for a, b in zip(check, nothing))[len(check) // 2]
    yield Row("frimbolate check of one file", "/bin/true", over / 1e6, 5, "ms over",
              medians(check, nothing))
    yield Row("frimbolate check of one file", "Python's plistlib in one line", ratio(check, python), 0.2,
              detail=medians(check, python))


def action_rows(build, runs):
    """The slowest percent of all actions of the window."""
    program = build / "bench/frimbolate_action_times"
    found = subprocess.run([program, str(runs)], capture_output=True, text=True, check=False)
    if found.returncode:
        raise RuntimeError(found.stderr)
    by_action = {}
    for line in found.stdout.splitlines():
        name, nanoseconds = line.split("\t")
        by_action.setdefault(name, []).append(int(nanoseconds))
    times = sorted(figure for figures in by_action.values() for figure in figures)
    last = times[-(-len(times) * 99 // 100) - 1]
    slowest = max(by_action, key=lambda name: sorted(by_action[name])[len(by_action[name]) // 2])
    typical = sorted(by_action[slowest])[len(by_action[slowest]) // 2]
    yield Row("any action, click to mirrored window, p99", "a frame of 16.7 ms", last / 16.7e6, 0.5,
              detail=f"{amount(last)} of {len(times)} clicks; slowest: {slowest}, {amount(typical)}")
