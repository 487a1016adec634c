"""Plays the whole life of a person's agents: from the welcome to the end, every kind on the way.

    whole_life.py <program> <folder for the pictures>

Ends with 0 only when every file on the way, and the log, are as they should be.
"""

import argparse
import sys
import time
from pathlib import Path

from desktop import Desktop


def stations():
    """In their order; each takes the Life."""
    import beginning
    import end
    import middle

    return (
        beginning.welcome,
        beginning.grant,
        beginning.faults,
        beginning.every_kind,
        middle.start_in_the_dark,
        middle.warning,
        middle.read_all,
        middle.change,
        middle.discard,
        middle.start_in_the_light,
        middle.switch,
        middle.load_and_unload,
        middle.upgrade,
        middle.delete,
        end.preferences,
        end.tips,
        end.close_and_bring_back,
        end.quit_by_menu,
    )


def live(desktop, program, pictures):
    from beginning import furnish
    from life import Life  # connects to the bus of the running desktop

    life = Life(desktop, program, pictures)
    furnish(life.home)
    for station in stations():
        begun = time.monotonic()
        station(life)
        print(f"{station.__name__} ({time.monotonic() - begun:.1f} s)", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", type=Path)
    parser.add_argument("pictures", type=Path)
    arguments = parser.parse_args()
    arguments.pictures.mkdir(parents=True, exist_ok=True)
    for picture in arguments.pictures.glob("*.png"):
        picture.unlink()

    with Desktop() as desktop:
        try:
            live(desktop, arguments.program.resolve(), arguments.pictures)
        except BaseException:
            desktop.picture(arguments.pictures / "failed.png")
            print(desktop.log(), file=sys.stderr)
            raise
    print(f"Pictures of this life are in {arguments.pictures.resolve()}")


if __name__ == "__main__":
    main()
