"""Reads docs/mutants.md: the mutants that no test can tell from the program, and why."""

import re
from pathlib import Path

HEADING = re.compile(r"### (\S+\.cpp): (\S*)(?: \((\d+)\))?")


def read_equivalents(path):
    """Maps the key of each listed mutant to its reason. Raises ValueError on an entry that is none.

    An entry is a heading with the file, the function and, of equal changes, the number; a block with
    the line before and after; and the reason."""
    listed = {}
    text = Path(path).read_text(encoding="utf-8")
    for entry in re.split(r"^(?=### )", text, flags=re.MULTILINE)[1:]:
        heading, _, rest = entry.partition("\n")
        match = HEADING.fullmatch(heading.strip())
        block = re.fullmatch(r"\s*```diff\n-(.*)\n\+(.*)\n```\n(.*)", rest, re.DOTALL)
        if not match or not block or "\n" in block[1] + block[2] or not block[3].strip():
            raise ValueError(f"{path}: no entry: {heading}")
        key = (match[1], match[2], block[1].strip(), block[2].strip(), int(match[3] or 1))
        if key in listed:
            raise ValueError(f"{path}: listed twice: {heading}")
        listed[key] = " ".join(re.split(r"^#", block[3], flags=re.MULTILINE)[0].split())
    return listed


def entry_text(mutant, reason="…"):
    """The entry of a mutant, to be put into the document."""
    number = f" ({mutant.number})" if mutant.number > 1 else ""
    return (f"### {mutant.file}: {mutant.function}{number}\n\n```diff\n-{mutant.before}\n"
            f"+{mutant.after}\n```\n\n{reason}\n")


def outdated(listed, keys):
    """The listed keys that are no mutants of the sources."""
    return sorted(set(listed) - set(keys))
