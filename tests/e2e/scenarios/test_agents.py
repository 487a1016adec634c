"""The stations of existing agents: read, changed, switched, loaded, upgraded, deleted."""

import plistlib
from itertools import cycle

from agent_table import AGENTS, content, form
from test_onboarding import STANDARD
from desktop import wait_until
from scenario import expect_equal

IMPORTANT = "Important message:"
SUPPRESS = "Do not show this message again"
# Which agents are changed, where, and what their files hold then.
CHANGES = (
    ("tidy_sh", "Time of day", "22:15",
     {"StartCalendarInterval": {"Weekday": 1, "Hour": 22, "Minute": 15}}),
    ("seconds", "Interval", "120", {"StartInterval": 120}),
    ("monthly", "Day of the month", "1",
     {"StartCalendarInterval": {"Day": 1, "Hour": 23, "Minute": 59}}),
    ("advanced", "Standard error", "/var/log/other", {"StandardErrorPath": "/var/log/other"}),
)
OLD_NAME = "com.fr\u0131mbolate.Veteran.plist"
OLD_AGENT = {"Label": "com.fr\u0131mbolate.Recruit", "ProgramArguments": ["/bin/sh", "/old.sh"],
             "StartInterval": 3600, "ThrottleInterval": 30, "Weight": 0.5}
UPGRADE = "This launch agent needs to be upgraded."
PREFERENCES = STANDARD | {"AutoCopyScriptsKey": "True", "ShowWelcomeWindow": "False - 3.0",
                          "Bookmark": True}


def start_again(life, scheme):
    """Neither welcome nor grant is asked for again."""
    life.quit()
    life.expect_log()
    life.start(scheme=scheme)
    life.person.look_at_window("Frimbolate")
    life.expect_log("Found key found for ShowWelcomeWindow, value of False - 3.0",
                    "Found key found for AutoCopyScriptsKey, value of True")


def start_in_the_dark(life):
    start_again(life, "dark")


def start_in_the_light(life):
    start_again(life, "light")


def warning(life):
    """Cancelled once, then told not to come again."""
    life.pointer.command("Edit")
    life.keyboard.reply(IMPORTANT, "Cancel")
    life.expect_log("User cancelled editing agent.")
    life.expect_preferences(**PREFERENCES)
    life.menus.command("Edit")
    life.person.look_at_window(IMPORTANT)
    life.person.click("check box", SUPPRESS)
    life.keep("warning")
    life.pointer.reply(IMPORTANT, "Continue")
    panel = life.person.look_at_panel("Select")
    life.person.press("Escape")
    life.person.wait_until_gone(panel)
    life.expect_preferences(WarnForDelete=False, **PREFERENCES)


def read(life, agent, way):
    life.open_agent(way, life.path(agent.name))
    life.see_script_again(agent)
    life.person.look("label", agent.plan)
    expect_equal(life.shown(), form(agent))
    life.expect_log("Agent was created with Frimbolate.", agent.log.replace("{home}", str(life.home)),
                    "Completed evaluating primary keys for editing")


def read_all(life):
    """Every agent is read as it was made; nothing is written by that."""
    for agent, way in zip(AGENTS, cycle((life.bus, life.keyboard, life.pointer, life.menus))):
        read(life, agent, way)
        if agent is AGENTS[-1]:
            life.keep("read")
        life.empty_form()
        life.expect_file(agent)


def change(life):
    for (name, control, text, changes), way in zip(
            CHANGES, (life.pointer, life.keyboard, life.bus, life.menus)):
        agent = next(each for each in AGENTS if each.name == name)
        read(life, agent, way)
        life.enter(way, control, text)
        life.save_over(way)
        way.reply("Your launch agent was created.", "Skip")
        life.expect_file(agent, **changes)
        life.expect_log("User skipped loading agent.")


def discard(life):
    """Opening asks first when the form holds a name."""
    question = "Do you want to discard changes?"
    life.keyboard.write("Name", "Unfinished")
    life.pointer.command("Edit")
    life.pointer.reply(question, "Cancel")
    life.person.look_at_window("Frimbolate")
    assert life.person.read("field", "Name") == "Unfinished"
    life.menus.command("Edit")
    life.keyboard.reply(question, "Continue")
    panel = life.person.look_at_panel("Select")
    life.person.press("Escape")
    life.person.wait_until_gone(panel)
    life.person.look_at_window("Frimbolate")
    assert life.person.read("field", "Name") == ""


