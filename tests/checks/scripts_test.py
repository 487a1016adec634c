"""Tests script/packages.sh on pretended systems, and the workflow of the hosted runners."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import yaml

PROJECT = Path(__file__).resolve().parents[2]

PLAIN = """appstream at-spi2-core cmake cppcheck dbus-daemon desktop-file-utils dpkg-dev
    fonts-dejavu-core fonts-inter g++ imagemagick libacl1-dev libbenchmark-dev libcli11-dev
    libexpat1-dev libgmock-dev libgtest-dev libxcb1-dev libxml2-utils lintian man-db mandoc ninja-build
    openbox python3 python3-pyatspi python3-pytest python3-yaml qt6-base-dev valgrind x11-utils xdotool
    xvfb""".split()

# The packages in which the systems differ, and what is chosen of them.
SYSTEMS = {
    "the system that the project is developed on": (
        "clang-13 clang-14 clang-16 clang-format-14 clang-tidy-14 libc++-14-dev libc++-16-dev"
        " libclang-rt-14-dev libclang-rt-16-dev libclang-common-14-dev libqt6svg6 qt6-svg-dev",
        "clang-14 clang-format-14 clang-tidy-14 libc++-16-dev libclang-rt-14-dev libqt6svg6 qt6-svg-dev"),
    "a newer one, without clang 14": (
        "clang-9 clang-17 clang-19 clang-format-19 clang-tidy-19 libc++-17-dev libc++-19-dev libclang-rt-17-dev"
        " libclang-rt-19-dev libqt6svg6 qt6-svg-dev",
        "clang-19 libc++-19-dev libclang-rt-19-dev libqt6svg6 qt6-svg-dev"),
    "one whose libraries were renamed": (
        "clang-14 clang-18 clang-format-14 libc++-18-dev libclang-rt-14-dev libclang-rt-18-dev"
        " libqt6svg6t64 qt6-svg-dev",
        "clang-14 clang-format-14 libc++-18-dev libclang-rt-14-dev libqt6svg6t64 qt6-svg-dev"),
    "an older one": (
        "clang-14 clang-format-14 libc++-15-dev libclang-common-14-dev libqt6svg6 libqt6svg6-dev",
        "clang-14 clang-format-14 libc++-15-dev libclang-common-14-dev libqt6svg6 libqt6svg6-dev"),
    "one with names that only look alike": (
        "clang-14-doc clang-15 clang-15-doc libc++-16-dev-wasm32 libc++-15-dev clang-tools-16"
        " libclang-rt-15-dev libclang-rt-16-dev-wasm32 libqt6svg6 qt6-svg-dev",
        "clang-15 libc++-15-dev libclang-rt-15-dev libqt6svg6 qt6-svg-dev"),
}

ALL = " ".join(f'"${{{kind}_packages[@]}}"' for kind in ("program", "desktop", "test", "package", "bench"))


def bash(command: str, given: str = "", **environment: str) -> subprocess.CompletedProcess:
    """Runs a command after script/packages.sh, with nothing of this session's environment."""
    return subprocess.run(
        ["/bin/bash", "-euo", "pipefail", "-c", f"source {PROJECT}/script/packages.sh\n{command}"],
        input=given, capture_output=True, text=True, timeout=60,
        env={"PATH": "/usr/bin:/bin", "LC_ALL": "C", **environment})


class Choice(unittest.TestCase):
    def test_each_system(self):
        for system, (names, chosen) in SYSTEMS.items():
            with self.subTest(system):
                result = bash(f"choose_packages {ALL}", "\n".join(PLAIN + names.split()))
                self.assertEqual(result.stderr, "")
                self.assertEqual(sorted(set(result.stdout.split()) - set(PLAIN)), sorted(chosen.split()))
                self.assertLessEqual(set(PLAIN), set(result.stdout.split()))

    def test_names_every_package_that_a_system_lacks(self):
        names = set(PLAIN) - {"xdotool", "g++"} | {"clang-18", "libqt6svg6", "qt6-svg-dev"}
        result = bash(f"choose_packages {ALL}", "\n".join(names))
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.splitlines(), [
            "This system has no package g++", "This system has no package xdotool",
            "This system has no package libc++-{16}-dev",
            "This system has no package libclang-rt-{clang}-dev|libclang-common-{clang}-dev"])


