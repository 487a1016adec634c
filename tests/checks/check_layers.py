"""Fails on an include that docs/layers.txt does not allow, on Qt or a system header in a module
that must not know them, and on painting outside of widgets/style.

The compiler accepts all of these: the modules share one include path, and so do the parts of Qt.
"""

import re
import sys
from pathlib import Path

from sources import LAYERS, MODULES, ROOT, module_of, sources

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*(?:"([^"]*)"|<([^>]*)>)', re.MULTILINE)
# The headers of the standard library have no suffix, folder or capital letter.
STANDARD = re.compile(r"[a-z_]+[0-9]*")
QT = re.compile(r"Q[A-Z].*|Qt.*")
QT_MODULES = ("qt", "widgets", "app")
SYSTEM_MODULES = ("posix", "cli", "qt", "macos", "app")
# Only PAINTING chooses colours, fonts and strokes.
PAINTERS = re.compile(r"QPainter.*|QBrush|QPen|QStylePainter|QProxyStyle")
PAINTING = "widgets/style"


def project_include_fault(module, target, root):
    """What is wrong with #include "target" in a module, or None."""
    if not (root / target).is_file():
        return "is no file seen from the root"
    other = module_of(Path(target))
    if module is None:
        return None
    if other is None:
        return "belongs to no module"
    # A module that may include another may include the folders inside it.
    allowed = any(
        other == name or other.startswith(f"{name}/") for name in (module, *MODULES[module])
    )
    return None if allowed else f"is not for {module}"


def library_include_fault(module, target):
    """What is wrong with #include <target> in a module, or None."""
    if module is None or STANDARD.fullmatch(target):
        return None
    folder = module.split("/")[0]
    if folder == "widgets" and PAINTERS.fullmatch(target) and module != PAINTING:
        return f"paints outside of {PAINTING}"
    if QT.fullmatch(target):
        return None if folder in QT_MODULES else f"brings Qt into {module}"
    return None if folder in SYSTEM_MODULES else f"brings more than the standard library into {module}"


def cycles(modules):
    """The modules that can be reached from themselves."""

    def reached(start):
        seen, waiting = set(), list(modules[start])
        while waiting:
            module = waiting.pop()
            if module not in seen:
                seen.add(module)
                waiting.extend(modules[module])
        return seen

    return [module for module in modules if module in reached(module)]


def faults(root=ROOT):
    """A line for each forbidden include, and for each cycle in the list of layers."""
    found = [f"{LAYERS.name}: {module} depends on itself" for module in cycles(MODULES)]
    for path in sources(root):
        module = module_of(path)
        text = (root / path).read_text(encoding="utf-8")
        for match in INCLUDE.finditer(text):
            own, library = match.groups()
            if own is not None:
                fault = project_include_fault(module, own, root)
            else:
                fault = library_include_fault(module, library)
            if fault:
                line = text.count("\n", 0, match.start(0)) + 1
                found.append(f"{path}:{line}: {own or library} {fault}")
    return found


if __name__ == "__main__":
    found = faults()
    print(*found, sep="\n")
    print(f"{len(sources())} sources, {len(found)} forbidden includes")
    sys.exit(1 if found or not sources() else 0)
