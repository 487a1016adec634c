"""The first stations: welcome, grant of the folder, faults, and every kind of agent made once."""

import subprocess
from itertools import cycle
from urllib.request import pathname2url

from agent_table import AGENTS, SCRIPT, filled
from desktop import wait_until

STANDARD = {"AutoCopyScriptsKey": "False", "WarnForSuccessfulExit": "True",
            "DefaultGlobbingKey": "1", "DefaultPriorityKey": "0"}
MUST_SELECT = "You must select your user LaunchAgents folder (~/Library/LaunchAgents)."
NOT_VALIDATED = ("Frimbolate could not validate if you chose your user LaunchAgents folder "
                 "(~/Library/LaunchAgents).")
FAULTS = ("• Name cannot be left blank\n• Condition for launch not selected\n"
          "• No app or script to launch selected")
FIRST_START = (
    "No key found for ShowWelcomeWindow, writing default of True - 3.0",
    "No key found for AutoCopyScriptsKey, writing default of False",
    "No key found for WarnForSuccessfulExit, writing default of True",
    "No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
    "No key found or key is 0 for DefaultPriorityKey, writing default of 0",
    "Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: True - 3.0",
)
GRANTED = ("Must choose LaunchAgents folder response: 1000",
           "Chosen LaunchAgents path matches expected path. Creating bookmark")


def furnish(home):
    """Something to launch of every kind, and a folder to watch."""
    for kind in ("sh", "py", "rb", "pl", "scpt"):
        (home / f"tidy.{kind}").write_text("true\n", encoding="utf-8")
    (home / "tidy.workflow" / "Contents").mkdir(parents=True)
    (home / "inbox").mkdir()
    contents = home / "Radio.app" / "Contents"
    (contents / "MacOS").mkdir(parents=True)
    (contents / "MacOS" / "radio").write_text("#!/bin/sh\n", encoding="utf-8")
    (contents / "Info.plist").write_text(
        '<?xml version="1.0" encoding="UTF-8"?>\n<plist version="1.0"><dict>'
        "<key>CFBundleExecutable</key><string>radio</string></dict></plist>\n", encoding="utf-8")


def welcome(life):
    life.start()
    sheet = life.person.look_at_window("Welcome to Frimbolate")
    life.person.look("button", "Get Started")
    life.keep("welcome")
    life.expect_log(*FIRST_START)
    life.expect_preferences(ShowWelcomeWindow="True - 3.0", **STANDARD)
    life.person.click("check box", "Show this window at start")
    life.person.click("button", "Get Started")
    life.person.wait_until_gone(sheet)
    life.person.look_at_panel("Choose")
    life.expect_log("User does not want to show welcome window, writing value of false",
                    "ERROR WITH ACCESSING BOOKMARK")
    life.expect_preferences(ShowWelcomeWindow="False - 3.0", **STANDARD)


def grant(life):
    """Cancelled once, given to a wrong folder once, and then given."""
    panel = life.person.look_at_panel("Choose")
    life.keep("grant")
    life.person.press("Escape")
    life.person.wait_until_gone(panel)
    life.keyboard.reply(MUST_SELECT, "Try Again")
    life.bus.answer_panel(str(life.home), "Choose")
    life.pointer.reply(NOT_VALIDATED, "Choose Again")
    life.expect_log(GRANTED[0], "Chosen LaunchAgents path does not match expected path:",
                    f"file://{pathname2url(str(life.home))}", GRANTED[0])
    life.pointer.answer_panel(str(life.folder), "Choose")
    life.person.look_at_window("Frimbolate")
    life.expect_log(GRANTED[1])
    life.expect_preferences(ShowWelcomeWindow="False - 3.0", Bookmark=True, **STANDARD)


def faults(life):
    """All are told at once, and marked beside and below their rows."""
    life.person.look_at_window("Frimbolate")
    life.person.press("Tab")
    life.person.press("ctrl+s")
    title = "Some information is missing or incorrect."
    sheet = life.person.look_at_window(title)
    life.person.look("label", FAULTS)
    life.keep("faults")
    life.person.press("Return")
    life.person.wait_until_gone(sheet)
    life.person.wait_for_focus(life.person.look("field", "Name"))
    for hint in ("The agent needs a name", "Choose an application or a script",
                 "Choose when the agent starts"):
        life.person.look("label", hint)
    life.expect_log("Agent failed initial validation with the following errors:",
                    *FAULTS.splitlines())
    life.empty_form()


def make(life, agent, way):
    """Enters an agent, saves it, and looks at the command that loads it."""
    way.write("Name", agent.name)
    for control, text in agent.entered.items():
        life.enter(way, control, filled(text, life.home))
    life.person.look("label", agent.plan)
    life.keep(f"made-{agent.name}")
    life.save(way)
    way.reply("Your launch agent was created.", "Continue")
    life.expect_file(agent)
    target = 3 if agent.entered["What to launch"] == SCRIPT else 2
    life.expect_log("Agent passed initial validation, moving on...",
                    "Saving launch agent, logging all saved values...",
                    f"Agent label key: com.frimbolate.{agent.name}",
                    f"Agent target type is {target}")
    life.person.look_at_window("Load the agent")
    command = life.person.read("field", "Command")
    assert command == f"launchctl load '{life.path(agent.name)}'", command


def every_kind(life):
    """One agent of each kind of target and of schedule, by all ways in turn."""
    for agent, way in zip(AGENTS, cycle((life.pointer, life.keyboard, life.bus, life.menus))):
        make(life, agent, way)
        if agent is AGENTS[0]:
            copy_commands(life, agent)
        else:
            way.reply("Load the agent", "Close")
        life.person.look("label", "Choose a schedule or an event that starts the agent")
    assert sorted(path.name for path in life.folder.iterdir()) == sorted(
        life.path(agent.name).name for agent in AGENTS)


def copy_commands(life, agent):
    """Asks for commands to be copied, and opens a terminal for the first one."""
    life.person.click("check box", "Copy commands to the clipboard automatically")
    life.keep("command")
    life.person.click("button", "Open Terminal")
    wait_until((life.home / "terminal-was-opened").exists, "the terminal to be opened")
    life.pointer.reply("Load the agent", "Close")
    life.expect_log("User wants to autocopy scripts, writing key")
    life.expect_preferences(ShowWelcomeWindow="False - 3.0", Bookmark=True,
                            **STANDARD | {"AutoCopyScriptsKey": "True"})
