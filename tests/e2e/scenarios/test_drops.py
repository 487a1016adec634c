"""Drops files from another window on the wells, as a person does out of a file manager.

    test_drops.py <program> <folder for the pictures>

The window beside stands in the folder of this build, as drag_source.
"""

import os
from pathlib import Path

from desktop import perform, wait_until
from test_first_agent import grant_folder, launch_agents_folder, script_to_launch

SOURCE = Path(os.environ["FRIMBOLATE_DRAG_SOURCE"])


def drop(desktop, person, files, well, taken, hint):
    """Drags files out of a window of their own onto a well, whose row has that hint afterwards."""
    from driver import Person  # connects to the bus of the running desktop

    place = person.place_of(person.look("button", well))
    field = person.place_of(person.look("field", "Name"))
    told = len(desktop.log())
    process = desktop.start(SOURCE, *map(str, files))
    source = Person(SOURCE.name)
    person.grasp(source.place_of(source.look("label", "Files")))

    def is_told(words):
        return lambda: desktop.log()[told:].splitlines()[-1:] == [words]

    if not taken:
        # Any text field takes them, so that the refusal afterwards is told as a change.
        person.drag_to(field, is_told("would be taken"), "the field to take them")
    end = "taken" if taken else "refused"
    person.drag_to(place, is_told(f"would be {end}"), f"the well to say that they would be {end}")
    person.let_go()
    wait_until(lambda: f"was {end}" in desktop.log()[told:], f"the files to be {end}")
    person.look_at_window("Frimbolate")
    person.look("label", hint)
    process.terminate()
    process.wait()


def play(desktop, program, pictures):
    from driver import Person

    home = Path(os.environ["HOME"])
    folder, script = launch_agents_folder(desktop), script_to_launch(desktop)
    (note := home / "notes.txt").write_text("no script", encoding="utf-8")
    for name in ("inbox", "outbox"):
        (home / name).mkdir()
    desktop.start(str(program))
    person = Person("Frimbolate")
    grant_folder(person, folder)
    person.look_at_window("Frimbolate")

    target = "Application or script to launch"
    for files in ([note], [script, note], [folder]):
        drop(desktop, person, files, target, taken=False,
             hint="Choose an application or a script, or drop one on the box")
    drop(desktop, person, [script], target, taken=True, hint="~/backup.sh")
    person.choose_file("When to launch", "Launch when a path is modified…", str(home / "inbox"))
    person.look("label", "Watches ~/inbox")
    drop(desktop, person, [home / "outbox"], "Watched path", taken=True, hint="Watches ~/outbox")
    desktop.picture(pictures / "dropped.png")


if __name__ == "__main__":
    perform(play, __doc__)
