"""The way back from an emptied form, by the keyboard and by the menu."""

from waiting import wait_until

EMPTY = "Still needs a name, something to launch and a choice of when to launch it."


def fill(driver, script):
    driver.write("Name", "Tidy")
    driver.choose_file("What to launch", "Application or script…", str(script))
    driver.choose("When to launch", "Launch on schedule")
    driver.choose("Schedule", "Every Wednesday")
    driver.set_time("Time of day", "07:05")


def test_undo(app):
    driver, script = app.driver, app.home.create_script()
    app.start_ready()
    fill(driver, script)
    filled = f"Runs {script.name} every Wednesday at 07:05."
    driver.find("label", filled)

    # New: the name field, which gets the keyboard, has nothing of its own to undo.
    driver.press("ctrl+n")
    driver.find("label", EMPTY)
    driver.press("ctrl+z")
    driver.find("label", filled)
    driver.press("ctrl+shift+z")
    driver.find("label", EMPTY)

    # Typing is undone first.
    driver.type("x")
    name = driver.find("field", "Name")
    driver.wait_until(lambda: driver.text(name) == "x", "the name to be typed")
    driver.press("ctrl+z")
    driver.find("label", EMPTY)
    driver.click_menu_item("Edit", "Undo New")
    driver.find("label", filled)
    app.keep_picture("undo-1-brought-back")

    # A save empties the form, too; what comes back is saved as the same bytes.
    path = app.home.agent_path("Tidy")
    contents = []
    for _ in range(2):
        driver.press("ctrl+s")
        driver.find_panel("Save")
        driver.press("Return")
        driver.find("button", "Skip")
        driver.click("button", "Skip")
        driver.find("label", EMPTY)
        wait_until(path.is_file, f"{path}")
        contents.append(path.read_bytes())
        path.unlink()
        driver.click_menu_item("Edit", "Undo Reset After Save")
        driver.find("label", filled)
    assert contents[0] == contents[1]
