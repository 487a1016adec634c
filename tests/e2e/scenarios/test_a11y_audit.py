"""Walks through every state of the program as assistive tools are told of it.

    test_a11y_audit.py <program> <folder for the pictures>

Ends with 0 only when in every state all that is worked with has a name and a role of its kind, when
an alert is announced, and when nothing is told twice.
"""


from desktop import perform, wait_until
from test_first_agent import launch_agents_folder, script_to_launch
from a11y_rules import faults, missing

MENUS = {
    "Frimbolate": ["Preferences…", "Quit Frimbolate"],
    "File": ["New Agent", "Open Agent…", "Save Agent…", "Close Window"],
    "Edit": ["Undo", "Redo", "Cut", "Copy", "Paste", "Select All"],
    "Agent": ["Load…", "Unload…", "Switch On or Off…", "Delete…"],
    "View": ["Tips", "Advanced"],
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
PANEL = ["text 'Name'", "push button 'Cancel'"]
INCOMPLETE = "Some information is missing or incorrect."


class Walk:
    """The states of the program in an order in which each leads to the next."""

    def __init__(self, desktop, program):
        from atspi_driver import Assistive, Listener  # connects to the bus of the running desktop
        from driver import Person

        self.folder, self.script = launch_agents_folder(desktop), script_to_launch(desktop)
        self.listener = Listener(desktop)
        desktop.start(str(program))
        self.tools, self.hands = Assistive("Frimbolate"), Person("Frimbolate")
        self.seen, self.found = 0, []

    def see(self, state, kind, name, expected=()):
        """Waits until the state is up, then looks at all that shows in it."""
        self.tools.look(kind, name)
        # A window that goes may be in front for a moment still.
        lacking = [None]

        def whole():
            windows = self.tools.windows()
            lacking[0] = [missing(window, expected) for window in windows]
            return windows if [] in lacking[0] else None

        try:
            windows = wait_until(whole, state)
        except TimeoutError as error:
            raise TimeoutError(f"{error}; there lack {lacking[0]}") from error
        self.seen += 1
        self.found += [f"{state}: {fault}" for window in windows for fault in faults(window)]

    def escape(self):
        self.hands.press("Escape")

    def start(self):
        self.see("welcome", "button", "Get Started",
                 ["dialog 'Welcome to Frimbolate'", "check box 'Show this window at start'"])
        self.tools.use("button", "Get Started")
        self.see("folder panel", "button", "Choose", [*PANEL, "push button 'Choose'"])
        self.tools.fill_panel(str(self.folder), "Choose")

    def form(self):
        self.see("form with tips", "field", "Name",
                 FORM + [f"push button 'Tip: {name}'" for name in TIPS])
        for name in TIPS:
            self.tools.use("button", f"Tip: {name}")
            self.see(f"tip {name}", "button", "Ok")
            self.tools.use("button", "Ok")
        self.tools.use("check box", "Tips")
        self.see("form without tips", "field", "Name", FORM)
        for schedule, parts in SCHEDULES.items():
            self.tools.pick("Schedule", schedule)
            self.see(schedule, "pop-up", "Schedule", FORM + parts)

    def drawer(self):
        self.tools.use("check box", "Advanced")
        self.see("drawer", "pop-up", "Priority", FORM + DRAWER)
        self.tools.use("check box", "Tips")
        self.see("drawer's tip", "button", "Tip: Advanced", FORM + DRAWER)
        self.tools.use("check box", "Tips")
        self.tools.use("check box", "Path changes")
        self.tools.fill_panel(str(self.folder), "Select")
        self.see("additional path", "button", "Additional watched path", FORM + DRAWER)
        self.tools.use("check box", "Advanced")

    def actions(self):
        self.tools.pick("When to launch", "Launch when a path is modified…")
        self.see("path panel", "button", "Select", [*PANEL, "push button 'Select'"])
        self.tools.fill_panel(str(self.folder), "Select")
        self.see("watched path", "button", "Watched path", FORM)
        self.tools.pick("When to launch", "Launch when a volume is mounted")
        self.see("watched volumes", "button", "Watched path", FORM)
        self.tools.pick("When to launch", "Launch on schedule and keep alive")
        self.see("kept alive", "time", "Time of day", FORM)

    def pop_over(self):
        self.tools.pick("What to launch", "New script…")
        self.see("script pop-over", "dialog", "Script",
                 ["dialog 'Script'", "combo box 'Language'", "text 'Script'"])
        whole, script = self.tools.look("dialog", "Script").parent, self.tools.look("field", "Script")
        assert whole.name == "Frimbolate", f"the pop-over belongs to '{whole.name}'"
        wait_until(lambda: self.tools.has_keyboard(script), "the script to get the keyboard")
        self.see_list("Language", "Shell (/bin/sh)")
        self.escape()
        wait_until(lambda: not self.tools.sees("dialog", "Script"), "the pop-over to go")

    def see_list(self, pop_up, item):
        self.tools.use("pop-up", pop_up)
        self.see(f"list {pop_up}", "pop-up", pop_up, [f"list item '{item}'"])
        self.escape()
        wait_until(lambda: not self.tools.is_open(pop_up), f"the list '{pop_up}' to close")

    def lists_and_menus(self):
        self.see_list("What to launch", "Application or script…")
        self.see_list("When to launch", "Launch on schedule")
        self.see_list("Schedule", "Every Wednesday")
        for menu, items in MENUS.items():
            self.tools.use("item", menu)
            self.see(f"menu {menu}", "item", items[0])
            for item in items:
                self.tools.look("item", item)
            self.escape()
            wait_until(lambda: not self.tools.sees("item", items[0]), f"the menu {menu} to close")
            # The first Escape leaves the bar itself lit.
            self.escape()

    def sheets(self):
        for menu, item, title, close in (
                ("Frimbolate", "Preferences…", "Preferences", "Close"),
                ("Help", "About Frimbolate", None, "Close")):
            self.tools.use("item", menu)
            self.tools.use("item", item)
            self.see(item, "button", close, [f"dialog '{title}'"] if title else [])
            self.tools.use("button", close)
            self.tools.look("button", "Save")

    def alert(self):
        """An alert is told by its role, name and description as soon as it shows."""
        self.tools.use("button", "New")
        before = len(self.listener.heard())
        self.tools.use("button", "Save")
        self.see("alert", "button", "Ok", [f"alert '{INCOMPLETE}'"])
        for event in ("object:state-changed:showing", "window:activate"):
            wait_until(lambda: any(
                line.startswith(f"{event} | alert | {INCOMPLETE} | • Name cannot be left blank")
                for line in self.listener.heard(before)), f"{event} of the alert")
        before = len(self.listener.heard())
        self.tools.use("button", "Ok")
        # Told after all that there is to tell of the alert's going.
        wait_until(lambda: any(line.startswith("window:activate | frame | Frimbolate")
                               for line in self.listener.heard(before)), "the window to be back")
        field = self.tools.look("field", "Name")
        wait_until(lambda: field.description == "The agent needs a name", "the fault to be told")

    def only_news(self):
        """Where one thing changes nothing else is told again."""
        before = len(self.listener.heard())
        self.tools.put("field", "Name", "Backup")
        wait_until(lambda: any("| text | Name | com.frimbolate.Backup.plist" in line
                               for line in self.listener.heard(before)), "the new description")
        told = [line for line in self.listener.heard(before) if "accessible-description" in line
                or "state-changed:showing" in line]
        others = [line for line in told if "| text | Name |" not in line]
        assert len(told) - len(others) == 1, told
        assert not others, others

    def save(self):
        agent = str(self.folder / "com.frimbolate.Backup.plist")
        for times in range(2):
            self.tools.put("field", "Name", "Backup")
            self.tools.pick("What to launch", "Application or script…")
            self.see("target panel", "button", "Select", [*PANEL, "push button 'Select'"])
            self.tools.fill_panel(str(self.script), "Select")
            self.tools.pick("When to launch", "Launch on schedule")
            self.tools.use("button", "Save")
            self.see("save panel", "button", "Cancel", PANEL)
            self.tools.put("field", "Name", agent)
            self.tools.use("button", "Save")
            if times:
                self.see("replace", "button", "Replace")
                self.tools.use("button", "Replace")
            self.see("saved", "button", "Continue")
            self.tools.use("button", "Continue")
            self.see("command", "button", "Open Terminal",
                     ["text 'Command'", "push button 'Copy the command'"])
            self.tools.use("button", "Close")
        self.tools.use("button", "Edit")
        self.see("question", "button", "Cancel")
        self.tools.use("button", "Continue")
        self.see("warning", "check box", "Do not show this message again")
        self.tools.use("button", "Continue")
        self.see("agent panel", "button", "Select", PANEL)
        self.tools.use("button", "Cancel")

    def unsafe_command(self):
        """An alert warns of a command that does more than it shows, as soon as its sheet opens."""
        name = "com.frimbolate.a';touch pwned;'.plist"
        (self.folder / name).write_bytes(b"")
        before = len(self.listener.heard())
        self.tools.use("button", "Load")
        self.tools.fill_panel(str(self.folder / name), "Select")
        self.see("unsafe command", "button", "Open Terminal", ["dialog 'Load the agent'"])
        for event in ("object:state-changed:showing | alert | Do not paste this command",
                      f"window:activate | dialog | Load the agent | {name}. Do not paste"):
            wait_until(lambda: any(line.startswith(event)
                                   for line in self.listener.heard(before)), event)
        self.tools.use("button", "Copy the command")
        wait_until(lambda: any(
            "accessible-description | push button | Copy the command | Copied" in line
            for line in self.listener.heard(before)), "the copying to be told")
        self.tools.use("button", "Close")
        self.tools.look("button", "Save")

    def through(self):
        for state in (self.start, self.form, self.drawer, self.actions, self.pop_over,
                      self.lists_and_menus, self.sheets, self.alert, self.only_news, self.save,
                      self.unsafe_command):
            state()
        print(f"{self.seen} states seen")
        assert not self.found, "\n".join(dict.fromkeys(self.found))


def walk(desktop, program, _):
    Walk(desktop, program).through()


if __name__ == "__main__":
    perform(walk, __doc__)
