"""Existing agents: read, change, discard, switch, load, upgrade, delete; the warnings before."""

import plistlib
from itertools import cycle

import pytest

from agent_table import AGENTS, content
from app import CREATED, LOAD
from waiting import expect_equal, wait_until

IMPORTANT = "Important message:"
UPGRADE = "This launch agent needs to be upgraded."
DISCARD = "Do you want to discard changes?"
DELETE = "Are you sure you want to delete the following launch agent?"
BY_NAME = {agent.name: agent for agent in AGENTS}
# The changed agents: control, new value, and the changed keys of the file.
CHANGES = {
    "tidy_sh": ("Time of day", "22:15",
                {"StartCalendarInterval": {"Weekday": 1, "Hour": 22, "Minute": 15}}),
    "seconds": ("Interval", "120", {"StartInterval": 120}),
    "monthly": ("Day of the month", "1",
                {"StartCalendarInterval": {"Day": 1, "Hour": 23, "Minute": 59}}),
    "advanced": ("Standard error", "/var/log/other", {"StandardErrorPath": "/var/log/other"}),
}
OLD_NAME = "com.fr\u0131mbolate.Veteran.plist"
OLD_AGENT = {"Label": "com.fr\u0131mbolate.Recruit", "ProgramArguments": ["/bin/sh", "/old.sh"],
             "StartInterval": 3600, "ThrottleInterval": 30, "Weight": 0.5}


def store_agents(app, *names):
    """Creates agents in the agents folder, and the files that they launch in the home."""
    app.home.create_targets()
    for name in names:
        app.home.agent_path(name).write_bytes(
            plistlib.dumps(content(BY_NAME[name], app.home.path)))


@pytest.mark.parametrize(
    "agent, method_name", zip(AGENTS, cycle(("bus", "keyboard", "pointer", "menus"))),
    ids=[agent.name for agent in AGENTS])
def test_read_agent(app, request, agent, method_name):
    """The form shows the entered values; the file is unchanged. The input methods alternate."""
    method = request.getfixturevalue(method_name)
    store_agents(app, agent.name)
    app.start_ready(WarnForDelete=False)
    app.read(method, agent)
    method.command("New")
    app.expect_empty_form()
    app.expect_file(agent)


def test_warning_before_the_first_opening(app, pointer, keyboard, menus):
    """Cancelled once, then suppressed permanently."""
    app.start_ready()
    stored = {"ShowWelcomeWindow": "False - 3.0", "Bookmark": True}
    pointer.command("Edit")
    keyboard.reply(IMPORTANT, "Cancel")
    app.home.expect_log("User cancelled editing agent.")
    app.home.expect_preferences(**stored)
    menus.command("Edit")
    app.driver.find_window(IMPORTANT)
    pointer.toggle("Do not show this message again")
    app.keep_picture("warning")
    pointer.reply(IMPORTANT, "Continue")
    keyboard.cancel_panel("Select")
    app.home.expect_preferences(WarnForDelete=False, **stored)
    pointer.command("Edit")
    keyboard.cancel_panel("Select")


@pytest.mark.parametrize("name", CHANGES)
def test_change_agent(app, keyboard, name):
    """Replaces the file that was read, with one value changed and all others kept."""
    control, text, changes = CHANGES[name]
    store_agents(app, name)
    app.start_ready(WarnForDelete=False)
    app.read(keyboard, BY_NAME[name])
    app.enter(keyboard, control, text)
    app.save_over(keyboard)
    keyboard.reply(CREATED, "Skip")
    app.expect_file(BY_NAME[name], **changes)
    app.home.expect_log("User skipped loading agent.")


def test_opening_asks_to_discard_changes(app, pointer, keyboard, menus):
    app.start_ready(WarnForDelete=False)
    keyboard.write("Name", "Unfinished")
    pointer.command("Edit")
    pointer.reply(DISCARD, "Cancel")
    app.find_main_window()
    assert app.driver.read("field", "Name") == "Unfinished"
    menus.command("Edit")
    keyboard.reply(DISCARD, "Continue")
    keyboard.cancel_panel("Select")
    app.find_main_window()
    assert app.driver.read("field", "Name") == ""


