"""A whole day with twenty agents by keyboard alone, while another process changes the folder."""

import plistlib
import subprocess

from agent_folder import DAMAGED, EARLIER, LISTED, NEW, NEWS, AgentList, agents_of, fill_folder
from agent_folder import script_arguments
from agent_table import PLAIN, filled
from app import CREATED, LOAD
from waiting import expect_equal, wait_until

DELETE = "Are you sure you want to delete the following launch agent?"
UPGRADE = "This launch agent needs to be upgraded."
FOREIGN = "This launch agent is not fully compatible with Frimbolate."
REPORT, NOTES, CLOUD, VETERAN = "weekly_report", "sync_notes", "org.example.cloud", "archive_mail"
THUMBNAILS = f"Runs {NEW}.sh every day at 06:30."

# What is logged about the agents, in this order.
LOG = (
    "Agent was created with Frimbolate.",
    "Agent runs once a week on day : 1",
    "Completed evaluating primary keys for editing",
    "Agent passed initial validation, moving on...",
    "Saving launch agent, logging all saved values...",
    f"Agent label key: com.frimbolate.{REPORT}",
    f"Path: {{folder}}/com.frimbolate.{REPORT}.plist",
    "User skipped loading agent.",
    "User does not want to autocopy scripts, writing key",
    f"Writable status: {{folder}}/{CLOUD}.plist",
    "1",
    "Agent was created with Frimbolate.",
    "Agent must be upgraded!",
    "Agent runs on every day on a schedule",
    "Completed evaluating primary keys for editing",
    "Upgrading Agent...",
    "The upgraded path exists, removing the old path",
    "Last path component: sh",
    "Agent passed initial validation, moving on...",
    "Saving launch agent, logging all saved values...",
    f"Agent label key: com.frimbolate.{NEW}",
    f"Path: {{folder}}/com.frimbolate.{NEW}.plist",
    "User skipped loading agent.",
)


def start(app):
    """The window opens on the form."""
    app.start_ready(WarnForDelete=False)
    app.expect_empty_form()
    app.driver.wait_for_focus(app.driver.find("field", "Name"))


def look_around(app, listed):
    driver = app.driver
    driver.press("ctrl+3")
    listed.expect_names(LISTED)
    driver.find("label", "20 agents · 1 off · 2 problems")
    listed.expect_selected(LISTED[0])
    listed.expect_words("backup_photos", "on, made with Frimbolate", "every day at 19:30", "Next: ")
    listed.expect_words(VETERAN, "on, Earlier version, Runs archive_mail.sh every day at 18:00.")
    listed.expect_words("com.example.cleaner", "off, Other program", "no next run known")
    listed.expect_words("com.example.sync", "Other program", "probably StartInterval is meant")
    listed.expect_words(DAMAGED, "state unknown, Unreadable, Cannot be read: ")
    app.keep_picture("agents-1-listed")


def sort_by(driver, key):
    driver.press("alt+v")
    driver.wait_for_menu()
    driver.press("s", key)


def find_in_the_list(app, listed):
    """Filters, sorts, and moves by letters and to both ends."""
    driver = app.driver
    driver.press("ctrl+f")
    driver.wait_for_focus(driver.find("field", "Filter"))
    driver.type("other program")
    listed.expect_names(["com.example.cleaner", "com.example.sync", CLOUD])
    driver.find("label", "3 of 20 agents")
    driver.press("Escape")
    listed.expect_names(LISTED)
    sort_by(driver, "d")
    listed.expect_names(LISTED[::-1])
    sort_by(driver, "d")
    listed.expect_names(LISTED)
    sort_by(driver, "p")
    problems = {"com.example.sync", DAMAGED}
    listed.expect_names([name for name in LISTED if name not in problems] + sorted(problems))
    sort_by(driver, "n")
    listed.expect_names(LISTED)

    driver.press("ctrl+f", "Down", "End")
    listed.expect_selected(LISTED[-1])
    driver.press("Home")
    listed.expect_selected(LISTED[0])
    driver.press("s")
    listed.expect_selected("start_tunnel")
    driver.press("Down")
    listed.expect_selected(NOTES)


