"""The program under test: its process, its form, and the steps that scenarios share.

Import it only on a running Desktop: the binding connects to its bus on import.
"""

from agent_table import SCRIPT, content, filled, form
from driver import Driver
from waiting import expect_equal, wait_until

NAME = "Frimbolate"
CREATED = "Your launch agent was created."
LOAD = "Load the agent"
EMPTY_FORM = "Still needs a name, something to launch and a choice of when to launch it."
# The agent whose form is saved as a picture, and the one whose script pop-over is.
PICTURED, FIRST_SCRIPT = "advanced", "daily"
# The kind of each control of the form; the others are fields.
KINDS = {
    "What to launch": "pop-up", "When to launch": "pop-up", "Schedule": "pop-up",
    "Unit of the interval": "pop-up", "Priority": "pop-up", "Time of day": "time",
    "Nice level": "slider",
    "Advanced": "check box", "Expand wildcards in arguments": "check box",
    "Allow successful exit": "check box", "Agent loads": "check box",
    "Volume mounts": "check box", "Path changes": "check box",
}
# Controls of the window that are not part of the form's content.
NOT_OF_THE_FORM = ("", "Tips", "Advanced", "Script", "Language", "Larger")


class App:
    """The program in a home. `driver` inspects it; input methods operate it."""

    def __init__(self, desktop, home, program, pictures):
        self.desktop, self.home, self.program = desktop, home, program
        self._pictures = pictures
        self.driver = Driver(NAME)
        self.process = None

    def close(self):
        """Ends the program, so that the next test finds none on the bus."""
        self.home.end_processes()
        wait_until(lambda: not self.driver.is_running(), "the program to leave the bus")
        self.driver.close()

    # The process

    def start(self, *arguments, scheme="light"):
        self.process = self.home.start(self.program, *arguments, FRIMBOLATE_COLOR_SCHEME=scheme)

    def start_ready(self, **preferences):
        """Starts with settings that skip welcome and folder panel, and waits for the window."""
        self.home.store_preferences(**preferences)
        self.start()
        self.find_main_window()

    def find_main_window(self):
        return self.driver.find_window(NAME)

    def quit(self, method):
        self.find_main_window()
        method.quit()
        self.expect_end()

    def expect_end(self):
        wait_until(lambda: self.process.poll() is not None, "the program to quit")
        assert self.process.returncode == 0, self.process.returncode

    def keep_picture(self, name):
        """Saves a screenshot under that name."""
        self.desktop.save_screenshot(self._pictures / f"{name}.png")

    # The form

    def enter(self, method, control, text):
        """Enters one value of an agent; `control` is a key of the agent table's `entered`."""
        kind = KINDS.get(control, "field")
        if control in ("Target", "Watched path"):
            method.answer_panel(text, "Select")
        elif control == "Script":
            method.write_script(text)
            self.driver.find("label", f"Script: {text}")
        elif control.endswith("..."):
            method.reply(control, text)
        elif kind == "pop-up":
            method.choose(control, text)
        elif kind == "time":
            method.set_time(control, text)
        elif kind == "slider":
            method.set_level(control, int(text))
        elif kind == "check box":
            method.toggle(control)
        else:
            method.write(control, text)

    def enter_agent(self, method, agent):
        """Fills in the form and checks its summary."""
        method.write("Name", agent.name)
        for control, text in agent.entered.items():
            self.enter(method, control, filled(text, self.home.path))
            if control == "Script":
                if agent.name == FIRST_SCRIPT:
                    self.keep_picture("script")
                method.close_script()
        self.driver.find("label", agent.plan)

    def shown(self):
        """The values of the active form or sheet, by the names of its controls."""
        result = {}
        for node in self.driver.showing("field", "pop-up", "time", "check box"):
            name = self.driver.name_of(node)
            if name not in NOT_OF_THE_FORM:
                result[name] = self.driver.state_of(node)
        return result

    def expect_empty_form(self):
        self.find_main_window()
        self.driver.find("label", EMPTY_FORM)

    def expect_cleared_rows(self):
        self.driver.find("label", "Choose a schedule or an event that starts the agent")

    # Agents

    def save(self, method):
        """Saves the form under the proposed name."""
        method.command("Save")
        self.driver.wait_until_gone(method.accept_panel("Save"))

    def save_over(self, method):
        """Saves the form and replaces the file that was read."""
        method.command("Save")
        panel = method.accept_panel("Save")
        method.press_button("Replace")
        self.driver.wait_until_gone(panel)

    def make(self, method, agent):
        """Enters and saves an agent; the sheet with the load command is still open afterwards."""
        self.enter_agent(method, agent)
        if agent.name == PICTURED:
            self.keep_picture(f"made-{agent.name}")
        self.save(method)
        method.reply(CREATED, "Continue")
        self.expect_file(agent)
        target = 3 if agent.entered["What to launch"] == SCRIPT else 2
        self.home.expect_log("Agent passed initial validation, moving on...",
                             "Saving launch agent, logging all saved values...",
                             f"Agent label key: com.frimbolate.{agent.name}",
                             f"Agent target type is {target}")
        self.expect_command(LOAD, "load", self.home.agent_path(agent.name))

    def open_agent(self, method, name):
        method.command("Edit")
        method.answer_panel(str(self.home.agent_path(name)), "Select")

    def read(self, method, agent):
        """Opens an agent and compares the whole form with the entered values."""
        self.open_agent(method, agent.name)
        if agent.entered["What to launch"] == SCRIPT:
            method.close_script()  # opened as soon as the agent is read
        self.driver.find("label", agent.plan)
        expect_equal(self.shown(), form(agent))
        self.home.expect_log("Agent was created with Frimbolate.",
                             filled(agent.log, self.home.path),
                             "Completed evaluating primary keys for editing")

    def expect_file(self, agent, **changes):
        expect_equal(self.home.read_agent(agent.name), content(agent, self.home.path) | changes)

    def expect_command(self, title, verb, path):
        """Checks the command in the sheet of that title and returns it."""
        self.driver.find_window(title)
        command = self.driver.read("field", "Command")
        assert command == f"launchctl {verb} '{path}'", command
        return command
