"""What the stations of a whole life share: the desktop, the program, its files, its log."""

import os
import plistlib
from pathlib import Path

from agent_table import SCRIPT, content
from desktop import wait_until
from driver import Person  # connects to the bus of the running desktop
from test_first_agent import launch_agents_folder
from input_methods import Bus, Keyboard, Menus, Pointer

PREFERENCES = "com.qz.Frimbolate.plist"
# Which control of the form is of which kind; what is not named here is a field.
KINDS = {
    "What to launch": "pop-up", "When to launch": "pop-up", "Schedule": "pop-up",
    "Unit of the interval": "pop-up", "Priority": "pop-up", "Time of day": "time",
    "Nice level": "slider",
    "Advanced": "check box", "Expand wildcards in arguments": "check box",
    "Allow successful exit": "check box", "Agent loads": "check box",
    "Volume mounts": "check box", "Path changes": "check box",
}


class Life:
    """One person, one program, one home; each station leaves the form empty and all sheets shut."""

    def __init__(self, desktop, program, pictures):
        self.desktop, self.program, self.pictures = desktop, program, pictures
        self.home = Path(os.environ["HOME"])
        self.folder = launch_agents_folder(desktop)
        self.preference_file = Path(os.environ["XDG_CONFIG_HOME"]) / PREFERENCES
        self.person = Person("Frimbolate")
        self.pointer, self.keyboard, self.menus, self.bus = (
            way(self.person) for way in (Pointer, Keyboard, Menus, Bus))
        self.process = None
        self._told = 0  # how much of the log has been looked at
        self._kept = []

    # The program

    def start(self, *arguments, scheme="light"):
        self.process = self.desktop.start(
            str(self.program), *arguments, env=os.environ | {"FRIMBOLATE_COLOR_SCHEME": scheme})

    def quit(self):
        self.person.look_at_window("Frimbolate")
        self.person.press("ctrl+q")
        wait_until(lambda: self.process.poll() is not None, "the program to quit")
        assert self.process.returncode == 0, self.process.returncode

    def keep(self, name):
        """Keeps a picture of the first time that something stands on the screen."""
        if name not in self._kept:
            self._kept.append(name)
            self.desktop.picture(self.pictures / f"{len(self._kept):02}-{name}.png")

    # What it writes

    def path(self, name):
        return self.folder / f"com.frimbolate.{name}.plist"

    def on_disk(self, name):
        return plistlib.loads(self.path(name).read_bytes())

    def expect_file(self, agent, **changes):
        expect_equal(self.on_disk(agent.name), content(agent, self.home) | changes)

    def preferences(self):
        """The whole preference file; True for a bookmark stands for any."""
        found = plistlib.loads(self.preference_file.read_bytes())
        if isinstance(found.get("Bookmark"), bytes) and found["Bookmark"]:
            found["Bookmark"] = True
        return found

    def expect_preferences(self, **expected):
        wait_for(lambda: expect_equal(self.preferences(), expected))

    def expect_log(self, *lines):
        """Each line is logged since the last time, after those before it."""
        wait_for(lambda: self._expect_in_order(lines, self.desktop.log()[self._told:]))
        self._told = len(self.desktop.log())

    @staticmethod
    def _expect_in_order(lines, log):
        rest = iter(log.splitlines())
        for line in lines:
            assert line in rest, f"not logged, or not in its place: {line}\nin:\n{log}"

    # The form

    def enter(self, way, control, text):
        """Enters one thing of an agent, such as the row's tables tell."""
        kind = KINDS.get(control, "field")
        if control in ("Target", "Watched path"):
            way.answer_panel(text, "Select")
        elif control == "Script":
            self.person.type_into_pop_over("Script", text)
            self.person.look("label", f"Script: {text}")
            self.keep("script")
            self.close_pop_over()
        elif control.endswith("..."):
            way.reply(control, text)
        elif kind == "pop-up":
            way.choose(control, text)
        elif kind == "time":
            way.set_time(control, text)
        elif kind == "slider":
            way.set_level(control, int(text))
        elif kind == "check box":
            way.toggle(control)
        else:
            way.write(control, text)

    def close_pop_over(self):
        wait_until(lambda: self.person.pop_over_shows("Script"), "the pop-over to open")
        self.person.press("Escape")
        wait_until(lambda: not self.person.pop_over_shows("Script"), "the pop-over to close")

    def shown(self):
        """What the form shows, by the names of its controls."""
        result = {}
        for node in self.person.showing("field", "pop-up", "time", "check box"):
            name = self.person.name_of(node)
            if name not in ("", "Tips", "Advanced"):
                result[name] = self.person.state_of(node)
        return result

    def save(self, way):
        """Saves the form under the name that the program proposes."""
        way.command("Save")
        panel = self.person.look_at_panel("Save")
        self.person.press("Return")
        self.person.wait_until_gone(panel)

    def save_over(self, way):
        """Saves the form over the file that was read."""
        way.command("Save")
        panel = self.person.look_at_panel("Save")
        self.person.press("Return")
        way.press_button("Replace")
        self.person.wait_until_gone(panel)

    def open_agent(self, way, path):
        way.command("Edit")
        way.answer_panel(str(path), "Select")

    def see_script_again(self, agent):
        """A typed script is shown in its pop-over as soon as it is read."""
        if agent.entered["What to launch"] == SCRIPT:
            self.close_pop_over()

    def empty_form(self):
        self.person.look_at_window("Frimbolate")
        self.person.press("ctrl+n")
        self.person.look("label", "Still needs a name, something to launch and a choice of when to "
                                  "launch it.")


def wait_for(check):
    """Waits until the check raises no more; what a sheet was told is done after it has gone."""
    raised = [None]

    def passes():
        try:
            check()
        except AssertionError as error:
            raised[0] = error
            return False
        return True

    try:
        wait_until(passes, "what was expected")
    except TimeoutError:
        raise raised[0] from None


def expect_equal(found, expected):
    if found == expected:
        return
    keys = sorted(set(found) | set(expected))
    differences = [f"  {key}: {found.get(key)!r}, expected {expected.get(key)!r}"
                   for key in keys if found.get(key) != expected.get(key)
                   or (key in found) != (key in expected)]
    raise AssertionError("what was found differs:\n" + "\n".join(differences))
