"""The pages of the window by keyboard: the property list, and the agents of the folder."""

import os
import plistlib

from waiting import wait_until

DELETE = "Are you sure you want to delete the following launch agent?"
FOREIGN = "This launch agent is not fully compatible with Frimbolate."


def store(app, label, **keys):
    path = app.home.agents_folder / f"{label}.plist"
    path.write_bytes(plistlib.dumps(
        {"Label": label, "ProgramArguments": ["/bin/ls"], "StartOnMount": True} | keys))
    return path


def rows(app):
    """The names of the listed agents; each row's name begins with that of its agent."""
    return [row.name.split(",")[0] for row in app.driver.showing("row")]


def expect_rows(app, *names):
    app.driver.wait_until(lambda: rows(app) == list(names), f"the rows {names}")


def expect_selected(app, name):
    """Waits until the row of that name has the keyboard."""
    from accessible import has

    app.driver.wait_until(
        lambda: [row.name.split(",")[0] for row in app.driver.showing("row")
                 if has(row, "FOCUSED")] == [name],
        f"the row of {name} to be selected")


def test_property_list_is_what_is_saved(app, keyboard):
    app.home.create_targets()
    app.start_ready()
    keyboard.write("Name", "Mounted")
    keyboard.choose("When to launch", "Launch when a volume is mounted")
    app.driver.press("ctrl+2")
    view = app.driver.find("field", "Property list")
    app.driver.wait_for_focus(view)
    app.driver.find("label", "Still needs something to launch.")
    shown = plistlib.loads(app.driver.text(view).encode())
    assert shown["Label"] == "com.frimbolate.Mounted" and shown["StartOnMount"]
    app.keep_picture("property_list")
    app.driver.press("ctrl+1")
    app.driver.find("field", "Name")


def test_agents_by_keyboard(app, keyboard):
    """Filter, open, switch and delete, while another program adds and removes agents."""
    backup, sync = store(app, "com.frimbolate.Backup"), store(app, "com.frimbolate.Sync")
    store(app, "org.example.tool", RunAtLoad=True)
    app.start_ready(WarnForDelete=False)
    driver = app.driver
    driver.press("ctrl+3")
    expect_rows(app, "Backup", "org.example.tool", "Sync")
    app.keep_picture("agents")

    # Filter and open.
    driver.press("ctrl+f")
    driver.wait_for_focus(driver.find("field", "Filter"))
    driver.type("sync")
    expect_rows(app, "Sync")
    driver.press("Down")
    expect_selected(app, "Sync")
    driver.press("Return")
    driver.wait_for_focus(driver.find("field", "Name"))
    assert driver.read("field", "Name") == "Sync"

    # Back to the list, where the filter still holds.
    driver.press("ctrl+3")
    expect_rows(app, "Sync")
    driver.press("ctrl+f", "Escape")
    expect_rows(app, "Backup", "org.example.tool", "Sync")
    driver.press("Down", "Home")
    expect_selected(app, "Backup")

    # Switch off.
    driver.press("space")
    keyboard.reply("This launch agent is currently enabled.", "Continue")
    wait_until(lambda: plistlib.loads(backup.read_bytes()).get("Enabled") is False, "switched off")
    driver.wait_until(lambda: any(row.name.startswith("Backup, off, ")
                                  for row in driver.showing("row")), "the row to say so")

    # The agent of another program is rejected as after the panel.
    app.find_main_window()
    driver.press("o")
    expect_selected(app, "org.example.tool")
    driver.press("Return")
    keyboard.reply(FOREIGN, "Ok")

    # Other programs change the folder meanwhile.
    app.find_main_window()
    added = store(app, "com.frimbolate.Added")
    expect_rows(app, "Added", "Backup", "org.example.tool", "Sync")
    added.unlink()
    expect_rows(app, "Backup", "org.example.tool", "Sync")
    expect_selected(app, "org.example.tool")

    # Delete: cancelled once.
    driver.press("End")
    expect_selected(app, "Sync")
    for button in ("Cancel", "Delete"):
        driver.press("Delete")
        driver.find_window(DELETE)
        driver.find("label", str(sync))
        keyboard.reply(DELETE, button)
        app.find_main_window()
        assert sync.exists() == (button == "Cancel")
    expect_rows(app, "Backup", "org.example.tool")
    expect_selected(app, "org.example.tool")


def test_odd_files_are_listed(app):
    """A damaged file, a pipe and a folder harm nothing and block nothing."""
    store(app, "com.frimbolate.Backup")
    (app.home.agents_folder / "damaged.plist").write_bytes(b"<plist><dict>")
    os.mkfifo(app.home.agents_folder / "pipe.plist")
    (app.home.agents_folder / "folder.plist").mkdir()
    app.start_ready()
    app.driver.press("ctrl+3")
    expect_rows(app, "Backup", "damaged.plist", "folder.plist", "pipe.plist")
    names = [row.name for row in app.driver.showing("row")]
    assert [", Unreadable, Cannot be read: " in name for name in names] == [
        False, True, True, True], names
