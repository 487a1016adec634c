"""Faults that are put in on purpose are found, and their steps are shortened.

usage: random_user_test.py PROGRAM
"""

import os
import plistlib
import re
import subprocess
import sys
import tempfile


def run(program, *arguments):
    done = subprocess.run([program, *arguments], capture_output=True, text=True, check=False)
    return done.returncode, done.stdout


AGENT = plistlib.dumps({"Label": "agent", "ProgramArguments": ["/bin/ls"]})

STEPS = """\
type\tagentNameTextField\tbackup\treplace
shortcut\tshowPropertyList
key\tTab
shortcut\tadvancedToolbarItem
slide\tniceLevelSlider\t10
other\taddsForeignAgent
shortcut\tshowAgents
key\tDown
"""


def shortened(program, fault, expected):
    """The planted fault is found under its name, by at most three steps."""
    with tempfile.NamedTemporaryFile("w", suffix=".txt") as steps:
        steps.write(STEPS)
        steps.flush()
        code, output = run(program, "--replay", steps.name, "--plant", fault)
    assert code == 1, f"{fault}: not found\n{output}"
    assert expected in output, output
    enough = re.search(r"(\d+) steps are enough", output)
    assert enough and 0 < int(enough[1]) <= 3, output
    assert output.splitlines()[-1].endswith("steps\t1"), output


OUTSIDE = {
    "open": """\
choose\tagentTargetButton\t3\tkeys
key\tEscape
type\tagentNameTextField\toutside\treplace
choose\tagentActionButton\t2\tkeys
shortcut\tvalidateAgentConfig
answerPanel\t@/new.plist
""",
    "remove": """\
shortcut\tdeleteLaunchAgent
press\tContinue
answerPanel\t@/agent.plist
press\tDelete
""",
    "mkdir": """\
choose\tagentTargetButton\t3\tkeys
key\tEscape
type\tagentNameTextField\toutside\treplace
choose\tagentActionButton\t2\tkeys
shortcut\tvalidateAgentConfig
answerPanel\t@
press\tnewFolder
type\tnewFolderName\tnew\treplace
press\tCreate
""",
}


def confined(program, call, steps):
    """A user who strays out of the home changes nothing there, and the run fails."""
    with tempfile.TemporaryDirectory() as folder:
        agent = os.path.join(folder, "agent.plist")
        with open(agent, "wb") as file:
            file.write(AGENT)
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as lines:
            lines.write(steps.replace("@", folder))
            lines.flush()
            code, output = run(
                program, "--replay", lines.name, "--plant", "stray", "--shorten", "no"
            )
        assert code == 1 and f"NothingOutsideIsChanged\n{call} {folder}" in output, output
        assert os.listdir(folder) == ["agent.plist"], os.listdir(folder)
        with open(agent, "rb") as file:
            assert file.read() == AGENT


def grown(program):
    """One object for each hundred steps is too many."""
    code, output = run(program, "--seed", "3", "--count", "120", "--plant", "object")
    assert code == 1 and "MemoryIsFlat" in output and "more QObject" in output, output


if __name__ == "__main__":
    shortened(sys.argv[1], "rule", "ThePlantedRule")
    shortened(sys.argv[1], "crash", "signal")
    grown(sys.argv[1])
    for name, planted in OUTSIDE.items():
        confined(sys.argv[1], name, planted)
