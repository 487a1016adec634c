"""Fails on any fault of the one package in a folder: check_package.py [--unoptimised] <folder>"""

import subprocess
import sys
import tempfile
from pathlib import Path

from validators import faults_below, lintian_faults


def faults(package, optimised):
    """All faults that lintian finds in the package and the validators in its files."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["dpkg-deb", "--extract", package, folder], check=True)
        return lintian_faults(package, optimised) + faults_below(Path(folder) / "usr")


if __name__ == "__main__":
    *options, folder = sys.argv[1:]
    (package,) = Path(folder).glob("*.deb")
    found = faults(package, "--unoptimised" not in options)
    print(*found, f"{len(found)} faults in {package}", sep="\n")
    sys.exit(1 if found else 0)
