"""Plays the program's main job as a person does it, from the first start to the finished agent.

    test_first_agent.py <program> <folder for the pictures>

Ends with 0 only when the agent on disk is the one that was asked for.
"""

import os
import plistlib
import pwd

from desktop import perform, wait_until

NAME = "Backup"


def launch_agents_folder(desktop):
    """An empty folder that the program takes for the person's own."""
    user = pwd.getpwuid(os.geteuid()).pw_name
    folder = desktop.folder / "Users" / user / "Library" / "LaunchAgents"
    folder.mkdir(parents=True)
    return folder


def script_to_launch(desktop):
    script = desktop.folder / "home" / "backup.sh"
    script.write_text("#!/bin/sh\ntar -czf ~/backup.tar.gz ~/Pictures\n", encoding="utf-8")
    script.chmod(0o755)
    return script


def expected_agent(script):
    return {
        "Label": f"com.frimbolate.{NAME}",
        "ProgramArguments": ["/bin/sh", str(script)],
        "StartCalendarInterval": {"Weekday": 3, "Hour": 7, "Minute": 5},
        "EnableGlobbing": False,
        "LowPriorityIO": False,
        "Nice": 0,
    }


def grant_folder(person, folder):
    """The first start: the welcome sheet, then the one question for the folder."""
    person.click("button", "Get Started")
    person.answer_panel(str(folder), "Choose")


def fill_in_form(person, script):
    person.write("Name", NAME)
    person.choose_file("What to launch", "Application or script…", str(script))
    person.choose("When to launch", "Launch on schedule")
    person.choose("Schedule", "Every Wednesday")
    person.set_time("Time of day", "07:05")


def save(person):
    person.press("ctrl+s")
    person.look("button", "Cancel")  # the panel's; a button "Save" stands in the toolbar too
    person.press("Return")


def play(desktop, program, pictures):
    """Returns the path of the agent, the command shown, and what the agent should hold."""
    from driver import Person  # connects to the bus of the running desktop

    folder, script = launch_agents_folder(desktop), script_to_launch(desktop)
    desktop.start(str(program))
    person = Person("Frimbolate")
    person.look("button", "Get Started")
    desktop.picture(pictures / "1-welcome.png")
    grant_folder(person, folder)
    fill_in_form(person, script)
    desktop.picture(pictures / "2-form.png")
    save(person)
    person.look("button", "Continue")
    desktop.picture(pictures / "3-saved.png")
    person.press("Return")
    command = person.read("field", "Command")
    desktop.picture(pictures / "4-command.png")
    return folder / f"com.frimbolate.{NAME}.plist", command, expected_agent(script)


def show(desktop, program, pictures):
    """Plays it, and prints what came of it."""
    path, command, expected = play(desktop, program, pictures)
    wait_until(path.is_file, f"{path}")
    content = path.read_bytes()
    print(f"\nSaved, in a home made for this run, as {path}:\n\n{content.decode()}")
    print(f"The command that loads it:\n\n{command}\n")
    assert plistlib.loads(content) == expected, f"expected {expected}"
    assert command == f"launchctl load '{path}'", "that is not the load command"


if __name__ == "__main__":
    perform(show, __doc__)
