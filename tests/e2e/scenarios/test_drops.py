"""Files dragged from another window, drag_source, and dropped on the wells of the form."""

import pytest

from waiting import wait_until

TARGET = "Application or script to launch"
REFUSED_HINT = "Choose an application or a script, or drop one on the box"


@pytest.fixture
def files(app):
    """The files and folders to drag, by name."""
    note = app.home.path / "notes.txt"
    note.write_text("no script", encoding="utf-8")
    for name in ("inbox", "outbox"):
        (app.home.path / name).mkdir()
    return {"note": note, "script": app.home.create_script(), "folder": app.home.agents_folder,
            "inbox": app.home.path / "inbox", "outbox": app.home.path / "outbox"}


def drop(app, drag_source, files, box, taken):
    """Drags files from drag_source onto a well that accepts or rejects them."""
    from driver import Driver

    driver, home = app.driver, app.home
    place = driver.centre_of(driver.find("button", box))
    field = driver.centre_of(driver.find("field", "Name"))
    before = len(home.log())
    process = home.start(drag_source, *files)
    source = Driver(drag_source.name)
    driver.drag_begin(source.centre_of(source.find("label", "Files")))
    source.close()

    def last_said(words):
        return lambda: home.log()[before:].splitlines()[-1:] == [words]

    if not taken:
        # Any text field accepts them, so the rejection afterwards is reported as a change.
        driver.drag_to(field, last_said("would be taken"), "the field to take them")
    end = "taken" if taken else "refused"
    driver.drag_to(place, last_said(f"would be {end}"), f"the files to be about to be {end}")
    driver.drop()
    wait_until(lambda: f"was {end}" in home.log()[before:], f"the files to be {end}")
    app.find_main_window()
    process.terminate()
    process.wait()


@pytest.mark.parametrize("names", (["note"], ["script", "note"], ["folder"]),
                         ids=("no-script", "two-files", "folder"))
def test_drop_on_the_target_refused(app, drag_source, files, names):
    app.start_ready()
    drop(app, drag_source, [files[name] for name in names], TARGET, taken=False)
    app.driver.find("label", REFUSED_HINT)


def test_drop_on_the_target_taken(app, drag_source, files):
    app.start_ready()
    drop(app, drag_source, [files["script"]], TARGET, taken=True)
    app.driver.find("label", "~/backup.sh")


def test_drop_on_the_watched_path_taken(app, drag_source, files):
    app.start_ready()
    app.driver.choose_file("When to launch", "Launch when a path is modified…",
                           str(files["inbox"]))
    app.driver.find("label", "Watches ~/inbox")
    drop(app, drag_source, [files["outbox"]], "Watched path", taken=True)
    app.driver.find("label", "Watches ~/outbox")
    app.keep_picture("dropped")
