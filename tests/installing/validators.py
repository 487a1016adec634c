"""Runs the validators of Debian and of the desktops on installed files."""

import os
import subprocess
import tempfile
from pathlib import Path

ID = "com.qz.frimbolate"
# The C library's checked functions need an optimised build.
UNOPTIMISED_TAGS = "hardening-no-fortify-functions"
EVERY_TAG = ("--pedantic", "--display-info", "--display-experimental")


def said(*command):
    """The output lines of a command, or one line about a failure without output; else empty."""
    environment = dict(os.environ, LC_ALL="C.UTF-8", MANWIDTH="80")
    run = subprocess.run(command, env=environment, text=True, stdin=subprocess.DEVNULL,
                         stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if run.returncode and not run.stdout:
        return [f"{command[0]} ends with {run.returncode}"]
    return run.stdout.splitlines()


def desktop_entry_faults(path):
    """Each line that desktop-file-validate prints."""
    return said("desktop-file-validate", path)


def metainfo_faults(path):
    """The tag of each issue with the metainfo, and the whole output if it does not pass."""
    lines = said("appstreamcli", "validate", "--pedantic", "--no-net", "--format=yaml", path)
    tags = [line.split(":", 1)[1].strip() for line in lines if line.strip().startswith("- tag:")]
    return tags if "Passed: yes" in lines else tags + lines


def manual_faults(path):
    """Each warning of man and mandoc about a manual page, compressed or not."""
    with tempfile.TemporaryDirectory() as folder:
        # man prints the formatted page as well; that output is discarded.
        shell = 'man --warnings -E UTF-8 -l -Tutf8 -Z "$1" >"$2"'
        faults = said("sh", "-c", shell, "man", path, Path(folder) / "page")
    return faults + said("mandoc", "-T", "lint", path)


def lintian_faults(package, optimised=True):
    """Each tag that lintian gives a package, of any severity."""
    suppressed = () if optimised else ("--suppress-tags", UNOPTIMISED_TAGS)
    return said("lintian", "--allow-root", *EVERY_TAG, *suppressed, package)


def faults_below(prefix):
    """All faults of the files installed below a prefix."""
    share = Path(prefix) / "share"
    return (desktop_entry_faults(share / "applications" / f"{ID}.desktop")
            + metainfo_faults(share / "metainfo" / f"{ID}.metainfo.xml")
            + manual_faults(share / "man" / "man1" / "frimbolate.1.gz"))
