"""What the soak runs. `{count}` and `{seed}` are filled in for each run."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Row:
    """A command, run in the project's folder, and how much it has to try at least."""

    name: str
    count: int
    command: tuple[str, ...]
    seeded: bool = True


PYTHON = "/usr/bin/python3"
COUNT = ("--count", "{count}", "--seed", "{seed}")

ROWS = (
    Row("faults", 20_000, ("build/dev/tests/faults/fault_points", *COUNT)),
    # Their number depends on the program's calls alone: every call, every kind.
    Row("faults in the window", 1, (PYTHON, "-B", "tests/faults/window_faults.py", "--count", "all"),
        seeded=False),
    Row("fuzzing", 10_000_000, (PYTHON, "-B", "tests/fuzz/run_fuzzers.py", *COUNT)),
    Row("hostile files", 1, (PYTHON, "-B", "tests/hostile/run_hostile.py"), seeded=False),
    Row("plistlib", 100_000, (PYTHON, "-B", "tests/plist/differential_test.py",
                              "build/dev/tests/plist/plist_dump", *COUNT)),
    Row("random user", 10_000, ("build/asan/tests/random_user/random_user", *COUNT)),
    Row("several at once", 1_000, ("build/asan/tests/two_at_once/two_at_once", *COUNT,
                                   "--programs", "3")),
    Row("tidy", 1, ("script/tidy", "--all"), seeded=False),
)
