"""Compiles one mutant, links it into the test programs, and runs them until one fails."""

import os
import re
import resource
import shlex
import shutil
import signal
import subprocess
import time
from dataclasses import dataclass, field, replace
from pathlib import Path

# The programs of googletest, the one of the lowest module first. The window comes last, since its
# tests take longest.
SUITES = ("core_test", "plist_test", "posix_test", "settings_test", "operations_test", "ui_test",
          "cli_test", "fuzz_corpus_test", "qt_test", "widgets_test")
QUICK = SUITES[:-2]
# The trash depends on the mounted file systems, which the folder of a mutant is one of.
LEFT_OUT = {"qt_test": "*Trash*"}
# Tests that run another program: its target, and a part of the name in ctest.
OTHERS = (("frimbolate", "cli.terminal"), ("property_list_tool", "posix.interop"),
          ("plist_dump", "plist.interop"), ("plist_dump", "plist.differential"))
TARGETS = tuple(dict.fromkeys((*SUITES, *(target for target, _ in OTHERS))))
MEMORY = 8 << 30  # bytes of address space: a mutant that asks for more is caught


@dataclass
class Program:
    target: str
    link: list  # the command; the mutant comes before its first object
    output: str
    run: list = field(default_factory=list)  # "{}" stands for the program
    processor_seconds: int = 300
    seconds: int = 600
    slow: bool = False  # run after the quick suites of all programs


@dataclass
class Outcome:
    caught: bool
    by: str = ""  # the first failed test, or how the program ended


def base_command(build, target):
    """The command that links a target of ninja, and what it makes."""
    text = subprocess.run(["ninja", "-C", build, "-t", "commands", target],
                          capture_output=True, text=True, check=True).stdout.splitlines()[-1]
    parts = text.split(" && ")
    words = shlex.split(next(part for part in parts if " -o " in part))
    return words, words[words.index("-o") + 1]


def faster_linker():
    for name, option in (("mold", "-fuse-ld=mold"), ("ld.lld", "-fuse-ld=lld")):
        if shutil.which(name):
            return [option]
    return []


def read_programs(build):
    """The test programs in the order of SUITES and OTHERS."""
    # Not asked of ctest, which would need every test program.
    tests = {}
    for path in Path(build).glob("tests/*/CTestTestfile.cmake"):
        for name, command in re.findall(r"^add_test\(\[?=*\[?([\w.]+)\]?=*\]? (.*)\)$",
                                        path.read_text(encoding="utf-8"), re.MULTILINE):
            tests[name] = shlex.split(command)
    programs = []
    for target in SUITES:
        link, output = base_command(build, target)
        without = [f"--gtest_filter=-{LEFT_OUT[target]}"] if target in LEFT_OUT else []
        programs.append(Program(target, link, output, ["{}", "--gtest_fail_fast", *without]))
    for target, name in OTHERS:
        link, output = base_command(build, target)
        path = str(Path(build, output).resolve())
        command = ["{}" if word == path else word for word in tests[name]]
        programs.append(Program(target, link, output, command))
    return programs


def in_order(programs, module):
    """Those that hold the module, its own tests first."""
    library = f"libfrimbolate_{module}.a"
    holding = [program for program in programs
               if any(word.endswith(library) for word in program.link)]

    def distance(program):
        if program.target in ("widgets_test", "qt_test"):
            return 4
        if program.slow:
            return 3
        if program.target == f"{module}_test":
            return 0
        return 1 if program.target in SUITES else 2

    return sorted(holding, key=distance)