def switch(life):
    """Off and on again; all else in the file stays."""
    agent = AGENTS[7]
    before = life.on_disk(agent.name)
    for way, state, button, enabled in (
            (life.menus, "enabled", "Cancel", None), (life.pointer, "enabled", "Continue", False),
            (life.bus, "disabled", "Continue", True), (life.keyboard, "enabled", "Continue", False)):
        way.command("On/Off")
        way.answer_panel(str(life.path(agent.name)), "Select")
        way.reply(f"This launch agent is currently {state}.", button)
        expected = before if enabled is None else before | {"Enabled": enabled}
        wait_until(lambda: life.on_disk(agent.name) == expected, f"{expected}")


def load_and_unload(life):
    """Both show their command, which is copied as the person wished."""
    for way, button, title in ((life.keyboard, "Unload", "Unload the agent"),
                               (life.pointer, "Load", "Load the agent")):
        path = life.path("alive")
        way.command(button)
        way.answer_panel(str(path), "Select")
        life.person.look_at_window(title)
        command = life.person.read("field", "Command")
        assert command == f"launchctl {button.lower()} '{path}'", command
        life.keep(button.lower())
        way.reply(title, "Close")
        node = life.pointer.person.click("field", "Name")
        life.person.wait_for_focus(node)
        life.person.press("ctrl+v")
        life.person.wait_until(lambda: life.person.text(node) == command, "the command copied")
        life.empty_form()


def upgrade(life):
    """Cancelled once; then the file gets its new name, a new label, and keeps all else."""
    old = life.folder / OLD_NAME
    old.write_bytes(plistlib.dumps(OLD_AGENT))
    life.pointer.command("Edit")
    life.bus.answer_panel(str(old), "Select")
    life.keyboard.reply(UPGRADE, "Cancel")
    life.person.look("label", "Choose a schedule or an event that starts the agent")
    assert plistlib.loads(old.read_bytes()) == OLD_AGENT
    life.keyboard.command("Edit")
    life.bus.answer_panel(str(old), "Select")
    life.person.look_at_window(UPGRADE)
    life.keep("upgrade")
    life.pointer.reply(UPGRADE, "Ok")
    panel = life.person.look_at_panel("Save")
    assert life.person.read("field", "Name") == "com.frimbolate.Veteran.plist"
    life.person.press("Return")
    life.person.wait_until_gone(panel)
    wait_until(lambda: not old.exists(), "the old file to be removed")
    expect_equal(life.on_disk("Veteran"), OLD_AGENT | {"Label": "com.frimbolate.Veteran"})
    life.expect_log("Agent must be upgraded!", "Agent must be upgraded!", "Upgrading Agent...",
                    "The upgraded path exists, removing the old path")
    life.empty_form()


def delete(life):
    """Cancelled once; then one after another, by all ways."""
    question = "Are you sure you want to delete the following launch agent?"
    names = [path.name for path in life.folder.iterdir()]
    for way, name, button in ((life.pointer, "Veteran", "Cancel"), (life.pointer, "Veteran", "Delete"),
                              (life.keyboard, "daily", "Delete"), (life.bus, "login", "Delete"),
                              (life.menus, "tidy_py", "Delete")):
        path = life.path(name)
        way.command("Delete")
        way.answer_panel(str(path), "Select")
        life.person.look_at_window(question)
        life.person.look("label", str(path))
        way.reply(question, button)
        if button == "Delete":
            wait_until(lambda: not path.exists(), f"{name} to be deleted")
            names.remove(path.name)
            life.expect_log(f"Writable status: {path}", "1")
        assert sorted(each.name for each in life.folder.iterdir()) == sorted(names)
    for agent in AGENTS:
        if life.path(agent.name).exists() and agent.name not in [row[0] for row in CHANGES]:
            expect_equal(life.on_disk(agent.name), content(agent, life.home))
