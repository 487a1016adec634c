"""Fails on words for which docs/words.txt names a standard term, in files and their names."""

import re
import subprocess
import sys

from sources import ROOT

WORDS = ROOT / "docs" / "words.txt"
SUFFIXES = (".h", ".cpp", ".mm", ".py", ".md", ".cmake", ".txt", ".1", "")
# They list the words.
EXEMPT = ("docs/words.txt", "tests/checks/checks_test.py")
# Test data, and legal texts, whose wording is given.
DATA = re.compile(r"(^|/)(corpus|cases|LICENSE|copyright)(/|$)")


def read_words(path=WORDS):
    """Maps each word to the one to use in its place."""
    rows = (line.split("\t") for line in path.read_text(encoding="utf-8").splitlines())
    return {row[0]: row[1] for row in rows if len(row) == 2}


def pattern_of(words):
    """Matches whole words. A lower-case word may be capitalized; an identifier matches exactly."""

    def alternative(word):
        if word.islower() and "_" not in word:
            return f"[{word[0]}{word[0].upper()}]{re.escape(word[1:])}"
        return re.escape(word)

    alternatives = "|".join(alternative(word) for word in sorted(words, key=len, reverse=True))
    return re.compile(rf"(?<![A-Za-z0-9_])(?:{alternatives})(?![A-Za-z0-9_])")


def tracked_files(root):
    """The files that git tracks, or every file where the folder is no git checkout."""
    listed = subprocess.run(
        ["git", "-C", str(root), "ls-files"], capture_output=True, text=True, check=False
    )
    names = listed.stdout.splitlines() if listed.returncode == 0 else []
    return names or [
        path.relative_to(root).as_posix() for path in sorted(root.rglob("*")) if path.is_file()
    ]


def faults(root=ROOT, words=None):
    """A line for each occurrence of a word."""
    words = read_words() if words is None else words
    pattern = pattern_of(words)

    def use_for(found):
        return words.get(found) or words[found[0].lower() + found[1:]]

    found = []
    for name in tracked_files(root):
        path = root / name
        if name in EXEMPT or path.suffix not in SUFFIXES or DATA.search(name):
            continue
        try:
            lines = path.read_text(encoding="utf-8").splitlines()
        except (UnicodeDecodeError, IsADirectoryError, FileNotFoundError):
            continue
        found += [
            f"{name}: its name holds “{match[0]}”" for match in pattern.finditer(path.stem)
        ]
        for number, line in enumerate(lines, 1):
            found += [
                f"{name}:{number}: “{match[0]}”; say “{use_for(match[0])}”"
                for match in pattern.finditer(line)
            ]
    return found


if __name__ == "__main__":
    found = faults()
    print(*found, sep="\n")
    print(f"{len(read_words())} words, {len(found)} found")
    sys.exit(1 if found or not read_words() else 0)
