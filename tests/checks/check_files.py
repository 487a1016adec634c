"""Fails when a source is longer than anyone reads, or a room does not explain itself."""

import sys

from sources import HEIGHTS, ROOT, sources

LONGEST = 400
EXPLAINED = (*HEIGHTS, "resources", "tests")


def faults(root=ROOT):
    """A line for each source that is too long and each folder without a README."""
    found = []
    for path in sources(root):
        length = len((root / path).read_text(encoding="utf-8").splitlines())
        if length > LONGEST:
            found.append(f"{path}: {length} lines, {LONGEST} at most")
    for folder in EXPLAINED:
        if (root / folder).is_dir() and not (root / folder / "README.md").is_file():
            found.append(f"{folder}/README.md is missing")
    return found


if __name__ == "__main__":
    found = faults()
    print(*found, sep="\n")
    print(f"{len(sources())} sources, {len(found)} faults")
    sys.exit(1 if found or not sources() else 0)