class Installing(unittest.TestCase):
    """Systems whose commands are scripts of the test, which write down how they are called."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.bin = Path(folder.name)
        self.calls = self.bin / "calls.txt"
        for tool in ("awk", "cat", "comm", "grep", "sed", "sort", "tail"):
            os.symlink(f"/usr/bin/{tool}", self.bin / tool)
        self.tool("uname", "echo Linux")

    def tool(self, name: str, body: str):
        path = self.bin / name
        path.write_text(f'#!/bin/bash\necho "{name} $*" >>"{self.calls}"\n{body}\n')
        path.chmod(0o755)

    def apt(self, known: list[str], installed: list[str], version: str = "6.4.2+dfsg-10"):
        lines = "\n".join(f"installed {name}" for name in installed)
        self.tool("dpkg-query", f'case $* in *Version*) echo "{version}";; *) echo "{lines}";; esac')
        self.tool("apt-cache", f'echo "{chr(10).join(known)}"')
        self.tool("dpkg", 'exec /usr/bin/dpkg "$@"')
        self.tool("apt-get", "")
        self.tool("sudo", '"$@"')
        self.tool("env", 'shift; "$@"')

    def install(self, wanted: str) -> subprocess.CompletedProcess:
        self.calls.write_text("")
        return bash(f"install_missing {wanted}", PATH=str(self.bin))

    def changes(self) -> list[str]:
        return [line for line in self.calls.read_text().splitlines() if line.startswith(("apt-get", "brew i"))]

    def test_with_none_missing_asks_for_nothing(self):
        self.apt(["cmake", "clang-14"], ["clang-14", "cmake"])
        self.assertEqual(self.install("cmake 'clang-{14}'").returncode, 0)
        self.assertEqual(self.changes(), [])

    def test_accepts_another_version_that_is_installed(self):
        self.apt([], ["clang-17", "cmake"])
        self.assertEqual(self.install("cmake 'clang-{14}'").returncode, 0)
        self.assertEqual(self.changes(), [])

    def test_installs_only_what_is_missing(self):
        self.apt(["cmake", "clang-17", "clang-18", "qt6-base-dev"], ["cmake"])
        result = self.install("cmake 'clang-{14}' qt6-base-dev")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(self.changes(), [
            "apt-get -q update", "apt-get -qy install --no-install-recommends clang-18 qt6-base-dev"])

    def test_goes_without_what_is_not_needed(self):
        self.apt(["cmake", "qt6-base-dev"], ["cmake", "qt6-base-dev"])
        self.assertEqual(self.install("cmake 'clang-format-14?' qt6-base-dev").returncode, 0)
        self.assertEqual(self.changes(), [])

    def test_stops_where_a_package_is_nowhere(self):
        self.apt(["cmake"], [])
        result = self.install("cmake xdotool")
        self.assertEqual(result.returncode, 1)
        self.assertIn("This system has no package xdotool", result.stderr)
        self.assertEqual(self.changes(), ["apt-get -q update"])

    def test_stops_where_the_toolkit_is_too_old(self):
        for version, status in (("6.2.4+dfsg-2", 1), ("6.4.0-1", 0), ("6.10.0", 0)):
            self.apt(["qt6-base-dev"], [], version)
            result = self.install("qt6-base-dev")
            self.assertEqual(result.returncode, status, version)
            self.assertEqual(f"needs Qt 6.4 or newer; this system has {version}" in result.stderr, status == 1)

    def test_says_what_another_system_needs(self):
        result = self.install("cmake")
        self.assertEqual(result.returncode, 1)
        for need in ("apt-get", "Homebrew", "CMake 3.25", "Ninja", "Qt 6.4", "GoogleTest", "Xvfb"):
            self.assertIn(need, result.stderr)

    def test_installs_through_homebrew_on_a_mac(self):
        self.tool("uname", "echo Darwin")
        self.tool("clang++", "")
        self.tool("brew", '[[ $1 == install ]] || printf "%s\\n" cmake ninja qt wget')
        result = self.install("")
        self.assertEqual(result.returncode, 0, result.stderr)
        installed = [line for line in self.changes()]
        self.assertEqual(len(installed), 1)
        self.assertEqual(set(installed[0].split()[2:]) & {"cmake", "ninja", "qt", "wget"}, set())
        self.assertLessEqual({"googletest", "google-benchmark"}, set(installed[0].split()))

    def test_stops_on_a_mac_without_homebrew_or_compiler(self):
        self.tool("uname", "echo Darwin")
        self.assertIn("xcode-select --install", self.install("").stderr)
        self.tool("clang++", "")
        result = self.install("")
        self.assertEqual(result.returncode, 1)
        self.assertIn("Homebrew, which is missing", result.stderr)

    def test_makes_the_bundle_on_a_mac_only(self):
        result = subprocess.run([PROJECT / "script/bundle"], capture_output=True, text=True, timeout=60)
        self.assertEqual((result.returncode, result.stderr), (1, "The bundle can be made on macOS only\n"))


class Workflow(unittest.TestCase):
    def setUp(self):
        self.jobs = yaml.safe_load((PROJECT / ".github/workflows/ci.yml").read_text())["jobs"]

    def test_each_step_is_a_script_of_the_project(self):
        for name, job in self.jobs.items():
            self.assertTrue({"runs-on", "steps"} <= set(job), name)
            before = True
            for step in job["steps"]:
                self.assertEqual(len({"run", "uses"} & set(step)), 1, step)
                if step.get("uses", "").startswith("actions/checkout@"):
                    before = False
                elif "run" in step and not before:
                    self.assertRegex(step["run"], r"^script/\w+$")
                    self.assertTrue(os.access(PROJECT / step["run"], os.X_OK), step)

    def test_runs_the_tests_on_both_systems_and_keeps_the_bundle(self):
        runs = {name: [step.get("run", step.get("uses")) for step in job["steps"]]
                for name, job in self.jobs.items()}
        self.assertEqual(self.jobs["debian"]["container"], "debian:12")
        self.assertIn("script/test", runs["debian"])
        self.assertTrue(self.jobs["macos"]["runs-on"].startswith("macos-"))
        self.assertEqual([run for run in runs["macos"] if run.startswith("script/")],
                         ["script/test", "script/bundle"])
        self.assertTrue(runs["macos"][-1].startswith("actions/upload-artifact@"))


if __name__ == "__main__":
    unittest.main()
