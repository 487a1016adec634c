"""The agents of the complete flow: what is entered, what the file holds, how it is read back."""

from typing import NamedTuple

PLAIN = {"EnableGlobbing": False, "LowPriorityIO": False, "Nice": 0}
ON_SCHEDULE = {"When to launch": "Launch on schedule"}
KEPT_ALIVE = {"When to launch": "Launch on schedule and keep alive"}
# A pop-up in which nothing is chosen shows its own name.
NO_SCHEDULE = {"Schedule": "Schedule"}
# An interval is read back in seconds, the unit of its key.
SECONDS = {"Unit of the interval": "seconds"}
FILE, SCRIPT = "Application or script…", "New script…"
# The drawer's controls with their defaults.
DRAWER = {
    "Priority": "Normal", "Nice level": "0",
    "Standard input": "", "Standard output": "", "Standard error": "",
    "Working folder": "", "Root folder": "", "Queue folder": "",
    "Expand wildcards in arguments": "off", "Allow successful exit": "off",
    "Agent loads": "off", "Volume mounts": "off", "Path changes": "off",
}


class Agent(NamedTuple):
    name: str
    entered: dict  # control and entered value, in this order; {home} is replaced
    arguments: list
    keys: dict  # the keys of the file besides label and arguments
    plan: str  # the sentence in the status line
    log: str  # the log line about the schedule when the file is read
    shown: dict = {}  # values shown after reading that differ from the entered ones


def of_file(file, arguments, day, number, log="Agent runs once a week on day : "):
    """A file of one kind, launched on one day of the week."""
    name, time = file.replace(".", "_"), f"0{number + 1}:4{number}"
    title = file.removesuffix(".app")
    return Agent(
        name, {"What to launch": FILE, "Target": "{home}/" + file, **ON_SCHEDULE,
               "Schedule": f"Every {day}", "Time of day": time},
        arguments,
        PLAIN | {"StartCalendarInterval": {"Weekday": number, "Hour": number + 1,
                                           "Minute": 40 + number}},
        f"Runs {title} every {day} at {time}.", f"{log}{number}")


def of_script(name, entered, keys, plan, log, shown=None):
    """A typed script, launched as `entered` says."""
    return Agent(name, {"What to launch": SCRIPT, "Script": f"echo {name}", **entered},
                 ["/bin/sh", "-c", f"echo {name}"], PLAIN | keys, f"Runs a script {plan}.", log,
                 shown or {})


