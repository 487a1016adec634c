"""Faults that are put in on purpose are found, and their steps are shortened.

usage: random_user_test.py PROGRAM
"""

import re
import subprocess
import sys
import tempfile


def run(program, *arguments):
    done = subprocess.run([program, *arguments], capture_output=True, text=True, check=False)
    return done.returncode, done.stdout


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


def grown(program):
    """One object for each hundred steps is too many."""
    code, output = run(program, "--seed", "3", "--count", "120", "--plant", "object")
    assert code == 1 and "MemoryIsFlat" in output and "more QObject" in output, output


if __name__ == "__main__":
    shortened(sys.argv[1], "rule", "ThePlantedRule")
    shortened(sys.argv[1], "crash", "signal")
    grown(sys.argv[1])