def nearest_suites(tests, file):
    """The suites of a module's tests that probably tell most of a source: those of the test files
    that include its header or share a word of its name."""
    stem = Path(file).stem
    header = f'#include "{Path(file).with_suffix(".h")}"'
    words = set(stem.split("_")) - {"agent", "form", "plist", "app", "delegate", "local", "file"}
    suites = set()
    for path in sorted(Path(tests).glob("*.cpp")):
        text = path.read_text(encoding="utf-8")
        if header in text or words & set(path.stem.split("_")):
            suites.update(re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\((\w+),", text, re.MULTILINE))
    return sorted(suites)


def nearest(programs, file, tests):
    """The program that runs the nearest quick suites of a source alone, in a list; or none."""
    module = file.split("/")[0]
    suites = nearest_suites(Path(tests, module), file)
    for program in programs:
        if suites and program.target == f"{module}_test" and not program.slow:
            pattern = ":".join(f"{suite}.*:*/{suite}.*:{suite}/*" for suite in suites)
            without = [word for word in program.run if word.startswith("--gtest_filter=-")]
            left_out = without[0].removeprefix("--gtest_filter=") if without else ""
            return [replace(program, run=["{}", "--gtest_fail_fast",
                                          f"--gtest_filter={pattern}{left_out}"])]
    return []


def split(program, text):
    """The program as two: its quick suites, and those that took over a second by its output."""
    times = re.findall(r"^\[-+\] \d+ tests? from (\S+) \((\d+) ms total\)", text, re.MULTILINE)
    slow = [suite for suite, time in times if int(time) > 1000]
    if not slow or len(slow) == len(times) or program.target in LEFT_OUT:
        return [program]
    pattern = ":".join(f"{suite}.*" for suite in slow)
    return [replace(program, run=[*program.run, f"--gtest_filter=-{pattern}"]),
            replace(program, run=[*program.run, f"--gtest_filter={pattern}"], slow=True)]


def sandbox(scratch):
    """As root, a program that a mutant leads astray can write into its own folder only."""
    if os.geteuid() != 0 or not shutil.which("unshare"):
        return []
    script = 'mount --bind "$0" "$0" && mount -o remount,bind,ro / && cd "$0" && exec "$@"'
    prefix = ["unshare", "--mount", "--propagation", "private", "sh", "-c", script, str(scratch)]
    return prefix if subprocess.run([*prefix, "true"], check=False).returncode == 0 else []


class Runner:
    """Compiles, links and runs in a scratch folder of its own."""

    def __init__(self, build, scratch):
        self.build = Path(build).resolve()
        self.scratch = Path(scratch)
        self.originals = {}  # the objects of unchanged sources
        self.headers = {}  # the precompiled header of each source
        self.object = self.scratch / "mutant.o"
        self.log = self.scratch / "output.txt"
        self.linker = faster_linker()
        self.prefix = sandbox(self.scratch)

    def compile(self, command, source, directory, text, header):
        """Compiles the text in the place of the source. Returns whether it compiles."""
        changed = self.scratch / "mutant.cpp"
        changed.write_text(text, encoding="utf-8")
        words = [word for word in shlex.split(command) if not word.startswith("-W")]
        if Path(words[0]).name == "ccache":
            words = words[1:]
        words[words.index("-o") + 1] = str(self.object)
        words = [str(changed) if word == source else word for word in words]
        words += ["-w", "-iquote", str(Path(source).parent)]
        if header:
            words += ["-include", str(header)]
        self.object.unlink(missing_ok=True)
        done = subprocess.run(words, cwd=directory, capture_output=True, check=False, timeout=300)
        return done.returncode == 0

    def link(self, program):
        output = self.scratch / Path(program.output).name
        words = list(program.link)
        words[words.index("-o") + 1] = str(output)
        first = next(at for at, word in enumerate(words) if word.endswith(".o"))
        if self.object.exists():
            words.insert(first, str(self.object))
        done = subprocess.run([*words, *self.linker], cwd=self.build, capture_output=True, text=True,
                              check=False)
        if done.returncode != 0:
            raise RuntimeError(f"{program.target} cannot be linked:\n{done.stderr[-2000:]}")
        return output

    def environment(self):
        """Folders of the run's own. They are emptied, since a mutant may leave anything there."""
        home = self.scratch / "home"
        subprocess.run(["chmod", "-Rf", "u+rwX", str(home)], check=False)
        shutil.rmtree(home, ignore_errors=True)
        for name in ("", "tmp", "run", "config", "data", "cache", "state"):
            (home / name).mkdir(parents=True, exist_ok=True)
        (home / "run").chmod(0o700)
        # Tests of other users' rights enter it.
        (home / "tmp").chmod(0o1777)
        kept = {name: os.environ[name] for name in ("PATH", "LANG", "LD_LIBRARY_PATH", "USER", "LOGNAME")
                if name in os.environ}
        return {**kept, "HOME": str(home), "TMPDIR": str(home / "tmp"),
                "XDG_RUNTIME_DIR": str(home / "run"), "XDG_CONFIG_HOME": str(home / "config"),
                "XDG_DATA_HOME": str(home / "data"), "XDG_CACHE_HOME": str(home / "cache"),
                "XDG_STATE_HOME": str(home / "state"), "QT_QPA_PLATFORM": "offscreen",
                "PYTHONDONTWRITEBYTECODE": "1"}

    def run(self, program, path):
        """Runs a program. Returns its outcome and the processor seconds that it took."""
        environment = self.environment()
        words = [str(path) if word == "{}" else word for word in program.run]

        def limits():
            # A shell ignores them for what it runs in the background.
            for number in (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGPIPE):
                signal.signal(number, signal.SIG_DFL)
            resource.setrlimit(resource.RLIMIT_CPU, (program.processor_seconds,) * 2)
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        log = self.log
        before = time.monotonic()
        with log.open("wb") as output:
            process = subprocess.Popen([*self.prefix, *words], cwd=self.scratch / "home", env=environment,
                                       stdin=subprocess.DEVNULL, stdout=output, stderr=output,
                                       start_new_session=True, preexec_fn=limits)
            try:
                status = process.wait(timeout=program.seconds)
            except subprocess.TimeoutExpired:
                status = None
            finally:
                stop_group(process)
        spent = time.monotonic() - before
        text = log.read_text(encoding="utf-8", errors="replace")
        return Outcome(status != 0, "" if status == 0 else failed_test(program, text, status)), spent


def stop_group(process):
    """Ends what the program left running; its session is its own."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


def failed_test(program, text, status):
    failed = re.search(r"^\[  FAILED  \] (\S+?)[,.]?(?: |$)", text, re.MULTILINE)
    started = re.findall(r"^\[ RUN      \] (\S+)", text, re.MULTILINE)
    if failed:
        return failed[1]
    in_python = re.search(r"^(?:FAIL|ERROR): (\S+)", text, re.MULTILINE)
    name = started[-1] if started else in_python[1] if in_python else program.target
    if status is None or -status in (signal.SIGXCPU, signal.SIGKILL) or status in (152, 137):
        return f"{name} (endless)"
    return f"{name} (ends with {status})" if started or not in_python else name
