"""The main task, from the first start to a saved agent; script/run runs it if there is no display.

Prints the file and the command that loads it; pytest shows them with -s.
"""

import plistlib

from first_agent import NAME, expected_agent
from waiting import wait_until


def test_first_agent(app, pictures):
    driver, folder, script = app.driver, app.home.agents_folder, app.home.create_script()
    app.start()
    driver.find("button", "Get Started")
    app.keep_picture("1-welcome")
    driver.click("button", "Get Started")
    driver.answer_panel(str(folder), "Choose")

    driver.write("Name", NAME)
    driver.choose_file("What to launch", "Application or script…", str(script))
    driver.choose("When to launch", "Launch on schedule")
    driver.choose("Schedule", "Every Wednesday")
    driver.set_time("Time of day", "07:05")
    app.keep_picture("2-form")

    driver.press("ctrl+s")
    driver.find("button", "Cancel")  # the panel's; the toolbar has a button "Save" too
    driver.press("Return")
    driver.find("button", "Continue")
    app.keep_picture("3-saved")
    driver.press("Return")
    command = driver.read("field", "Command")
    app.keep_picture("4-command")

    path = app.home.agent_path(NAME)
    wait_until(path.is_file, f"{path}")
    content = path.read_bytes()
    print(f"\nSaved, in a home made for this run, as {path}:\n\n{content.decode()}")
    print(f"The command that loads it:\n\n{command}\n")
    print(f"Pictures are in {pictures}")
    assert plistlib.loads(content) == expected_agent(script)
    assert command == f"launchctl load '{path}'"