def select(app, listed, name):
    """Moves from the first row with the arrow keys, as far as the list is shown in this order."""
    app.driver.press("Home", *["Down"] * listed.names().index(name))
    listed.expect_selected(name)


def change_the_report(app, listed, keyboard, expected):
    select(app, listed, REPORT)
    app.driver.press("Return")
    app.driver.wait_for_focus(app.driver.find("field", "Name"))
    app.driver.find("label", f"Runs {REPORT}.sh every Monday at 08:15.")
    keyboard.set_time("Time of day", "09:45")
    app.save_over(keyboard)
    keyboard.reply(CREATED, "Skip")
    app.expect_empty_form()
    keys = expected[app.home.agent_path(REPORT).name]
    keys["StartCalendarInterval"] = {"Hour": 9, "Minute": 45, "Weekday": 1}
    app.driver.press("ctrl+3")
    listed.expect_words(REPORT, "every Monday at 09:45", ", 09:45")
    listed.expect_selected(REPORT)


def switch_off_and_on(app, listed, keyboard, expected):
    path = app.home.agent_path(NOTES)
    select(app, listed, NOTES)
    for before, after in (("enabled", "off"), ("disabled", "on")):
        app.driver.press("space")
        keyboard.reply(f"This launch agent is currently {before}.", "Continue")
        app.find_main_window()
        listed.expect_words(NOTES, f"{NOTES}, {after}, ")
        assert plistlib.loads(path.read_bytes())["Enabled"] == (after == "on")
        app.driver.find("label", f"20 agents · {2 if after == 'off' else 1} off · 2 problems")
    expected[path.name]["Enabled"] = True


def look_at_the_command(app, listed, keyboard):
    listed.expect_selected(NOTES)
    keyboard.press_button("Show the command that loads the selected agent")
    app.expect_command(LOAD, "load", app.home.agent_path(NOTES))
    app.driver.press("Escape")
    app.find_main_window()


def delete_another(app, listed, keyboard, expected):
    """Another program's agent cannot be edited, but deleted; cancelled once."""
    path = app.home.agents_folder / f"{CLOUD}.plist"
    app.driver.press("ctrl+f", "Down")
    select(app, listed, CLOUD)
    app.driver.press("Return")
    keyboard.reply(FOREIGN, "Ok")
    for button in ("Cancel", "Delete"):
        app.find_main_window()
        app.driver.press("Delete")
        app.driver.find_window(DELETE)
        app.driver.find("label", str(path))
        keyboard.reply(DELETE, button)
        assert path.exists() == (button == "Cancel")
    app.find_main_window()
    listed.expect_names([name for name in LISTED if name != CLOUD])
    del expected[path.name]


def upgrade_a_veteran(app, listed, keyboard, expected):
    old = app.home.agents_folder / f"{EARLIER}{VETERAN}.plist"
    select(app, listed, VETERAN)
    app.driver.press("Return")
    keyboard.reply(UPGRADE, "Ok")
    app.driver.wait_until_gone(keyboard.accept_panel("Save"))
    wait_until(lambda: not old.exists(), "the old file to be removed")
    keys = expected.pop(old.name)
    expected[app.home.agent_path(VETERAN).name] = keys | {"Label": f"com.frimbolate.{VETERAN}"}
    app.find_main_window()
    app.driver.press("ctrl+3")
    listed.expect_words(VETERAN, "on, made with Frimbolate")


