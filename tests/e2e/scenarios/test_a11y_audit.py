"""Every state of the window over the accessibility bus.

In each state, every control has a name and a matching role. An alert is announced, and nothing is
announced twice.
"""

import plistlib

import pytest

from a11y_rules import faults, missing
from waiting import wait_until

MENUS = {
    "Frimbolate": ["Preferences…", "Quit Frimbolate"],
    "File": ["New Agent", "Open Agent…", "Save Agent…", "Close Window"],
    "Edit": ["Undo", "Redo", "Cut", "Copy", "Paste", "Select All"],
    "Agent": ["Load…", "Unload…", "Switch On or Off…", "Delete…"],
    "View": ["Form", "Property List", "Agents", "Tips", "Advanced"],
    "Help": ["About Frimbolate"],
}
FORM = [
    "frame 'Frimbolate'", "text 'Name'", "combo box 'What to launch'",
    "push button 'Application or script to launch'", "combo box 'When to launch'",
    "combo box 'Schedule'",
    *[f"push button '{name}'" for name in ("New", "Edit", "Save", "Load", "Unload", "On/Off",
                                           "Delete")],
    "check box 'Tips'", "check box 'Advanced'",
]
TIPS = ["Name", "What to launch", "When to launch", "Schedule"]
DRAWER = [
    "combo box 'Priority'", "slider 'Nice level'",
    "text 'Nice level'", "text 'Standard input'", "text 'Standard output'", "text 'Standard error'",
    "text 'Working folder'", "text 'Root folder'", "text 'Queue folder'",
    "check box 'Expand wildcards in arguments'", "check box 'Allow successful exit'",
    "check box 'Agent loads'", "check box 'Volume mounts'", "check box 'Path changes'",
    *[f"push button 'Choose: {path}'" for path in (
        "Standard input", "Standard output", "Standard error", "Working folder", "Root folder",
        "Queue folder")],
]
SCHEDULES = {
    "Every Day": ["spin button 'Time of day'"],
    "Every Monday": ["spin button 'Time of day'"],
    "Once a Month": ["text 'Day of the month'", "spin button 'Time of day'"],
    "On Login/Load": [],
    "On Interval": ["text 'Interval'", "combo box 'Unit of the interval'"],
}
SEGMENTS = [f"radio button '{page}'" for page in ("Form", "Property List", "Agents")]
PANEL = ["text 'Name'", "push button 'Cancel'"]
INCOMPLETE = "Some information is missing or incorrect."


class Audit:
    """Operates the program over the bus and inspects each state."""

    def __init__(self, app):
        from atspi_driver import AtspiDriver

        self.app, self.tools = app, AtspiDriver("Frimbolate")
        self.folder = app.home.agents_folder

    def start(self):
        """Starts with settings that skip welcome and folder panel, and hides the tips."""
        self.app.start_ready()
        self.tools.use("check box", "Tips")
        self.tools.wait_until(lambda: not self.tools.shows("button", "Tip: Name"), "tips to hide")

    def inspect(self, state, kind, name, expected=()):
        """Waits for the state, then applies the rules to all of its showing parts."""
        self.tools.find(kind, name)
        # A closing window may still be active for a moment.
        lacking = [None]

        def complete():
            windows = self.tools.windows()
            lacking[0] = [missing(window, expected) for window in windows]
            return windows if [] in lacking[0] else None

        try:
            windows = wait_until(complete, state)
        except TimeoutError as error:
            raise TimeoutError(f"{error}; missing are {lacking[0]}") from error
        found = [f"{state}: {fault}" for window in windows for fault in faults(window)]
        assert not found, "\n".join(dict.fromkeys(found))

    def inspect_list(self, pop_up, item):
        self.tools.use("pop-up", pop_up)
        self.inspect(f"list {pop_up}", "pop-up", pop_up, [f"list item '{item}'"])
        self.escape()
        wait_until(lambda: not self.tools.is_open(pop_up), f"the list '{pop_up}' to close")

    def escape(self):
        self.app.driver.press("Escape")


@pytest.fixture
def audit(app):
    audit = Audit(app)
    yield audit
    audit.tools.close()


def test_welcome_and_folder_panel(app, audit):
    app.start()
    audit.inspect("welcome", "button", "Get Started",
                  ["dialog 'Welcome to Frimbolate'", "check box 'Show this window at start'"])
    audit.tools.use("button", "Get Started")
    audit.inspect("folder panel", "button", "Choose", [*PANEL, "push button 'Choose'"])
    audit.tools.fill_panel(str(audit.folder), "Choose")
    audit.inspect("form with tips", "field", "Name",
                  FORM + [f"push button 'Tip: {name}'" for name in TIPS])


