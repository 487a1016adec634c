"""What launchd would do otherwise than meant, shown in the form: the disk of this machine decides."""

import plistlib


def test_a_row_says_that_its_program_is_missing(app, keyboard):
    """Until the program is there."""
    program = app.home.path / "missing tool"
    agent = app.home.agents_folder / "com.frimbolate.Backup.plist"
    agent.write_bytes(plistlib.dumps({
        "Label": "com.frimbolate.Backup", "ProgramArguments": [str(program)],
        "StartOnMount": True}))
    app.start_ready()
    driver = app.driver
    driver.press("ctrl+3")
    driver.wait_until(lambda: driver.showing("row"), "the agent to be listed")
    driver.press("ctrl+f", "Down", "Return")
    name = driver.find("field", "Name")
    driver.wait_for_focus(name)

    def hints():
        return [label.name for label in driver.showing("label") if "missing tool" in label.name]

    driver.wait_until(
        lambda: any(hint.endswith("; the program does not exist on this machine")
                    for hint in hints()), "the finding of the row")
    app.keep_picture("finding")
    program.write_text("#!/bin/sh\n")
    program.chmod(0o755)
    driver.press("End", "a")
    driver.wait_until(
        lambda: hints() and not any("does not exist" in hint for hint in hints()),
        "the hint without a finding")
