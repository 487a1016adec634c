"""The real program while calls on its files fail or it is killed: what is in the folder afterwards,
and what the window and the log say.

A sample of the points, chosen by --fault-seed; --fault-points=all runs each of them.
"""

import plistlib
import random
import re
import signal

import pytest

from agent_table import AGENTS, content
from app import CREATED, NAME
from fault_control import KILLS, FaultControl, points
from waiting import wait_until

AGENT = next(agent for agent in AGENTS if agent.name == "seconds")
ENABLED = "This launch agent is currently enabled."
NOT_DISABLED = "The launch agent could not be disabled."
COPY_BOX = "Copy commands to the clipboard automatically"
LEFT_OVER = re.compile(r"\.frimbolate-[0-9a-f]{16}")
# Fewer counted calls mean that the library does not see them.
LEAST_CALLS = 15


class Folder:
    """A watched folder: what is in it besides the file that a step may change."""

    def __init__(self, path, file):
        self.path, self.file = path, file
        self._others = self._read_others()

    def _read_others(self):
        return {path.name: path.read_bytes() for path in self.path.iterdir()
                if path != self.file and path.name != f"{self.file.name}.lock"}

    def problem(self, may_leave):
        """What else changed, or nothing."""
        found = {name: text for name, text in self._read_others().items()
                 if not (may_leave and LEFT_OVER.fullmatch(name))}
        return "" if found == self._others else f"the folder holds {sorted(found)}"


class Window:
    """The program with the library, and the steps of one scenario."""

    watched_file = None  # set by each scenario

    def __init__(self, app, methods, library):
        self.app, self.home = app, app.home
        self.keyboard, self.bus = methods
        self.app.home.store_preferences(WarnForDelete=False)
        self.set_up_files()
        self.folder = Folder(self.watched_file.parent, self.watched_file)
        self.control = FaultControl(self.home.folder / "faults", self.watched_file.parent)
        self._variables = self.control.variables(library)
        self._logged = 0
        self.start()

    def start(self):
        self.app.process = self.home.start(self.app.program, **self._variables)
        self.app.find_main_window()
        self.open()

    def log(self):
        """What the program logged since the last call."""
        text = self.home.log()
        new, self._logged = text[self._logged:], len(text)
        return new

    def is_running(self):
        return self.app.process.poll() is None

    def titles(self):
        """Of the windows in front; none of a program that is killed meanwhile."""
        try:
            return [window.name for window in self.app.driver.front_windows()]
        except Exception:  # the bus lost it in the middle of the question
            return []

    def press(self, button):
        """Presses a button whose effect may end the program before it answers."""
        try:
            self.bus.press_button(button)
        except Exception:
            wait_until(lambda: not self.is_running(), f"'{button}', or the end of the program")

    def set_up_files(self):
        """Stores the file that the step changes."""

    def open(self):
        """Brings a started program to where the step can begin."""

    # A point

    def count(self):
        """Runs the step without a fault. Returns the counted calls."""
        self.prepare()
        self.control.arm()
        self.act()
        self.control.disarm()
        assert self.tells_success(), self.home.log()
        self.finish()
        calls = self.control.calls()
        assert len(calls) >= LEAST_CALLS, calls
        return calls

    def run(self, call, kind):
        """Runs the step with a fault. Returns what is wrong, or nothing."""
        old = self.prepare()
        self.log()
        self.control.arm(call, kind)
        self.act()
        if kind in KILLS and self.control.took_place():
            return self.after_kill(old)
        told = self.tells_success()
        self.control.disarm()
        new = self.watched_file.read_bytes()
        problem = self.folder.problem(may_leave=False)
        if told and not self.is_new(new):
            problem += " success told, but the file is not the new one"
        if not told and new != old:
            problem += " failure told, but the file is not the old one"
        self.finish()
        return problem

    def after_kill(self, old):
        wait_until(lambda: not self.is_running(), "the program to be killed")
        assert self.app.process.returncode == -signal.SIGKILL
        wait_until(lambda: not self.app.driver.is_running(), "the program to leave the bus")
        self.control.disarm()
        new = self.watched_file.read_bytes()
        problem = self.folder.problem(may_leave=True)
        if new != old and not self.is_new(new):
            problem += " neither the old nor the new file"
        self.start()
        self.prepare()
        self.act()
        problem += "" if self.tells_success() else " the next save fails"
        self.finish()
        return problem + self.folder.problem(may_leave=False)


