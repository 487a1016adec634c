"""The start: time to the first mapped window, memory at rest and processor time until rest, against
an empty window of the same toolkit, on a virtual desktop."""

import os
import statistics
import subprocess
import sys
from pathlib import Path

from measure import Row, in_turns, ratio

sys.path.append(str(Path(__file__).resolve().parents[1] / "tests" / "e2e"))
from desktop import Desktop  # noqa: E402
from home import Home  # noqa: E402

FIGURES = (("time to the first window", 1.25, "ms"), ("processor time until rest", 1.5, "ms"),
           ("peak of memory at rest", 1.25, "KiB"))


def figures_of(command, environment, prepare):
    """A function that starts the program once and returns its figures."""

    def start():
        prepare()
        found = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
        if found.returncode:
            raise RuntimeError(found.stderr)
        return [float(word) for word in found.stdout.split()]

    return start


def environment_of(home):
    """That of an ordinary session: no screen reader, nothing chosen for the program."""
    ours = ("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "FRIMBOLATE_COLOR_SCHEME", "FRIMBOLATE_REDUCED_MOTION",
            "FRIMBOLATE_TIMEOUT_MS")
    return {name: value for name, value in (os.environ | home.environment).items() if name not in ours}


def rows(build, runs):
    watcher, program = build / "bench/frimbolate_watched_start", build / "app/frimbolate"
    empty = build / "bench/frimbolate_empty_window"
    with Desktop() as desktop, Home(desktop.folder) as home:
        environment = environment_of(home)

        def watch(prepare, *command):
            return figures_of([watcher, *command], environment, prepare)

        def forget():
            home.preference_file.unlink(missing_ok=True)

        starts = {
            "empty": watch(forget, empty),
            "a first start": watch(forget, program),
            "a later start": watch(home.store_preferences, program),
            "a window with one word": watch(forget, empty, "word"),
        }
        found = dict(zip(starts, in_turns(runs, *starts.values())))
    for name in list(starts)[1:]:
        for i, (figure, bound, unit) in enumerate(FIGURES):
            own, least = ([run[i] for run in found[key]] for key in (name, "empty"))
            detail = f"{statistics.median(own):.5g} : {statistics.median(least):.5g} {unit}"
            yield Row(f"{name}: {figure}", "an empty window", ratio(own, least),
                      bound if name.endswith("start") else None, detail=detail)
