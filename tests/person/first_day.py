"""Plays a person's whole first day: from the welcome over an agent's life to the second start.

    first_day.py <program> <folder for the pictures>

Ends with 0 only when every file on the way, and the log, are as they should be.
"""

import argparse
import os
import plistlib
import sys
from pathlib import Path

from desktop import Desktop, wait_until
from main_job import launch_agents_folder, script_to_launch

NAME = "Backup"

# What the log says of this day, in this order; other lines may stand between.
LOG = [
    "No key found for ShowWelcomeWindow, writing default of True - 3.0",
    "Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: True - 3.0",
    "User does not want to show welcome window, writing value of false",
    "ERROR WITH ACCESSING BOOKMARK",
    "Must choose LaunchAgents folder response: 1000",
    "Chosen LaunchAgents path matches expected path. Creating bookmark",
    "Agent failed initial validation with the following errors:",
    "• Name cannot be left blank",
    "• Condition for launch not selected",
    "• No app or script to launch selected",
    "Last path component: sh",
    "Agent passed initial validation, moving on...",
    "Saving launch agent, logging all saved values...",
    "Agent label key: com.frimbolate.Backup",
    "Agent target type is 2",
    "Creating agent arguments, last path component is: sh",
    "User wants to autocopy scripts, writing key",
    "Found key found for ShowWelcomeWindow, value of False - 3.0",
    "Found key found for AutoCopyScriptsKey, value of True",
    "Agent was created with Frimbolate.",
    "Agent runs on every day on a schedule",
    "StandardOutPath key: /var/log/backup.log",
    "Completed evaluating primary keys for editing",
    "User skipped loading agent.",
]


class Day:
    """The stations of the day, in their order."""

    def __init__(self, desktop, program, pictures):
        self.desktop, self.program, self.pictures = desktop, program, pictures
        self.folder, self.script = launch_agents_folder(desktop), script_to_launch(desktop)
        self.agent = self.folder / f"com.frimbolate.{NAME}.plist"
        self.process = self.person = None

    def keep(self, name):
        self.desktop.picture(self.pictures / f"{name}.png")

    def content(self):
        return plistlib.loads(self.agent.read_bytes())

    def start(self):
        from hands_and_eyes import Person  # connects to the bus of the running desktop

        self.process = self.desktop.start(str(self.program))
        self.person = self.person or Person("Frimbolate")

    def welcome(self):
        self.start()
        self.person.look("button", "Get Started")
        self.keep("day-1-welcome")
        self.person.click("check box", "Show this window at start")
        self.person.click("button", "Get Started")

    def grant(self):
        self.person.look("button", "Choose")
        self.person.press("Escape")
        self.person.click("button", "Try Again")
        self.person.answer_panel(str(self.folder), "Choose")

    def faults(self):
        self.person.look("field", "Name")
        self.person.press("ctrl+s")
        self.person.look("button", "Ok")
        self.keep("day-2-faults")
        self.person.press("Return")

    def fill_in(self):
        self.person.write("Name", NAME)
        self.person.choose_file("What to launch", "Application or script…", str(self.script))
        self.person.choose("When to launch", "Launch on schedule")
        self.person.set_time("Time of day", "07:05")
        self.person.press("ctrl+shift+d")
        self.person.write("Standard output", "/var/log/backup.log")
        self.keep("day-3-drawer")

    def save(self):
        self.person.press("ctrl+s")
        self.person.look("button", "Cancel")
        self.person.press("Return")
        self.person.look("button", "Continue")
        assert self.content()["StandardOutPath"] == "/var/log/backup.log"
        self.person.press("Return")
        command = self.person.read("field", "Command")
        assert command == f"launchctl load '{self.agent}'", command
        self.person.click("check box", "Copy commands to the clipboard automatically")
        self.keep("day-4-command")
        self.person.click("button", "Close")

    def quit_and_start_again(self):
        self.person.look("field", "Name")
        self.person.press("ctrl+q")
        wait_until(lambda: self.process.poll() is not None, "the program to quit")
        assert self.process.returncode == 0
        self.start()
        self.person.look("field", "Name")

    def read_back_and_change(self):
        self.person.press("ctrl+o")
        self.person.click("button", "Continue")
        self.person.answer_panel(str(self.agent), "Select")
        wait_until(lambda: self.person.read("field", "Name") == NAME, "the agent to be read")
        self.keep("day-5-read")
        before = self.content()
        self.person.write("Standard error", "/var/log/backup.err")
        self.person.press("ctrl+s")
        self.person.look("button", "Cancel")
        self.person.press("Return")
        self.person.click("button", "Replace")
        self.person.click("button", "Skip")
        assert self.content() == before | {"StandardErrorPath": "/var/log/backup.err"}

    def switch(self, message, enabled):
        before = self.content()
        self.person.look("field", "Name")
        self.person.press("ctrl+shift+e")
        self.person.answer_panel(str(self.agent), "Select")
        self.person.look("label", message)
        self.person.click("button", "Continue")
        wait_until(lambda: self.content() == before | {"Enabled": enabled}, "the switch")

    def unload(self):
        self.person.look("field", "Name")
        self.person.press("ctrl+shift+l")
        self.person.answer_panel(str(self.agent), "Select")
        assert self.person.read("field", "Command") == f"launchctl unload '{self.agent}'"
        self.person.press("Escape")

    def typed_script(self):
        self.person.look("field", "Name")
        self.person.choose("What to launch", "New script…")
        self.person.type_into_pop_over("Script", "echo hello")
        self.person.look("label", "Script: echo hello")
        self.keep("day-6-script")
        self.person.press("Escape")
        self.person.press("ctrl+n")
        self.person.look("label", "Still needs a name, something to launch and a time to launch it.")

    def delete(self):
        self.person.look("field", "Name")
        self.person.press("ctrl+shift+BackSpace")
        self.person.click("button", "Continue")
        self.person.answer_panel(str(self.agent), "Select")
        self.person.look("label", str(self.agent))
        self.person.click("button", "Delete")
        wait_until(lambda: not self.agent.exists(), "the agent to be deleted")

    def live(self):
        self.welcome()
        self.grant()
        self.faults()
        self.fill_in()
        self.save()
        self.quit_and_start_again()
        self.read_back_and_change()
        self.switch("This launch agent is currently enabled.", False)
        self.switch("This launch agent is currently disabled.", True)
        self.unload()
        self.typed_script()
        self.delete()
        assert os.listdir(self.folder) == [], "something was left behind"


def expect_in_order(lines, log):
    """Every line stands in the log, after those before it."""
    rest = iter(log.splitlines())
    for line in lines:
        assert line in rest, f"not in the log, or not in its place: {line}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", type=Path)
    parser.add_argument("pictures", type=Path)
    arguments = parser.parse_args()
    arguments.pictures.mkdir(parents=True, exist_ok=True)

    with Desktop() as desktop:
        try:
            Day(desktop, arguments.program.resolve(), arguments.pictures).live()
            expect_in_order(LOG, desktop.log())
        except BaseException:
            desktop.picture(arguments.pictures / "day-failed.png")
            print(desktop.log(), file=sys.stderr)
            raise
    print(f"Pictures of the day are in {arguments.pictures.resolve()}")


if __name__ == "__main__":
    main()
