"""Which files are sources of the program, and in which room each stands."""

from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

# From the ground up; rooms of the same height do not know each other.
HEIGHTS = {
    "core": 0,
    "plist": 1,
    "platform": 2,
    "settings": 3,
    "operations": 4,
    "ui": 5,
    "platform/qt": 6,
    "platform/macos": 6,
    "ui/widgets": 6,
    "app": 7,
}
# They look into any room.
OUTSIDE = ("resources", "tests", "bench")
SUFFIXES = (".cpp", ".h", ".mm")


def sources(root=ROOT):
    """The sources, as paths from the root."""
    folders = {room.split("/")[0] for room in HEIGHTS} | set(OUTSIDE)
    return sorted(
        path.relative_to(root)
        for folder in folders
        for path in (root / folder).rglob("*")
        if path.suffix in SUFFIXES
    )


def room_of(path):
    """The room of a path from the root, or None outside of all rooms."""
    for parent in path.parents:
        if parent.as_posix() in HEIGHTS:
            return parent.as_posix()
    return None


if __name__ == "__main__":
    print(*sources(), sep="\n")
