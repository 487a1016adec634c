"""Plays the whole life of a person's agents: from the welcome to the end, every kind on the way.

    test_end_to_end.py <program> <folder for the pictures>

Ends with 0 only when every file on the way, and the log, are as they should be.
"""

import time

from desktop import perform


def stations():
    """In their order; each takes the Life."""
    import test_onboarding as beginning
    import test_settings as end
    import test_agents as middle

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
    from test_onboarding import furnish
    from scenario import Life  # connects to the bus of the running desktop

    for picture in pictures.glob("*.png"):
        picture.unlink()
    life = Life(desktop, program, pictures)
    furnish(life.home)
    for station in stations():
        begun = time.monotonic()
        station(life)
        print(f"{station.__name__} ({time.monotonic() - begun:.1f} s)", flush=True)


if __name__ == "__main__":
    perform(live, __doc__)