AGENTS = (
    of_file("Radio.app", ["{home}/Radio.app/Contents/MacOS/radio"], "Sunday", 0),
    of_file("tidy.sh", ["/bin/sh", "{home}/tidy.sh"], "Monday", 1),
    of_file("tidy.py", ["/usr/bin/python", "{home}/tidy.py"], "Tuesday", 2),
    of_file("tidy.rb", ["/usr/bin/ruby", "{home}/tidy.rb"], "Wednesday", 3),
    of_file("tidy.pl", ["/usr/bin/perl", "{home}/tidy.pl"], "Thursday", 4),
    of_file("tidy.scpt", ["/usr/bin/osascript", "{home}/tidy.scpt"], "Friday", 5),
    of_file("tidy.workflow", ["/usr/bin/automator", "{home}/tidy.workflow"], "Saturday", 6),
    of_script("daily", {**ON_SCHEDULE, "Time of day": "07:05"},
              {"StartCalendarInterval": {"Hour": 7, "Minute": 5}}, "every day at 07:05",
              "Agent runs on every day on a schedule"),
    of_script("weekly", {**ON_SCHEDULE, "Schedule": "Every Wednesday", "Time of day": "00:00"},
              {"StartCalendarInterval": {"Weekday": 3, "Hour": 0, "Minute": 0}},
              "every Wednesday at 00:00", "Agent runs once a week on day : 3"),
    of_script("monthly", {**ON_SCHEDULE, "Schedule": "Once a Month", "Day of the month": "31",
                          "Time of day": "23:59"},
              {"StartCalendarInterval": {"Day": 31, "Hour": 23, "Minute": 59}},
              "on the 31st of every month at 23:59, in shorter months on a day after the month's end",
              "Agent runs once a month 31"),
    of_script("seconds", {**ON_SCHEDULE, "Schedule": "On Interval", "Interval": "90"},
              {"StartInterval": 90}, "every 90 seconds", "Agent runs on interval",
              SECONDS),
    of_script("minutes", {**ON_SCHEDULE, "Schedule": "On Interval", "Interval": "5",
                          "Unit of the interval": "minutes"},
              {"StartInterval": 300}, "every 5 minutes", "Agent runs on interval",
              {"Interval": "300"} | SECONDS),
    of_script("hours", {**ON_SCHEDULE, "Schedule": "On Interval", "Interval": "2",
                        "Unit of the interval": "hours"},
              {"StartInterval": 7200}, "every 2 hours", "Agent runs on interval",
              {"Interval": "7200"} | SECONDS),
    of_script("login", {**ON_SCHEDULE, "Schedule": "On Login/Load"}, {"RunAtLoad": True},
              "when the agent is loaded, such as at login",
              "Evaluating keys for advanced drawer..."),
    Agent("alive", {"What to launch": SCRIPT, "Script": "echo alive", **KEPT_ALIVE,
                    "Time of day": "12:30"},
          ["/bin/sh", "-c", "echo alive"],
          PLAIN | {"StartCalendarInterval": {"Hour": 12, "Minute": 30},
                   "KeepAlive": {"AfterInitialDemand": True}},
          "Kept running once it has been started; nothing in this form starts it.",
          "KeepAlive key is dictionary", {}),
    of_script("always", {**KEPT_ALIVE, "Schedule": "On Login/Load"},
              {"RunAtLoad": True, "KeepAlive": True},
              "when the agent is loaded, such as at login, and keeps it running",
              "KeepAlive key is bool, key is true and does not allow successful exit"),
    Agent("until_done", {**KEPT_ALIVE, "Schedule": "On Login/Load", "Advanced": "on",
                         "Allow successful exit": "on", "What to launch": SCRIPT,
                         "Potential conflict identified...": "Ok", "Script": "echo $HOME; false"},
          ["/bin/sh", "-c", "echo $HOME; false"],
          PLAIN | {"RunAtLoad": True, "KeepAlive": {"SuccessfulExit": False}},
          "Runs a script when the agent is loaded, such as at login, and keeps it running until "
          "it succeeds.", "SuccessfulExit key value is: 0"),
    of_script("watching", {"When to launch": "Launch when a path is modified…",
                           "Watched path": "{home}/inbox"},
              {"WatchPaths": ["{home}/inbox"]}, "when ~/inbox changes",
              "Agent contains a WatchPath key: {home}/inbox", NO_SCHEDULE),
    of_script("volumes", {"When to launch": "Launch when a volume is mounted"},
              {"StartOnMount": True}, "when a volume is mounted",
              "Agent contains StartOnMount key: 1", NO_SCHEDULE),
    of_script(
        "advanced",
        {**ON_SCHEDULE, "Time of day": "06:00", "Advanced": "on", "Priority": "Low",
         "Nice level": "5", "Standard input": "/dev/zero", "Standard output": "/var/log/out",
         "Standard error": "/var/log/err", "Working folder": "/private", "Root folder": "/",
         "Queue folder": "/var/spool/x", "Expand wildcards in arguments": "on",
         "Agent loads": "on", "Volume mounts": "on", "Path changes": "on",
         "Watched path": "{home}/inbox"},
        {"StartCalendarInterval": {"Hour": 6, "Minute": 0}, "LowPriorityIO": True, "Nice": 5,
         "StandardInPath": "/dev/zero", "StandardOutPath": "/var/log/out",
         "StandardErrorPath": "/var/log/err", "WorkingDirectory": "/private",
         "RootDirectory": "/", "QueueDirectories": ["/var/spool/x"], "EnableGlobbing": True,
         "RunAtLoad": True, "StartOnMount": True, "WatchPaths": ["{home}/inbox"]},
        "every day at 06:00, when the agent is loaded, such as at login, when a volume is mounted, "
        "when ~/inbox changes, and as long as /var/spool/x is not empty",
        "StandardOutPath key: /var/log/out",),
)


def filled(value, home):
    """The value with each {home} replaced by the path of the home."""
    if isinstance(value, str):
        return value.replace("{home}", str(home))
    if isinstance(value, list):
        return [filled(each, home) for each in value]
    if isinstance(value, dict):
        return {key: filled(each, home) for key, each in value.items()}
    return value


def content(agent, home):
    """The whole property list of an agent."""
    return filled({"Label": f"com.frimbolate.{agent.name}",
                   "ProgramArguments": agent.arguments} | agent.keys, home)


def form(agent):
    """The values that the form shows after the agent was read."""
    not_shown = ("Script", "Target", "Watched path", "Advanced",
                 "Potential conflict identified...")
    entered = {control: text for control, text in agent.entered.items()
               if control not in not_shown}
    return {"Name": agent.name, "Schedule": "Every Day"} | drawer(agent) | entered | agent.shown


def drawer(agent):
    """The drawer's values; it opens only for an agent that was entered with it open."""
    return DRAWER if "Advanced" in agent.entered else {}
