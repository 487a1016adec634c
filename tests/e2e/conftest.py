"""Fixtures: one virtual desktop for a run; a home and a program for each test.

Modules that use the accessibility binding are imported inside fixtures only, because the binding
connects to the desktop's bus on import.
"""

import re
import shutil
import signal
import tempfile
from dataclasses import dataclass
from pathlib import Path

import pytest

from desktop import Desktop
from home import Home

BUILD = Path(__file__).resolve().parents[2] / "build" / "dev"
METHOD_NAMES = ("pointer", "keyboard", "menus", "bus")


def pytest_addoption(parser):
    group = parser.getgroup("frimbolate")
    group.addoption("--program", type=Path, default=BUILD / "app" / "frimbolate",
                    help="the program to test")
    group.addoption("--drag-source", type=Path, default=BUILD / "tests" / "e2e" / "drag_source",
                    help="the window from which files are dragged")
    group.addoption("--pictures", type=Path, default=BUILD / "tests" / "e2e" / "pictures",
                    help="folder for the pictures")
    group.addoption("--fault-library", type=Path,
                    default=BUILD / "tests" / "faults" / "libfrimbolate_faults.so",
                    help="the library that makes calls of the program fail")
    group.addoption("--fault-points", default="7",
                    help="the number of faults for each scenario with faults, or 'all'")
    group.addoption("--fault-seed", type=int, default=1, help="chooses the faults")
    group.addoption("--fault-report", type=Path,
                    help="gets a line for each scenario: its name, points and failures")


def pytest_configure():
    # A terminated run ends its processes and removes its folders, as an interrupted one does.
    signal.signal(signal.SIGTERM, signal.default_int_handler)


def existing(path):
    assert path.is_file(), f"{path} is not built"
    return path.resolve()


def failure_picture(item):
    return f"failed-{re.sub(r'[^A-Za-z0-9_]+', '-', item.name).strip('-')}.png"


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item):
    """Adds a screenshot and the program's log to the report of a failed test."""
    outcome = yield
    report = outcome.get_result()
    fixtures = getattr(item, "funcargs", {})
    if not report.failed or report.when == "teardown":
        return
    if "home" in fixtures:
        report.sections.append(("log of the program", fixtures["home"].log()))
    if "desktop" in fixtures and "pictures" in fixtures:
        picture = fixtures["pictures"] / failure_picture(item)
        fixtures["desktop"].save_screenshot(picture)
        report.sections.append(("picture of the screen", str(picture)))


@pytest.fixture(scope="session")
def desktop():
    with Desktop() as running:
        yield running


@pytest.fixture(scope="session")
def program(request):
    return existing(request.config.getoption("--program"))


@pytest.fixture(scope="session")
def drag_source(request):
    return existing(request.config.getoption("--drag-source"))


@dataclass
class FaultOptions:
    library: Path
    count: int  # 0 for all
    seed: int
    report_file: Path

    def report(self, scenario, points, failures):
        print(f"{scenario}: {points} points, {failures} failures")
        if self.report_file:
            with open(self.report_file, "a", encoding="utf-8") as file:
                file.write(f"{scenario}\t{points}\t{failures}\n")


@pytest.fixture
def fault_options(request):
    option = request.config.getoption
    count = option("--fault-points")
    return FaultOptions(existing(option("--fault-library")), 0 if count == "all" else int(count),
                        option("--fault-seed"), option("--fault-report"))


@pytest.fixture
def pictures(request):
    folder = request.config.getoption("--pictures").resolve()
    folder.mkdir(parents=True, exist_ok=True)
    (folder / failure_picture(request.node)).unlink(missing_ok=True)
    return folder


@pytest.fixture
def home(desktop, pictures):
    """A fresh home. Depends on `pictures` so that each failure saves a screenshot."""
    folder = Path(tempfile.mkdtemp(prefix="frimbolate-home-"))
    try:
        with Home(folder) as fresh:
            yield fresh
    finally:
        shutil.rmtree(folder)


@pytest.fixture
def app(desktop, home, program, pictures):
    """The program, not started yet."""
    from app import App

    desktop.park_pointer()
    app = App(desktop, home, program, pictures)
    yield app
    app.close()


def create_method(request, app, name):
    from input_methods import METHODS

    method = METHODS[name](app.driver)
    request.addfinalizer(method.driver.close)
    return method


@pytest.fixture(params=METHOD_NAMES)
def method(request, app):
    """Each input method in turn."""
    return create_method(request, app, request.param)


@pytest.fixture
def pointer(request, app):
    return create_method(request, app, "pointer")


@pytest.fixture
def keyboard(request, app):
    return create_method(request, app, "keyboard")


@pytest.fixture
def menus(request, app):
    return create_method(request, app, "menus")


@pytest.fixture
def bus(request, app):
    return create_method(request, app, "bus")


@pytest.fixture
def listener(desktop, home):
    """Records what the program announces. Request it before the program starts."""
    from atspi_driver import EventListener

    listener = EventListener(desktop, home.folder / "announced.txt")
    yield listener
    listener.close()


@pytest.fixture
def instances(home, program):
    from instances import Instances

    return Instances(home, program)