def make_a_new_one(app, keyboard, expected):
    """Looks at what will be written, loses the form, and gets it back."""
    driver = app.driver
    driver.press("ctrl+1", "ctrl+n")
    app.expect_empty_form()
    driver.wait_for_focus(driver.find("field", "Name"))
    keyboard.write("Name", NEW)
    keyboard.choose("What to launch", "Application or script…")
    keyboard.answer_panel(filled(f"{{home}}/Scripts/{NEW}.sh", app.home.path), "Select")
    app.find_main_window()
    driver.press("ctrl+2")
    view = driver.find("field", "Property list")
    driver.find("label", "Still needs a choice of when to launch it.")
    driver.press("ctrl+1")
    keyboard.choose("When to launch", "Launch on schedule")
    keyboard.set_time("Time of day", "06:30")
    driver.find("label", THUMBNAILS)
    app.keep_picture("thumbnails")
    driver.press("ctrl+2")
    driver.wait_for_focus(view)
    shown = driver.text(view)
    app.keep_picture("property-list")

    driver.press("ctrl+1", "ctrl+n")
    app.expect_empty_form()
    driver.press("ctrl+z")
    driver.find("label", THUMBNAILS)
    app.save(keyboard)
    keyboard.reply(CREATED, "Skip")
    app.expect_empty_form()
    path = app.home.agent_path(NEW)
    assert path.read_text(encoding="utf-8") == shown
    expected[path.name] = PLAIN | filled(
        {"Label": f"com.frimbolate.{NEW}", "ProgramArguments": script_arguments(NEW),
         "StartCalendarInterval": {"Hour": 6, "Minute": 30}}, app.home.path)


def work_of_another_process(app, listed, expected):
    """It adds an agent, changes one in its place and one by a new file, and removes one."""
    app.driver.press("ctrl+3")
    listed.expect_words(NEW, "every day at 06:30")

    def run(command):
        subprocess.run(["sh", "-ec", command], cwd=app.home.agents_folder, check=True)

    mail, news, battery, report = (app.home.agent_path(name).name for name in
                                   ("fetch_mail", NEWS, "log_battery", REPORT))
    run(f"sed s/fetch_mail/{NEWS}/ {mail} >{news}")
    listed.expect_words(NEWS, f"Runs {NEWS}.sh every 5 minutes.")
    run(f"sed s/300/120/ {news} >../changed; cat ../changed >{news}; rm ../changed")
    listed.expect_words(NEWS, f"Runs {NEWS}.sh every 2 minutes.")
    run(f"sed -i s/600/7200/ {battery}")
    listed.expect_words("log_battery", "Runs log_battery.sh every 2 hours.")
    run(f"rm {report}")
    names = sorted({*LISTED, NEW, NEWS} - {REPORT, CLOUD})
    listed.expect_names(names)
    app.driver.find("label", "20 agents · 1 off · 2 problems")
    expected[news] = expected[mail] | {
        "Label": f"com.frimbolate.{NEWS}", "StartInterval": 120,
        "ProgramArguments": filled(script_arguments(NEWS), app.home.path)}
    expected[battery]["StartInterval"] = 7200
    del expected[report]
    app.keep_picture("agents-2-evening")


def test_whole_day(app, keyboard):
    fill_folder(app.home)
    damaged = (app.home.agents_folder / DAMAGED).read_bytes()
    expected, listed = agents_of(app.home), AgentList(app)
    start(app)
    look_around(app, listed)
    find_in_the_list(app, listed)
    change_the_report(app, listed, keyboard, expected)
    switch_off_and_on(app, listed, keyboard, expected)
    look_at_the_command(app, listed, keyboard)
    delete_another(app, listed, keyboard, expected)
    upgrade_a_veteran(app, listed, keyboard, expected)
    make_a_new_one(app, keyboard, expected)
    work_of_another_process(app, listed, expected)
    app.quit(keyboard)

    files = {path.name: path.read_bytes() for path in app.home.agents_folder.iterdir()}
    assert files.pop(DAMAGED) == damaged
    expect_equal({name: plistlib.loads(file) for name, file in files.items()}, expected)
    app.home.expect_log(*(line.format(folder=app.home.agents_folder) for line in LOG))
    assert "Error" not in app.home.log()
