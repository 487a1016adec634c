"""Fails when a file is too long, a module has no README, two headers share a name, a source does
not belong to a header, or a document's list of layers differs from docs/layers.txt."""

import sys
from collections import Counter

from sources import LAYERS, MODULES, ROOT, module_of, scripts, sources

MAXIMUM_LINES = 400
WITH_README = (*sorted({module.split("/")[0] for module in MODULES}), "resources", "tests")
QUOTING = ("README.md", "CONTRIBUTING.md")
# It defines main() alone, which no header declares.
WITHOUT_HEADER = ("app/main.cpp",)


def long_files(root):
    for path in [*sources(root), *scripts(root)]:
        length = len((root / path).read_text(encoding="utf-8").splitlines())
        if length > MAXIMUM_LINES:
            yield f"{path}: {length} lines, {MAXIMUM_LINES} at most"


def missing_readmes(root):
    for folder in WITH_README:
        if (root / folder).is_dir() and not (root / folder / "README.md").is_file():
            yield f"{folder}/README.md is missing"


def shared_names(root):
    headers = [path for path in sources(root) if path.suffix == ".h"]
    counts = Counter(path.name for path in headers)
    for path in headers:
        if counts[path.name] > 1:
            yield f"{path}: another header has this name"


def sources_without_header(root):
    """A source has the name of its header, or that name followed by an underscore and a suffix."""
    for path in sources(root):
        if path.suffix == ".h" or module_of(path) is None or path.as_posix() in WITHOUT_HEADER:
            continue
        headers = [header.stem for header in (root / path).parent.glob("*.h")]
        if not any(path.stem == name or path.stem.startswith(f"{name}_") for name in headers):
            yield f"{path}: no header declares what it defines"


def unquoted_layers(root, layers):
    quoted = f"```\n{layers}```"
    for name in QUOTING:
        document = root / name
        if document.is_file() and quoted not in document.read_text(encoding="utf-8"):
            yield f"{name}: does not quote {LAYERS.name} as it is"


def faults(root=ROOT, layers=None):
    """A line for each fault."""
    if layers is None:
        layers = LAYERS.read_text(encoding="utf-8")
    return [
        *long_files(root),
        *missing_readmes(root),
        *shared_names(root),
        *sources_without_header(root),
        *unquoted_layers(root, layers),
    ]


if __name__ == "__main__":
    found = faults()
    print(*found, sep="\n")
    print(f"{len(sources()) + len(scripts())} files, {len(found)} faults")
    sys.exit(1 if found or not sources() else 0)
