"""The complete flow by one input method: first start, agents of every kind, change, deletion."""

from agent_table import AGENTS
from app import CREATED, LOAD

IMPORTANT = "Important message:"
REMEMBERED = ("Found key found for ShowWelcomeWindow, value of False - 3.0",
              "Found key found for AutoCopyScriptsKey, value of False")


def first_start(app, method):
    app.start()
    app.driver.find_window("Welcome to Frimbolate")
    method.toggle("Show this window at start")
    method.reply("Welcome to Frimbolate", "Get Started")
    method.answer_panel(str(app.home.agents_folder), "Choose")
    app.find_main_window()
    app.home.expect_preferences(ShowWelcomeWindow="False - 3.0", Bookmark=True)


def make_every_kind(app, method):
    """Afterwards the folder holds exactly the files of all agents."""
    for agent in AGENTS:
        print(f"making {agent.name}")
        app.make(method, agent)
        method.reply(LOAD, "Close")
        app.expect_cleared_rows()
    assert app.home.agent_names() == sorted(
        app.home.agent_path(agent.name).name for agent in AGENTS)


def start_again(app, scheme):
    """Shows neither the welcome sheet nor the folder panel again."""
    app.start(scheme=scheme)
    app.find_main_window()
    app.home.expect_log(*REMEMBERED)


def silence_warning(app, method):
    """Suppresses the warning that the first opening of an agent shows."""
    method.command("Edit")
    app.driver.find_window(IMPORTANT)
    method.toggle("Do not show this message again")
    method.reply(IMPORTANT, "Continue")
    method.cancel_panel("Select")
    app.home.expect_preferences(ShowWelcomeWindow="False - 3.0", Bookmark=True, WarnForDelete=False)


def read_one(app, method):
    """An agent that uses every control is read as it was entered; the file is unchanged."""
    agent = AGENTS[-1]
    app.read(method, agent)
    app.keep_picture("read")
    method.command("New")
    app.expect_empty_form()
    app.expect_file(agent)


def change_one(app, method):
    agent = next(each for each in AGENTS if each.name == "seconds")
    app.read(method, agent)
    app.enter(method, "Interval", "120")
    app.save_over(method)
    method.reply(CREATED, "Skip")
    app.expect_file(agent, StartInterval=120)


def delete_one(app, method):
    path = app.home.agent_path("seconds")
    method.command("Delete")
    method.answer_panel(str(path), "Select")
    method.reply("Are you sure you want to delete the following launch agent?", "Delete")
    app.driver.wait_until(lambda: not path.exists(), "the agent to be deleted")
    assert len(app.home.agent_names()) == len(AGENTS) - 1


def test_complete_flow(app, method):
    app.home.create_targets()
    first_start(app, method)
    make_every_kind(app, method)
    app.quit(method)
    start_again(app, "dark")
    silence_warning(app, method)
    read_one(app, method)
    change_one(app, method)
    delete_one(app, method)
    app.quit(method)
