"""A home folder for one test: launchable files, agents, preferences and log."""

import os
import plistlib
import pwd
import signal
import subprocess
from pathlib import Path

from desktop import stop
from waiting import TIMEOUT, expect_equal, wait_for, wait_until

PREFERENCES = "com.qz.Frimbolate.plist"
# The preferences that a first start stores besides ShowWelcomeWindow.
STANDARD_PREFERENCES = {"AutoCopyScriptsKey": "False", "WarnForSuccessfulExit": "True",
                        "DefaultGlobbingKey": "1", "DefaultPriorityKey": "0"}


class Home:
    """A context manager for an existing empty folder; ends all processes started in this home."""

    def __init__(self, folder):
        self.folder = folder
        self.path = folder / "home"
        self.environment = self._create_folders()
        user = pwd.getpwuid(os.geteuid()).pw_name
        # The program accepts a folder with this path as the user's LaunchAgents folder.
        self.agents_folder = folder / "Users" / user / "Library" / "LaunchAgents"
        self.agents_folder.mkdir(parents=True)
        self.preference_file = Path(self.environment["XDG_CONFIG_HOME"]) / PREFERENCES
        self._log_file = folder / "log.txt"
        self._log_file.touch()
        self._read = 0  # characters of the log compared so far
        self._processes = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end_processes()

    def end_processes(self):
        for process in reversed(self._processes):
            if process.poll() is None:
                process.send_signal(signal.SIGCONT)
                stop(process)
        for number in self._started_by_others():
            os.kill(number, signal.SIGKILL)
            wait_until(lambda: number not in self._started_by_others(), f"process {number} to end")

    # Processes

    def variables(self, changes):
        """The environment of a process in this home; None removes a variable."""
        merged = os.environ | self.environment | changes
        return {name: value for name, value in merged.items() if value is not None}

    def start(self, *command, streams=None, **changes):
        """Starts a process with its output redirected to the log."""
        with open(self._log_file, "ab") as log:
            options = {"stdout": log, "stderr": log} | (streams or {})
            self._processes.append(subprocess.Popen(
                [str(part) for part in command], env=self.variables(changes), **options))
        return self._processes[-1]

    def _started_by_others(self):
        """Processes of this home that this process did not start, such as one after a reset."""
        mark = f"XDG_RUNTIME_DIR={self.environment['XDG_RUNTIME_DIR']}".encode()
        found = []
        for folder in Path("/proc").iterdir():
            try:
                if folder.name.isdigit() and mark in (folder / "environ").read_bytes().split(b"\0"):
                    found.append(int(folder.name))
            except OSError:  # the process has ended, or belongs to another user
                continue
        return found

    # Log

    def log(self):
        return self._log_file.read_text(encoding="utf-8", errors="replace")

    def expect_log(self, *lines):
        """Waits until the log has all lines in this order, after those of earlier calls."""
        wait_for(lambda: self._expect_in_order(lines, self.log()[self._read:]))
        self._read = len(self.log())

    @staticmethod
    def _expect_in_order(lines, log):
        rest = iter(log.splitlines())
        for line in lines:
            assert line in rest, f"not logged, or not in its place: {line}\nin:\n{log}"

    # Agents

    def agent_path(self, name):
        return self.agents_folder / f"com.frimbolate.{name}.plist"

    def read_agent(self, name):
        return plistlib.loads(self.agent_path(name).read_bytes())

    def agent_names(self):
        return sorted(path.name for path in self.agents_folder.iterdir())

    # Preferences

    def store_preferences(self, **changes):
        """Stores settings with which the program skips welcome and folder panel."""
        self.preference_file.write_bytes(plistlib.dumps(
            STANDARD_PREFERENCES | {"ShowWelcomeWindow": "False - 3.0",
                                    "Bookmark": f"path1:{self.agents_folder}".encode()} | changes))

    def preferences(self):
        """The whole preference file, with any bookmark replaced by True."""
        found = plistlib.loads(self.preference_file.read_bytes())
        if isinstance(found.get("Bookmark"), bytes) and found["Bookmark"]:
            found["Bookmark"] = True
        return found

    def expect_preferences(self, **changes):
        """Waits until the file holds exactly the standard preferences with these changes."""
        wait_for(lambda: expect_equal(self.preferences(), STANDARD_PREFERENCES | changes))

    # Files

    def create_script(self, name="backup.sh"):
        script = self.path / name
        script.write_text("#!/bin/sh\ntar -czf ~/backup.tar.gz ~/Pictures\n", encoding="utf-8")
        script.chmod(0o755)
        return script

    def create_targets(self):
        """Creates a file to launch of every kind, and a folder to watch."""
        for kind in ("sh", "py", "rb", "pl", "scpt"):
            (self.path / f"tidy.{kind}").write_text("true\n", encoding="utf-8")
        (self.path / "tidy.workflow" / "Contents").mkdir(parents=True)
        (self.path / "inbox").mkdir()
        contents = self.path / "Radio.app" / "Contents"
        (contents / "MacOS").mkdir(parents=True)
        (contents / "MacOS" / "radio").write_text("#!/bin/sh\n", encoding="utf-8")
        (contents / "Info.plist").write_text(
            '<?xml version="1.0" encoding="UTF-8"?>\n<plist version="1.0"><dict>'
            "<key>CFBundleExecutable</key><string>radio</string></dict></plist>\n",
            encoding="utf-8")

    def _create_folders(self):
        variables = {
            "HOME": str(self.path), "QT_QPA_PLATFORM": "xcb", "XDG_CURRENT_DESKTOP": "",
            # Without this Qt exports its controls only while a screen reader runs.
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "FRIMBOLATE_COLOR_SCHEME": "light",
            "FRIMBOLATE_REDUCED_MOTION": "1", "FRIMBOLATE_TIMEOUT_MS": str(TIMEOUT * 1000)}
        for name in ("CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "RUNTIME_DIR"):
            folder = self.path / name.split("_", 1)[0].lower()
            folder.mkdir(parents=True, mode=0o700)
            variables[f"XDG_{name}"] = str(folder)
        # Replaces the first terminal that the program looks for; records that it was started.
        terminal = self.path / "bin" / "xdg-terminal-exec"
        terminal.parent.mkdir()
        terminal.write_text('#!/bin/sh\n: >"$HOME/terminal-was-opened"\n', encoding="utf-8")
        terminal.chmod(0o755)
        variables["PATH"] = f"{terminal.parent}:{os.environ['PATH']}"
        return variables
