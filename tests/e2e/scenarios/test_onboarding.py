"""The first start: welcome sheet, folder panel, and the faults of an incomplete form."""

from urllib.request import pathname2url

FIRST_START = (
    "No key found for ShowWelcomeWindow, writing default of True - 3.0",
    "No key found for AutoCopyScriptsKey, writing default of False",
    "No key found for WarnForSuccessfulExit, writing default of True",
    "No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
    "No key found or key is 0 for DefaultPriorityKey, writing default of 0",
    "Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: True - 3.0",
)
WELCOME = "Welcome to Frimbolate"
ASKED = "Must choose LaunchAgents folder response: 1000"
MUST_SELECT = "You must select your user LaunchAgents folder (~/Library/LaunchAgents)."
NOT_VALIDATED = ("Frimbolate could not validate if you chose your user LaunchAgents folder "
                 "(~/Library/LaunchAgents).")
FAULTS = ("• Name cannot be left blank\n• Condition for launch not selected\n"
          "• No app or script to launch selected")


def test_welcome_at_first_start(app, pointer):
    app.start()
    app.driver.find_window(WELCOME)
    app.driver.find("button", "Get Started")
    app.keep_picture("welcome")
    app.home.expect_log(*FIRST_START)
    app.home.expect_preferences(ShowWelcomeWindow="True - 3.0")
    pointer.toggle("Show this window at start")
    pointer.reply(WELCOME, "Get Started")
    app.driver.find_panel("Choose")
    app.home.expect_log("User does not want to show welcome window, writing value of false",
                        "ERROR WITH ACCESSING BOOKMARK")
    app.home.expect_preferences(ShowWelcomeWindow="False - 3.0")


def test_folder_is_asked_for_until_it_is_right(app, pointer, keyboard, bus):
    """Cancelled once, answered with a wrong folder once, then with the right one."""
    wrong = app.home.path
    app.start()
    keyboard.reply(WELCOME, "Get Started")
    app.driver.find_panel("Choose")
    app.keep_picture("folder")
    keyboard.cancel_panel("Choose")
    keyboard.reply(MUST_SELECT, "Try Again")
    bus.answer_panel(str(wrong), "Choose")
    pointer.reply(NOT_VALIDATED, "Choose Again")
    app.home.expect_log("ERROR WITH ACCESSING BOOKMARK", ASKED,
                        "Chosen LaunchAgents path does not match expected path:",
                        f"file://{pathname2url(str(wrong))}", ASKED)
    pointer.answer_panel(str(app.home.agents_folder), "Choose")
    app.find_main_window()
    app.home.expect_log("Chosen LaunchAgents path matches expected path. Creating bookmark")
    app.home.expect_preferences(ShowWelcomeWindow="True - 3.0", Bookmark=True)


def test_second_day_asks_nothing(app, keyboard):
    """With stored settings neither the welcome sheet nor the folder panel is shown."""
    app.start_ready(AutoCopyScriptsKey="True")
    app.home.expect_log("Found key found for ShowWelcomeWindow, value of False - 3.0",
                        "Found key found for AutoCopyScriptsKey, value of True")
    app.quit(keyboard)


def test_incomplete_form(app):
    """All faults are reported at once and marked at their rows."""
    app.start_ready()
    app.driver.press("Tab")
    app.driver.press("ctrl+s")
    sheet = app.driver.find_window("Some information is missing or incorrect.")
    app.driver.find("label", FAULTS)
    app.keep_picture("faults")
    app.driver.press("Return")
    app.driver.wait_until_gone(sheet)
    app.driver.wait_for_focus(app.driver.find("field", "Name"))
    for hint in ("The agent needs a name", "Choose an application or a script",
                 "Choose when the agent starts"):
        app.driver.find("label", hint)
    app.home.expect_log("Agent failed initial validation with the following errors:",
                        *FAULTS.splitlines())
    app.driver.press("ctrl+n")
    app.expect_empty_form()
