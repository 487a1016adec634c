"""Creates two agents through the accessibility bus only, from the first start on."""

import pytest

from app import CREATED, LOAD
from first_agent import NAME, expected_agent

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


@pytest.fixture
def tools(app):
    from atspi_driver import AtspiDriver

    tools = AtspiDriver("Frimbolate")
    app.start()
    tools.use("button", "Get Started")
    tools.fill_panel(str(app.home.agents_folder), "Choose")
    yield tools
    tools.close()


def save(app, tools, name):
    """Saves the form, checks the shown command, and returns the agent's property list."""
    path = app.home.agent_path(name)
    tools.use("button", "Save")
    tools.fill_panel(str(path), "Save")
    tools.find_window(CREATED)
    tools.use("button", "Continue")
    app.expect_command(LOAD, "load", path)
    tools.use("button", "Close")
    return app.home.read_agent(name)


def test_first_agent_over_the_bus(app, tools):
    script = app.home.create_script()
    tools.set_text("field", "Name", NAME)
    tools.pick("What to launch", "Application or script…")
    tools.fill_panel(str(script), "Select")
    tools.pick("When to launch", "Launch on schedule")
    tools.pick("Schedule", "Every Wednesday")
    tools.set_text("time", "Time of day", "07:05")
    tools.find("label", "Every Wednesday at 07:05; made up once if missed while asleep")
    assert save(app, tools, NAME) == expected_agent(script)


def test_every_other_control_over_the_bus(app, tools):
    tools.use("button", "New")
    tools.set_text("field", "Name", "Typed")
    tools.pick("What to launch", "New script…")
    tools.find("dialog", "Script")
    tools.pick("Language", "Shell (/bin/sh)")
    tools.set_text("field", "Script", TYPED)
    tools.find("label", f"Script: {TYPED}".replace("\n", " "))
    tools.pick("When to launch", "Launch on schedule")
    tools.pick("Schedule", "On Interval")
    tools.set_text("field", "Interval", "5")
    tools.pick("Unit of the interval", "minutes")
    tools.find("label", "Every 5 minutes; not made up if missed while asleep")
    tools.use("check box", "Advanced")
    tools.pick("Priority", "Low")
    tools.set_value("Nice level", 7)
    tools.wait_until(lambda: tools.read("field", "Nice level") == "7", "the nice level")
    tools.set_text("field", "Standard output", "/var/log/typed.log")
    tools.use("check box", "Agent loads")
    assert save(app, tools, "Typed") == OTHER_AGENT
