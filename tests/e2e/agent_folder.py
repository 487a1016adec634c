"""Twenty believable agents of one user: our own, the earlier version's, others', a damaged one."""

import plistlib

from agent_table import PLAIN, filled

EARLIER = "com.fr\u0131mbolate."
DAMAGED = "com.example.updater.plist"
SCRIPTS = "{home}/Scripts"
# The agents that are added during the day.
NEW, NEWS = "make_thumbnails", "fetch_news"


def at(hour, minute, **day):
    return {"StartCalendarInterval": {"Hour": hour, "Minute": minute} | day}


# Our agents by the name of the script that each runs, with its keys besides label and arguments.
OWN = {
    "backup_photos": at(19, 30) | {"WatchPaths": ["{home}/Pictures"]},
    "convert_inbox": {"WatchPaths": ["{home}/inbox"]},
    "empty_caches": at(4, 10, Weekday=6),
    "export_calendar": at(21, 0, Weekday=0),
    "fetch_mail": {"StartInterval": 300},
    "log_battery": {"StartInterval": 600},
    "mirror_website": at(2, 45),
    "mount_archive": {"StartOnMount": True},
    "rotate_logs": at(0, 30, Day=1),
    "start_tunnel": {"RunAtLoad": True, "KeepAlive": True},
    "sync_notes": {"StartInterval": 1800, "RunAtLoad": True},
    "tidy_downloads": at(7, 5, Weekday=3),
    "verify_disk": at(23, 15, Day=28),
    "weekly_report": at(8, 15, Weekday=1),
}
OF_EARLIER = {"archive_mail": at(18, 0), "water_plants": at(12, 0, Weekday=5)}
OF_OTHERS = {
    "com.example.cleaner": {"Program": "/usr/bin/find",
                            "ProgramArguments": ["find", "/tmp", "-empty", "-delete"],
                            "StartInterval": 3600, "Disabled": True},
    "com.example.sync": {"ProgramArguments": ["/bin/cp", "-R", "{home}/inbox", "/tmp"],
                         "StartIntervall": 900, "RunAtLoad": True},
    "org.example.cloud": {"ProgramArguments": ["/bin/sh", "-c", "exec cloud"], "RunAtLoad": True,
                          "KeepAlive": True},
}
# All of them in the order of the list.
LISTED = sorted([*OWN, *OF_EARLIER, *OF_OTHERS, DAMAGED])


def script_arguments(name):
    return ["/bin/sh", f"{SCRIPTS}/{name}.sh"]


def agents_of(home):
    """The property lists of all readable agents, by file name."""
    ours = {f"{prefix}{name}": {"Label": f"{prefix}{name}",
                                "ProgramArguments": script_arguments(name)} | PLAIN | keys
            for prefix, agents in (("com.frimbolate.", OWN), (EARLIER, OF_EARLIER))
            for name, keys in agents.items()}
    others = {label: {"Label": label} | keys for label, keys in OF_OTHERS.items()}
    return {f"{label}.plist": filled(keys, home.path) for label, keys in (ours | others).items()}


def fill_folder(home):
    """Stores all agents and the scripts that they run; returns what agents_of() does."""
    agents = agents_of(home)
    for name in ("Scripts", "Pictures", "inbox"):
        (home.path / name).mkdir()
    for name in [*OWN, *OF_EARLIER, NEW, NEWS]:
        (home.path / "Scripts" / f"{name}.sh").write_text("#!/bin/sh\n", encoding="utf-8")
    for name, agent in agents.items():
        (home.agents_folder / name).write_bytes(plistlib.dumps(agent))
    whole = plistlib.dumps({"Label": "com.example.updater", "StartInterval": 86400})
    (home.agents_folder / DAMAGED).write_bytes(whole[:len(whole) // 2])
    return agents


class AgentList:
    """The list of agents on the page of that name, its rows by the names of their agents."""

    def __init__(self, app):
        self._driver = app.driver

    def _table(self):
        return next(iter(self._driver.showing("table")), None)

    def rows(self):
        """The accessible names of all rows, also of those that are scrolled away."""
        from accessible import children, is_a, name_of

        return [name_of(cell) for cell in children(self._table()) if is_a(cell, "row")]

    def row(self, name):
        return next((row for row in self.rows() if row.startswith(f"{name}, ")), "")

    def names(self):
        return [row.split(",")[0] for row in self.rows()]

    def expect_names(self, names):
        self._driver.wait_until(lambda: self.names() == list(names), f"the rows {names}")

    def expect_words(self, name, *words):
        """Waits until the row of that agent is there and says all of that."""
        self._driver.wait_until(
            lambda: (row := self.row(name)) and all(each in row for each in words),
            f"the row of {name} to say {words}")

    def expect_selected(self, name):
        from accessible import has, name_of

        self._driver.wait_until(
            lambda: has(self._table(), "FOCUSED") and [
                name_of(row).split(",")[0] for row in self._driver.showing("row")
                if has(row, "FOCUSED")] == [name], f"the row of {name} to have the keyboard")
