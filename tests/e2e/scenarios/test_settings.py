"""The last stations: preferences, tips, the window closed and brought back, the end."""

from agent_table import AGENTS
from test_onboarding import FIRST_START, STANDARD
from desktop import wait_until
from scenario import expect_equal
from test_agents import PREFERENCES

WARNED = PREFERENCES | {"WarnForDelete": False}
# What the sheet shows of those, control by control.
SHEET = {"Show the welcome window at start": "off",
         "Copy commands to the clipboard automatically": "on",
         "Warn when a script kept alive may still exit": "on",
         "Default wildcards": "Leave wildcards as they are", "Default priority": "Normal"}
OTHER = {"Show the welcome window at start": "on",
         "Copy commands to the clipboard automatically": "off",
         "Warn when a script kept alive may still exit": "off",
         "Default wildcards": "Expand wildcards", "Default priority": "Low"}
STORED = WARNED | {"ShowWelcomeWindow": "True - 3.0", "AutoCopyScriptsKey": "False",
                   "WarnForSuccessfulExit": "False", "DefaultGlobbingKey": "0",
                   "DefaultPriorityKey": "1"}
TIPS = {"Tip: Name": "What's in a name?",
        "Tip: What to launch":
            "Frimbolate helps you automate the launching of applications and scripts.",
        "Tip: When to launch": "The right tool for the job.",
        "Tip: Schedule": "Timing is everything.",
        "Tip: Advanced": "Advanced features for complex jobs."}


def open_preferences(life, expected):
    life.person.look_at_window("Frimbolate")
    life.person.press("ctrl+comma")
    sheet = life.person.look_at_window("Preferences")
    expect_equal(life.shown(), expected)
    return sheet


def turn(life, way, expected):
    """Brings every control of the sheet to its other state."""
    for control, state in expected.items():
        if state in ("on", "off"):
            way.toggle(control)
        else:
            way.choose(control, state)
    life.person.wait_until(lambda: life.shown() == expected, f"{expected}")


def preferences(life):
    """Discarded, then stored, then taken over by the next form, then reset."""
    sheet = open_preferences(life, SHEET)
    life.keep("preferences")
    turn(life, life.pointer, OTHER)
    life.person.press("Escape")
    life.person.wait_until_gone(sheet)
    life.expect_preferences(**WARNED)
    # The controls keep what was left in them until a new form brings back what is stored.
    open_preferences(life, OTHER)
    life.keyboard.reply("Preferences", "Close")
    life.empty_form()
    open_preferences(life, SHEET)
    turn(life, life.bus, OTHER)
    life.keyboard.reply("Preferences", "Save")
    wait_until(lambda: life.preferences() == STORED, "the preferences to be stored")
    life.expect_preferences(**STORED)
    new_form_takes_them(life)
    reset(life)


def new_form_takes_them(life):
    life.person.press("ctrl+n")
    life.keyboard.toggle("Advanced")
    shown = life.shown()
    assert shown["Priority"] == "Low", shown
    assert shown["Expand wildcards in arguments"] == "on", shown
    # The new form has found another value for the welcome, and put its own in its place.
    life.expect_preferences(**STORED | {"ShowWelcomeWindow": "False"})
    life.keyboard.toggle("Advanced")


def reset(life):
    """All is forgotten, the grant too, and the program starts anew by itself."""
    life.person.press("ctrl+comma")
    life.person.look_at_window("Preferences")
    life.person.act("button", "Reset")
    wait_until(lambda: life.process.poll() is not None, "the program to quit")
    assert life.process.returncode == 0, life.process.returncode
    sheet = life.person.look_at_window("Welcome to Frimbolate")
    life.keep("reset")
    life.expect_log(*FIRST_START)
    life.expect_preferences(ShowWelcomeWindow="True - 3.0", **STANDARD)
    life.person.press("Return")
    life.person.wait_until_gone(sheet)
    life.expect_log("User really likes the welcome window and it will continue to be shown",
                    "ERROR WITH ACCESSING BOOKMARK")
    life.keyboard.answer_panel(str(life.folder), "Choose")
    life.person.look_at_window("Frimbolate")
    life.expect_preferences(ShowWelcomeWindow="True - 3.0", Bookmark=True, **STANDARD)


def tips(life):
    """They stand beside the rows from the start; hidden, shown again, and all read."""
    life.person.look("button", "Tip: Name")
    life.person.press("ctrl+t")
    life.person.wait_until(lambda: not life.person.sees("button", "Tip: Name"), "tips to hide")
    life.person.press("alt+v")
    life.person.wait_for_menu()
    life.person.press("t")
    life.person.look("button", "Tip: Name")
    life.pointer.toggle("Advanced")
    for (button, title), way in zip(TIPS.items(), (life.pointer, life.bus, life.keyboard,
                                                   life.pointer, life.keyboard)):
        life.person.look_at_window("Frimbolate")
        way.press_button(button)
        life.person.look_at_window(title)
        if button == "Tip: Name":
            life.keep("tip")
        way.reply(title, "Ok")
    life.pointer.toggle("Advanced")


def close_and_bring_back(life):
    """The window closes and the program stays; a second start brings the window back."""
    window = life.person.look_at_window("Frimbolate")
    life.person.press("ctrl+w")
    life.person.wait_until_gone(window)
    life.start()
    wait_until(lambda: life.process.poll() is not None, "the second start to end")
    assert life.process.returncode == 0, life.process.returncode
    life.person.look_at_window("Frimbolate")


def quit_by_menu(life):
    """The program that the reset started is no child of this one; it leaves the bus."""
    life.person.look_at_window("Frimbolate")
    life.person.press("alt+b")
    life.person.wait_for_menu()
    life.person.press("q")
    wait_until(lambda: not life.person.all_windows(), "the program to quit")
    assert len(list(life.folder.iterdir())) == len(AGENTS) - 3
