"""Plays the program's main job through its accessible interface alone, from the first start on.

    test_a11y_only.py <program> <folder for the pictures>

Ends with 0 only when the agent on disk is the one that was asked for.
"""

import plistlib

from desktop import perform, wait_until
from test_first_agent import NAME, expected_agent, launch_agents_folder, script_to_launch

TYPED = "echo “hello”\nexit 0"
OTHER_AGENT = {
    "Label": "com.frimbolate.Typed",
    "ProgramArguments": ["/bin/sh", "-c", TYPED],
    "StartInterval": 300,
    "RunAtLoad": True,
    "StandardOutPath": "/var/log/typed.log",
    "EnableGlobbing": False,
    "LowPriorityIO": True,
    "Nice": 7,
}


def grant(person, folder):
    person.use("button", "Get Started")
    person.fill_panel(str(folder), "Choose")


def main_job(person, folder, script):
    """Fills in the form, saves it, and returns the agent and the command shown."""
    person.put("field", "Name", NAME)
    person.pick("What to launch", "Application or script…")
    person.fill_panel(str(script), "Select")
    person.pick("When to launch", "Launch on schedule")
    person.pick("Schedule", "Every Wednesday")
    person.put("time", "Time of day", "07:05")
    person.look("label", "Every Wednesday at 07:05")
    return save(person, folder / f"com.frimbolate.{NAME}.plist")


def save(person, path):
    person.use("button", "Save")
    person.fill_panel(str(path), "Save")
    person.use("button", "Continue")
    command = person.read("field", "Command")
    person.use("button", "Close")
    return plistlib.loads(path.read_bytes()), command


def all_controls(person, folder):
    """An agent that every other kind of control has a part in."""
    person.use("button", "New")
    person.put("field", "Name", "Typed")
    person.pick("What to launch", "New script…")
    person.look("dialog", "Script")
    person.pick("Language", "Shell (/bin/sh)")
    person.put("field", "Script", TYPED)
    person.look("label", f"Script: {TYPED}".replace("\n", " "))
    person.pick("When to launch", "Launch on schedule")
    person.pick("Schedule", "On Interval")
    person.put("field", "Interval", "5")
    person.pick("Unit of the interval", "minutes")
    person.look("label", "Every 5 minutes")
    person.use("check box", "Advanced")
    person.pick("Priority", "Low")
    person.slide("Nice level", 7)
    wait_until(lambda: person.read("field", "Nice level") == "7", "the nice level")
    person.put("field", "Standard output", "/var/log/typed.log")
    person.use("check box", "Agent loads")
    return save(person, folder / "com.frimbolate.Typed.plist")


def play(desktop, program, _):
    from atspi_driver import Assistive  # connects to the bus of the running desktop

    folder, script = launch_agents_folder(desktop), script_to_launch(desktop)
    desktop.start(str(program))
    person = Assistive("Frimbolate")
    grant(person, folder)
    agent, command = main_job(person, folder, script)
    assert agent == expected_agent(script), agent
    assert command == f"launchctl load '{folder}/com.frimbolate.{NAME}.plist'", command
    agent, command = all_controls(person, folder)
    assert agent == OTHER_AGENT, agent
    assert command == f"launchctl load '{folder}/com.frimbolate.Typed.plist'", command


if __name__ == "__main__":
    perform(play, __doc__)