def test_tips(app, audit):
    app.start_ready()
    for name in TIPS:
        audit.tools.use("button", f"Tip: {name}")
        audit.inspect(f"tip {name}", "button", "Ok")
        audit.tools.use("button", "Ok")
    audit.tools.use("check box", "Tips")
    audit.inspect("form without tips", "field", "Name", FORM)


@pytest.mark.parametrize("schedule", SCHEDULES)
def test_schedule(audit, schedule):
    audit.start()
    audit.tools.pick("Schedule", schedule)
    audit.inspect(schedule, "pop-up", "Schedule", FORM + SCHEDULES[schedule])


def test_drawer(audit):
    audit.start()
    audit.tools.use("check box", "Advanced")
    audit.inspect("drawer", "pop-up", "Priority", FORM + DRAWER)
    audit.tools.use("check box", "Tips")
    audit.inspect("drawer's tip", "button", "Tip: Advanced", FORM + DRAWER)
    audit.tools.use("check box", "Path changes")
    audit.tools.fill_panel(str(audit.folder), "Select")
    audit.inspect("additional path", "button", "Additional watched path", FORM + DRAWER)


def test_events_that_launch(audit):
    audit.start()
    audit.tools.pick("When to launch", "Launch when a path is modified…")
    audit.inspect("path panel", "button", "Select", [*PANEL, "push button 'Select'"])
    audit.tools.fill_panel(str(audit.folder), "Select")
    audit.inspect("watched path", "button", "Watched path", FORM)
    audit.tools.pick("When to launch", "Launch when a volume is mounted")
    audit.inspect("watched volumes", "button", "Watched path", FORM)
    audit.tools.pick("When to launch", "Launch on schedule and keep alive")
    audit.inspect("kept alive", "time", "Time of day", FORM)


def test_pages(app, audit):
    (audit.folder / "com.frimbolate.Backup.plist").write_bytes(plistlib.dumps(
        {"Label": "com.frimbolate.Backup", "ProgramArguments": ["/bin/ls"], "StartOnMount": True}))
    audit.start()
    audit.tools.use("segment", "Property List")
    audit.inspect("property list", "field", "Property list",
                  [*SEGMENTS, "push button 'Copy the property list'"])
    audit.tools.use("segment", "Agents")
    audit.tools.wait_until(lambda: rows(audit.tools), "the list of agents")
    audit.inspect("agents", "field", "Filter",
                  [*SEGMENTS, "push button 'Edit the selected agent'",
                   "push button 'Sort by the next run'"])
    assert rows(audit.tools)[0].startswith("Backup, on, made with Frimbolate, ")
    audit.tools.set_text("field", "Filter", "nothing")
    audit.inspect("no agent matches", "button", "Clear Filter", SEGMENTS)


def rows(tools):
    """The names of the rows of the list of agents."""
    return [row.name for row in tools.showing("row")]


def test_script_pop_over(audit):
    audit.start()
    tools = audit.tools
    tools.pick("What to launch", "New script…")
    audit.inspect("script pop-over", "dialog", "Script",
                  ["dialog 'Script'", "combo box 'Language'", "text 'Script'"])
    parent, script = tools.find("dialog", "Script").parent, tools.find("field", "Script")
    assert parent.name == "Frimbolate", f"the pop-over belongs to '{parent.name}'"
    tools.wait_for_focus(script)
    audit.inspect_list("Language", "Shell (/bin/sh)")
    audit.escape()
    wait_until(lambda: not tools.shows("dialog", "Script"), "the pop-over to go")


@pytest.mark.parametrize("pop_up, item", (
    ("What to launch", "Application or script…"), ("When to launch", "Launch on schedule"),
    ("Schedule", "Every Wednesday")))
def test_list(audit, pop_up, item):
    audit.start()
    audit.inspect_list(pop_up, item)


def test_menus(audit):
    audit.start()
    for menu, items in MENUS.items():
        audit.tools.use("item", menu)
        audit.inspect(f"menu {menu}", "item", items[0])
        for item in items:
            audit.tools.find("item", item)
        audit.escape()
        wait_until(lambda: not audit.tools.shows("item", items[0]), f"the menu {menu} to close")
        # After the first Escape the menu bar still has a highlighted title.
        audit.escape()