class Saving(Window):
    """Over an existing agent. The alert does not depend on the write, so the log must tell it."""

    def set_up_files(self):
        self.watched_file = self.home.agent_path(AGENT.name)
        self.home.create_targets()
        self.agent = content(AGENT, self.home.path)
        self.watched_file.write_bytes(plistlib.dumps(self.agent))
        (self.watched_file.parent / "org.example.other.plist").write_bytes(b"another")

    def open(self):
        self.app.open_agent(self.bus, AGENT.name)
        self.app.driver.find("label", AGENT.plan)

    def prepare(self):
        old = plistlib.dumps(self.agent | {"Old": True})
        self.watched_file.write_bytes(old)
        self.bus.command("Save")
        self.bus.accept_panel("Save")
        self.bus.driver.find("button", "Replace")
        return old

    def act(self):
        self.press("Replace")
        wait_until(lambda: not self.is_running() or CREATED in self.titles(), "an answer")

    def tells_success(self):
        return "Could not write property list" not in self.log()

    def is_new(self, content):
        return plistlib.loads(content) == self.agent

    def finish(self):
        self.bus.reply(CREATED, "Skip")
        self.app.expect_empty_form()
        self.keyboard.driver.press("ctrl+z")  # the form before it was emptied
        self.app.driver.find("label", AGENT.plan)


class Switching(Window):
    """Off. A failure is one alert; a success shows nothing."""

    def set_up_files(self):
        self.watched_file = self.home.agent_path(AGENT.name)
        self.agent = {"Label": f"com.frimbolate.{AGENT.name}", "Program": "/bin/true"}
        self.watched_file.write_bytes(plistlib.dumps(self.agent))

    def prepare(self):
        old = plistlib.dumps(self.agent)
        self.watched_file.write_bytes(old)
        self._old = old
        self.bus.command("On/Off")
        self.bus.answer_panel(str(self.watched_file), "Select")
        self.app.driver.find_window(ENABLED)
        self._new_log = ""
        return old

    def act(self):
        self.press("Continue")
        wait_until(self._is_done, "the switch or its failure")
        self.titles()  # its answer comes once the step is over

    def _is_done(self):
        self._new_log += self.log()
        return (not self.is_running() or self.watched_file.read_bytes() != self._old
                or "Error occurred while saving" in self._new_log)

    def tells_success(self):
        self._new_log += self.log()
        self._failed = "Error occurred while saving" in self._new_log
        if self._failed:
            self.app.driver.find_window(NOT_DISABLED)
        return not self._failed

    def is_new(self, content):
        return plistlib.loads(content) == self.agent | {"Enabled": False}

    def finish(self):
        if self._failed:
            self.bus.reply(NOT_DISABLED, "Ok")
        self.app.find_main_window()


class StoringPreferences(Window):
    """One changed control. A failure is logged only; what was not stored is with the next save."""

    def set_up_files(self):
        self.watched_file = self.home.preference_file

    def _open_sheet(self):
        self.bus.open_preferences()
        self.app.driver.find_window("Preferences")

    def prepare(self):
        old = self.watched_file.read_bytes()
        self._wanted = plistlib.loads(old)
        copies = self._wanted["AutoCopyScriptsKey"] == "True"
        self._wanted["AutoCopyScriptsKey"] = "False" if copies else "True"
        self._open_sheet()
        self.bus.toggle(COPY_BOX)
        return old

    def act(self):
        self.press("Save")
        # No window is in front while the sheet closes.
        wait_until(lambda: not self.is_running() or NAME in self.titles(), "the sheet to close")

    def tells_success(self):
        if "Could not" not in self.log():
            return True
        # Five values are written one after another, and a later one takes with it what failed.
        return self.is_new(self.watched_file.read_bytes())

    def is_new(self, content):
        return plistlib.loads(content) == self._wanted

    def finish(self):
        """Saves again: what could not be stored is stored now."""
        self.app.find_main_window()
        self._open_sheet()
        self.bus.press_button("Save")
        self.app.find_main_window()
        wait_until(lambda: self.is_new(self.watched_file.read_bytes()), "the pending preferences")


@pytest.mark.parametrize("scenario", (Saving, Switching, StoringPreferences),
                         ids=lambda scenario: scenario.__name__)
def test_faults(app, keyboard, bus, fault_options, scenario):
    window = scenario(app, (keyboard, bus), fault_options.library)
    chosen = points(window.count())
    random.Random(fault_options.seed).shuffle(chosen)
    if fault_options.count:
        # A kill costs a start of the program, so a sample has two.
        kills = [point for point in chosen if point[1] in KILLS]
        others = [point for point in chosen if point[1] not in KILLS]
        chosen = (kills[:2] + others)[:fault_options.count]
    failures = []
    for call, kind in chosen:
        problem = window.run(call, kind)
        if problem:
            failures.append(f"call {call}, {kind}: {problem}")
    fault_options.report(scenario.__name__, len(chosen), len(failures))
    assert chosen and not failures, "\n".join(failures)
