"""Fails where a claim of docs/security.md names no test, or one that does not exist."""

import re
import sys

from sources import ROOT, scripts

DOCUMENT = "docs/security.md"
HEADER = "| Claim | Tests |"
GTEST = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)
PYTHON = re.compile(r"^(?:class (\w+)|\s*def (\w+))", re.MULTILINE)


def tests_in(root):
    """`Suite.Name` of C++ and of Python's classes, and `file.py::name` of Python's functions."""
    found = set()
    for path in sorted((root / "tests").rglob("*.cpp")):
        found |= {f"{suite}.{name}" for suite, name in GTEST.findall(path.read_text(encoding="utf-8"))}
    for path in scripts(root):
        suite = None
        for outer, name in PYTHON.findall((root / path).read_text(encoding="utf-8")):
            suite = outer or suite
            if name:
                found |= {f"{path.name}::{name}"} | ({f"{suite}.{name}"} if suite else set())
    return found


def claims(text):
    """The line number, the claim and the named tests of each row."""
    is_table = False
    for number, line in enumerate(text.splitlines(), 1):
        cells = [cell.strip() for cell in line.split("|")[1:-1]]
        if line == HEADER:
            is_table = True
        elif not cells:
            is_table = False
        elif is_table and len(cells) == 2 and set(cells[0]) != {"-"}:
            yield number, cells[0], re.findall(r"`([^`]+)`", cells[1])


def faults(root=ROOT):
    """A line for each fault."""
    text = (root / DOCUMENT).read_text(encoding="utf-8")
    known = tests_in(root)
    found = []
    rows = list(claims(text))
    for number, claim, tests in rows:
        if not tests:
            found.append(f"{DOCUMENT}:{number}: no test for “{claim}”")
        found += [f"{DOCUMENT}:{number}: there is no test {test}" for test in tests if test not in known]
    return found or ([] if rows else [f"{DOCUMENT}: it claims nothing"])


if __name__ == "__main__":
    found = faults()
    print(*found, sep="\n")
    print(f"{len(list(claims((ROOT / DOCUMENT).read_text(encoding='utf-8'))))} claims, {len(found)} faults")
    sys.exit(1 if found else 0)