@pytest.mark.parametrize("menu, item, expected", (
    ("Frimbolate", "Preferences…", ["dialog 'Preferences'"]), ("Help", "About Frimbolate", [])),
    ids=("preferences", "about"))
def test_sheet(audit, menu, item, expected):
    audit.start()
    audit.tools.use("item", menu)
    audit.tools.use("item", item)
    audit.inspect(item, "button", "Close", expected)
    audit.tools.use("button", "Close")
    audit.tools.find("button", "Save")


def test_alert_is_announced(listener, audit):
    """With its role, name and description, as soon as it is shown."""
    audit.start()
    before = len(listener.lines())
    audit.tools.use("button", "Save")
    audit.inspect("alert", "button", "Ok", [f"alert '{INCOMPLETE}'"])
    for event in ("object:state-changed:showing", "window:activate"):
        listener.expect(f"{event} | alert | {INCOMPLETE} | • Name cannot be left blank", before)


def test_one_change_is_announced_alone(listener, audit):
    """Three rows are faulty; entering the name announces the name's row only."""
    audit.start()
    audit.tools.use("button", "Save")
    audit.tools.find("button", "Ok")
    before = len(listener.lines())
    audit.tools.use("button", "Ok")
    # The last event of the closing alert.
    listener.expect("window:activate | frame | Frimbolate", before)
    field = audit.tools.find("field", "Name")
    wait_until(lambda: field.description == "The agent needs a name", "the fault to be described")
    before = len(listener.lines())
    audit.tools.set_text("field", "Name", "Backup")
    wait_until(lambda: any("| text | Name | com.frimbolate.Backup.plist" in line
                           for line in listener.lines(before)), "the new description")
    announced = [line for line in listener.lines(before) if "accessible-description" in line
                 or "state-changed:showing" in line]
    others = [line for line in announced if "| text | Name |" not in line]
    assert len(announced) - len(others) == 1, announced
    assert not others, others


def test_saving(app, audit):
    """Saves twice: the second time the panel asks whether to replace the file."""
    audit.start()
    tools, script = audit.tools, app.home.create_script()
    for is_second in (False, True):
        tools.set_text("field", "Name", "Backup")
        tools.pick("What to launch", "Application or script…")
        audit.inspect("target panel", "button", "Select", [*PANEL, "push button 'Select'"])
        tools.fill_panel(str(script), "Select")
        tools.pick("When to launch", "Launch on schedule")
        tools.use("button", "Save")
        audit.inspect("save panel", "button", "Cancel", PANEL)
        tools.set_text("field", "Name", str(app.home.agent_path("Backup")))
        tools.use("button", "Save")
        if is_second:
            audit.inspect("replace", "button", "Replace")
            tools.use("button", "Replace")
        audit.inspect("saved", "button", "Continue")
        tools.use("button", "Continue")
        audit.inspect("command", "button", "Open Terminal",
                      ["text 'Command'", "push button 'Copy the command'"])
        tools.use("button", "Close")


def test_opening(audit):
    """A changed form first asks whether to discard it; then follow the warning and the panel."""
    audit.start()
    audit.tools.set_text("field", "Name", "Backup")
    audit.tools.use("button", "Edit")
    audit.inspect("question", "button", "Cancel")
    audit.tools.use("button", "Continue")
    audit.inspect("warning", "check box", "Do not show this message again")
    audit.tools.use("button", "Continue")
    audit.inspect("agent panel", "button", "Select", PANEL)
    audit.tools.use("button", "Cancel")


def test_unsafe_command_is_announced(listener, audit):
    """An alert warns of an unsafe command as soon as its sheet opens."""
    audit.start()
    name = "com.frimbolate.a';touch pwned;'.plist"
    (audit.folder / name).write_bytes(b"")
    before = len(listener.lines())
    audit.tools.use("button", "Load")
    audit.tools.fill_panel(str(audit.folder / name), "Select")
    audit.inspect("unsafe command", "button", "Open Terminal", ["dialog 'Load the agent'"])
    listener.expect("object:state-changed:showing | alert | Do not paste this command", before)
    listener.expect(f"window:activate | dialog | Load the agent | {name}. Do not paste", before)
    audit.tools.use("button", "Copy the command")
    wait_until(lambda: any(
        "accessible-description | push button | Copy the command | Copied" in line
        for line in listener.lines(before)), "the copying to be announced")
    audit.tools.use("button", "Close")
    audit.tools.find("button", "Save")
