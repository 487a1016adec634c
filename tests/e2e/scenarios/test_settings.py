"""Preferences, tips, and closing and reopening the window."""

from test_onboarding import FIRST_START, WELCOME
from waiting import expect_equal, wait_until

READY = {"ShowWelcomeWindow": "False - 3.0", "Bookmark": True, "AutoCopyScriptsKey": "True",
         "WarnForDelete": False}
# The sheet's controls for these settings.
SHEET = {"Show the welcome window at start": "off",
         "Copy commands to the clipboard automatically": "on",
         "Warn when a script kept alive may still exit": "on",
         "Default wildcards": "Leave wildcards as they are", "Default priority": "Normal"}
OTHER = {"Show the welcome window at start": "on",
         "Copy commands to the clipboard automatically": "off",
         "Warn when a script kept alive may still exit": "off",
         "Default wildcards": "Expand wildcards", "Default priority": "Low"}
STORED = {"Bookmark": True, "ShowWelcomeWindow": "True - 3.0", "AutoCopyScriptsKey": "False",
          "WarnForSuccessfulExit": "False", "DefaultGlobbingKey": "0", "DefaultPriorityKey": "1",
          "WarnForDelete": False}
TIPS = {"Tip: Name": "What's in a name?",
        "Tip: What to launch":
            "Frimbolate helps you automate the launching of applications and scripts.",
        "Tip: When to launch": "The right tool for the job.",
        "Tip: Schedule": "Timing is everything.",
        "Tip: Advanced": "Advanced features for complex jobs."}


def start(app):
    app.start_ready(AutoCopyScriptsKey="True", WarnForDelete=False)


def open_preferences(app, method, expected):
    app.find_main_window()
    method.open_preferences()
    sheet = app.driver.find_window("Preferences")
    expect_equal(app.shown(), expected)
    return sheet


def change_all(app, method, expected):
    """Changes every control of the sheet to its other state."""
    for control, state in expected.items():
        if state in ("on", "off"):
            method.toggle(control)
        else:
            method.choose(control, state)
    app.driver.wait_until(lambda: app.shown() == expected, f"{expected}")


def test_preferences_discarded(app, pointer):
    start(app)
    sheet = open_preferences(app, pointer, SHEET)
    change_all(app, pointer, OTHER)
    app.driver.press("Escape")
    app.driver.wait_until_gone(sheet)
    app.home.expect_preferences(**READY)
    # The controls keep the discarded values until a new form loads the stored ones.
    open_preferences(app, pointer, OTHER)
    pointer.reply("Preferences", "Close")
    app.home.expect_preferences(**READY)
    pointer.command("New")
    app.expect_empty_form()
    open_preferences(app, pointer, SHEET)
    app.keep_picture("preferences")


def test_preferences_saved_and_used(app, method):
    """The stored values become the defaults of the next form."""
    start(app)
    open_preferences(app, method, SHEET)
    change_all(app, method, OTHER)
    method.reply("Preferences", "Save")
    app.home.expect_preferences(**STORED)
    method.command("New")
    method.toggle("Advanced")
    shown = app.shown()
    assert shown["Priority"] == "Low", shown
    assert shown["Expand wildcards in arguments"] == "on", shown
    # The new form replaces the stored welcome value by its own.
    app.home.expect_preferences(**STORED | {"ShowWelcomeWindow": "False"})


def test_preferences_reset(app, bus, keyboard):
    """Removes all settings, the folder grant included, and restarts the program."""
    start(app)
    open_preferences(app, keyboard, SHEET)
    bus.press_button("Reset")
    app.expect_end()
    app.driver.find_window(WELCOME)
    app.home.expect_log(*FIRST_START)
    app.home.expect_preferences(ShowWelcomeWindow="True - 3.0")
    keyboard.reply(WELCOME, "Get Started")
    app.home.expect_log("User really likes the welcome window and it will continue to be shown",
                        "ERROR WITH ACCESSING BOOKMARK")
    keyboard.answer_panel(str(app.home.agents_folder), "Choose")
    app.find_main_window()
    app.home.expect_preferences(ShowWelcomeWindow="True - 3.0", Bookmark=True)
    # The new process is no child of this one, so its end is observed on the bus.
    keyboard.quit()
    wait_until(lambda: not app.driver.is_running(), "the program to quit")


def test_tips(app, method):
    """Shown from the start; hidden, shown again, and each opened once."""
    start(app)
    app.driver.find("button", "Tip: Name")
    method.toggle_tips()
    app.driver.wait_until(lambda: not app.driver.shows("button", "Tip: Name"), "tips to hide")
    method.toggle_tips()
    app.driver.find("button", "Tip: Name")
    method.toggle("Advanced")
    for button, title in TIPS.items():
        app.find_main_window()
        method.press_button(button)
        app.driver.find_window(title)
        if button == "Tip: Name":
            app.keep_picture("tip")
        method.reply(title, "Ok")


def test_window_closed_and_brought_back(app, method):
    """The window closes and the program stays; a second start brings the window back."""
    start(app)
    window = app.find_main_window()
    method.close_window()
    app.driver.wait_until_gone(window)
    first = app.process
    app.start()
    app.expect_end()
    app.find_main_window()
    assert first.poll() is None
