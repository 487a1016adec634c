"""Type-checks a module as a Mac's compiler would: compile_for_macos.py <options> <module>

Runs clang without making code: for the Mac's processor and system, with libc++, the C library of
this machine, and the headers in stubs/ and frameworks/ for what is different there. Ninja remembers
what has been checked, so that a second run looks only at what changed.

The module "headers" makes the precompiled headers of the others. The module "faults" is a folder of
sources with errors that must be found: clang compares them with the comments there.
"""

import argparse
import re
import shlex
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parents[1]
WITH_TOOLKIT = ("qt", "widgets", "app")
BATCH = 16
EXCLUDED = re.compile(r'if\(APPLE\)[^()]*list\(FILTER sources EXCLUDE\s+REGEX\s+"([^"]+)"\)')
# Clang presets __nonnull for macOS, and the C library of Linux has another macro of this name.
# The other names bring out what macOS always declares, and no macros in place of functions.
SYSTEM = ["-U__nonnull", "-D_DEFAULT_SOURCE", "-D_XOPEN_SOURCE=700", "-D__NO_CTYPE"]


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    for option in ("build", "clang", "libcxx", "libc", "ninja", "target", "toolkit", "flags",
                   "version"):
        parser.add_argument(f"--{option}", required=True)
    parser.add_argument("module")
    return parser.parse_args()


def common_flags(options):
    return [
        "-target", options.target, "-std=c++20", *options.flags.split(";"), *SYSTEM,
        f'-DFRIMBOLATE_VERSION="{options.version}"', "-Wno-pragma-once-outside-header",
        "-stdlib=libc++", "-nostdinc++", "-isystem", HERE / "stubs", "-isystem", HERE / "frameworks",
        "-isystem", options.libcxx, *system_folders(options.libc), f"-I{ROOT}",
    ]


def system_folders(joined):
    return [flag for folder in joined.split(";") for flag in ("-isystem", folder)]


def without_comments(text):
    return re.sub(r"#.*", "", text)


def sources_of(module):
    """What the build compiles there: all sources but those that the module's list excludes."""
    folder = HERE / module if module == "faults" else ROOT / module
    found = sorted(path for suffix in ("cpp", "mm") for path in folder.rglob(f"*.{suffix}"))
    listing = folder / "CMakeLists.txt"
    text = listing.read_text("utf-8") if listing.exists() else ""
    excluded = EXCLUDED.search(without_comments(text))
    if excluded:
        pattern = re.compile(excluded[1].replace("\\\\", "\\"))
        found = [path for path in found if not pattern.search(path.as_posix())]
    # A module of headers alone: the headers themselves.
    return found or sorted(folder.rglob("*.h"))


def language(path):
    if path.suffix == ".mm":
        return ["-x", "objective-c++", "-fobjc-arc"]
    return ["-x", "c++"]


class Plan:
    """A list of steps for ninja."""

    def __init__(self):
        self.lines = ["rule step", "  command = $command", "  depfile = $out.d",
                      "  description = $description"]

    def add(self, output, inputs, description, command, touches):
        line = shlex.join(str(word) for word in [*command, "-MD", "-MF", f"{output}.d",
                                                 "-MT", output])
        if touches:
            line += " && " + shlex.join(["touch", str(output)])
        self.lines += [f"build {output}: step {' '.join(map(str, inputs))}",
                       "  command = " + line.replace("$", "$$"),
                       f"  description = {description}"]

    def run(self, ninja, folder):
        folder.mkdir(parents=True, exist_ok=True)
        written(folder / "build.ninja", "\n".join(self.lines) + "\n")
        return subprocess.run([ninja, "-C", folder, "-k", "0", "-j", "1"], check=False).returncode


def headers(options, plan, build):
    for name, flags in (("standard", []), ("toolkit", system_folders(options.toolkit))):
        source, output = HERE / f"{name}_headers.h", build / f"{name}.pch"
        plan.add(output, [source], source.name,
                 [options.clang, *common_flags(options), *flags, "-fpch-instantiate-templates",
                  "-x", "c++-header", source, "-o", output], touches=False)


def module(options, plan, build):
    name = options.module
    with_toolkit = name in WITH_TOOLKIT
    precompiled = build / ("toolkit.pch" if with_toolkit else "standard.pch")
    flags = system_folders(options.toolkit) if with_toolkit else []
    if name == "faults":
        flags = ["-Xclang", "-verify"]
    found = sources_of(name)
    if not found:
        sys.exit(f"{name} has no sources")
    for output, sources in batches(name, found).items():
        source, *rest = sources
        # A precompiled header is of one language.
        first = (["-include", HERE / "missing_names.h"] if source.suffix == ".mm"
                 else ["-include-pch", precompiled])
        if rest:
            source = written(build / name / f"{output}.cpp",
                             "".join(f'#include "{path}"\n' for path in sources))
        plan.add(build / name / f"{output}.checked", [source, precompiled], f"{name} {output}",
                 [options.clang, *common_flags(options), *flags, *first, *language(source),
                  "-fsyntax-only", source], touches=True)


def batches(module_name, sources):
    """The sources that are checked at once, by the name of their output: as the build does it, most
    of the time goes to the headers that they share."""
    together = [path for path in sources
                if path.suffix == ".cpp" and module_name != "faults"]
    named = {f"batch_{i // BATCH}": together[i:i + BATCH] for i in range(0, len(together), BATCH)}
    alone = [path for path in sources if path not in together]
    return named | {path.relative_to(ROOT).as_posix().replace("/", "."): [path] for path in alone}


def written(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    if not path.exists() or path.read_text("utf-8") != text:
        path.write_text(text, "utf-8")
    return path


def main():
    options = arguments()
    build = Path(options.build).resolve()
    plan = Plan()
    (headers if options.module == "headers" else module)(options, plan, build)
    return plan.run(options.ninja, build / options.module)


if __name__ == "__main__":
    sys.exit(main())
