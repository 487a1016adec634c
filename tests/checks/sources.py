"""The sources of the program, and the module of each."""

from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LAYERS = ROOT / "docs" / "layers.txt"

# Folders outside of the modules. Their sources may include any module.
OUTSIDE = ("resources", "tests", "bench")
SUFFIXES = (".cpp", ".h", ".mm")


def read_layers(path=LAYERS):
    """Maps each module to the other modules that it may include."""
    rows = (line.split() for line in path.read_text(encoding="utf-8").splitlines())
    return {row[0]: frozenset(row[1:]) for row in rows if row}


MODULES = read_layers()


def sources(root=ROOT):
    """The sources, as paths from the root."""
    folders = {module.split("/")[0] for module in MODULES} | set(OUTSIDE)
    return sorted(
        path.relative_to(root)
        for folder in folders
        for path in (root / folder).rglob("*")
        if path.suffix in SUFFIXES
    )


def scripts(root=ROOT):
    """The Python files of the tests, as paths from the root."""
    return sorted(path.relative_to(root) for path in (root / "tests").rglob("*.py"))


def module_of(path):
    """The module of a path from the root, or None outside of all modules."""
    for parent in path.parents:
        if parent.as_posix() in MODULES:
            return parent.as_posix()
    return None


if __name__ == "__main__":
    print(*sources(), sep="\n")