def test_switch_agent_on_and_off(app, method):
    """Cancelled once, then off, on, and off again; all other keys are kept."""
    store_agents(app, "daily")
    app.start_ready()
    before = app.home.read_agent("daily")
    for state, button, enabled in (("enabled", "Cancel", None), ("enabled", "Continue", False),
                                   ("disabled", "Continue", True), ("enabled", "Continue", False)):
        method.command("On/Off")
        method.answer_panel(str(app.home.agent_path("daily")), "Select")
        method.reply(f"This launch agent is currently {state}.", button)
        expected = before if enabled is None else before | {"Enabled": enabled}
        wait_until(lambda: app.home.read_agent("daily") == expected, f"{expected}")


@pytest.mark.parametrize("command", ("Load", "Unload"))
def test_command_is_shown_and_copied(app, method, command):
    """The sheet shows the command, which the setting copies to the clipboard."""
    store_agents(app, "alive")
    app.start_ready(AutoCopyScriptsKey="True")
    path = app.home.agent_path("alive")
    method.command(command)
    method.answer_panel(str(path), "Select")
    title = f"{command} the agent"
    shown = app.expect_command(title, command.lower(), path)
    method.reply(title, "Close")
    # Every method pastes with the keyboard, because this checks the clipboard only.
    field = app.driver.click("field", "Name")
    app.driver.wait_for_focus(field)
    app.driver.press("ctrl+v")
    app.driver.wait_until(lambda: app.driver.text(field) == shown, "the command to be pasted")


def test_copying_and_terminal_of_the_command(app, pointer, keyboard):
    """The sheet of a new agent offers automatic copying and a terminal."""
    app.home.create_targets()
    app.start_ready()
    app.make(pointer, AGENTS[0])
    app.driver.click("check box", "Copy commands to the clipboard automatically")
    app.keep_picture("command")
    app.driver.click("button", "Open Terminal")
    wait_until((app.home.path / "terminal-was-opened").exists, "the terminal to be opened")
    pointer.reply(LOAD, "Close")
    app.expect_cleared_rows()
    app.home.expect_log("User wants to autocopy scripts, writing key")
    app.home.expect_preferences(ShowWelcomeWindow="False - 3.0", Bookmark=True,
                                AutoCopyScriptsKey="True")


def test_upgrade_agent(app, method, bus):
    """Cancelled once; then the file gets its new name and label, and keeps all other keys.

    Every method sets the path over the bus, because xdotool cannot type its dotless i.
    """
    old = app.home.agents_folder / OLD_NAME
    old.write_bytes(plistlib.dumps(OLD_AGENT))
    app.start_ready(WarnForDelete=False)
    method.command("Edit")
    bus.answer_panel(str(old), "Select")
    method.reply(UPGRADE, "Cancel")
    app.expect_cleared_rows()
    assert plistlib.loads(old.read_bytes()) == OLD_AGENT
    method.command("Edit")
    bus.answer_panel(str(old), "Select")
    method.reply(UPGRADE, "Ok")
    app.driver.find_panel("Save")
    assert app.driver.read("field", "Name") == "com.frimbolate.Veteran.plist"
    app.driver.wait_until_gone(method.accept_panel("Save"))
    wait_until(lambda: not old.exists(), "the old file to be removed")
    expect_equal(app.home.read_agent("Veteran"), OLD_AGENT | {"Label": "com.frimbolate.Veteran"})
    app.home.expect_log("Agent must be upgraded!", "Agent must be upgraded!", "Upgrading Agent...",
                        "The upgraded path exists, removing the old path")


def test_delete_agent(app, pointer):
    """Cancelled once; then the agent is deleted, and the others are unchanged."""
    store_agents(app, "daily", "login")
    app.start_ready(WarnForDelete=False)
    path = app.home.agent_path("daily")
    for button in ("Cancel", "Delete"):
        pointer.command("Delete")
        pointer.answer_panel(str(path), "Select")
        app.driver.find_window(DELETE)
        app.driver.find("label", str(path))
        pointer.reply(DELETE, button)
        if button == "Cancel":
            assert path.exists()
    wait_until(lambda: not path.exists(), "the agent to be deleted")
    app.home.expect_log(f"Writable status: {path}", "1")
    assert app.home.agent_names() == [app.home.agent_path("login").name]
    app.expect_file(BY_NAME["login"])
