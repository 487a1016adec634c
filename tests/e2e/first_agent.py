"""The first agent of a new user: its name and the content of its file."""

NAME = "Backup"


def expected_agent(script):
    return {
        "Label": f"com.frimbolate.{NAME}",
        "ProgramArguments": ["/bin/sh", str(script)],
        "StartCalendarInterval": {"Weekday": 3, "Hour": 7, "Minute": 5},
        "EnableGlobbing": False,
        "LowPriorityIO": False,
        "Nice": 0,
    }
