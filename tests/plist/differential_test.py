#!/usr/bin/env python3
"""Our readers and Python's plistlib agree on any file, or differ in a way that has a name.

Usage: differential_test.py PLIST_DUMP [--count FILES] [--seed NUMBER] [--explore]

Random documents that plistlib writes, random documents that we write, and both with parts changed. Each
difference must be one of plist_differences.py, and each of those must occur. --explore prints those that
have no name, with the files.
"""

import argparse
import collections
import plistlib
import random
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from plist_differences import ALIKE, DIFFERENCES, Case
from random_plist import XML_TEXTS, Source  # found through the line above
from value_text import value_text

CASES = Path(__file__).resolve().parent / "cases"
# plistlib writes every line end of a text into XML as a line feed.
TEXTS = {plistlib.FMT_XML: XML_TEXTS, plistlib.FMT_BINARY: (*XML_TEXTS, "\r", "\x1b")}
TOKENS = (b"<dict>", b"</dict>", b"<key>a</key>", b"<array>", b"</array>", b"<string>", b"</string>", b"<true/>",
          b"<integer>7</integer>", b"<integer> 0x1F</integer>", b"<integer>+5</integer>", b"<integer>9 </integer>",
          b"<integer>1_0</integer>", b"<real>1e400</real>", b"<real> 1</real>", b"<real>1_0</real>",
          b"<date>2001-13-03T00:00:00Z</date>", b"<date>2001</date>", b"<data>AAA</data>", b"<data>A?AA</data>",
          b"<!--a-->", b"<![CDATA[a]]>", b"&lt;", b"&#65;", b"&a;", b"&", b"\r\n", b"\x01", b"\xe9", b"]]>",
          b"<x/>", b"a", b" ", b"<plist>", b"</plist>", b"<date/>", b"<data/>", b"<integer/>", b"\xef\xbb\xbf",
          b"<real>nan</real>", b"<true>a</true>", b"<key/>", b"<string/>", b"<?a?>", b" a='<'", b"-", b"0")


class Dump:
    """Our reader, in a process that answers one request after another."""

    def __init__(self, program):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, kind, content):
        self.process.stdin.write(kind + len(content).to_bytes(4, "big") + content)
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer.endswith(b"\n"):
            raise RuntimeError(f"our reader ended at {content!r}")
        return answer[:-1].decode("utf-8", "replace")

    def read(self, content):
        """Whether the file is read, and its value or the reason."""
        verdict, _, rest = self.ask(b"r", content).partition("\t")
        return verdict == "ok", rest

    def written(self, seed):
        return bytes.fromhex(self.ask(b"w", str(seed).encode()))

    def close(self):
        self.process.stdin.close()
        return self.process.wait()


def read_by_plistlib(content):
    """Whether the file is read, and its value or the exception."""
    try:
        return True, value_text(plistlib.loads(content))
    except Exception as error:  # plistlib lets through what its parts throw
        return False, f"{type(error).__name__}: {error}"


def changed(content, chance):
    """The file with one to three parts changed."""
    for _ in range(chance.randrange(1, 4)):
        place = chance.randrange(len(content) + 1)
        end = min(len(content), place + chance.randrange(1, 9))
        kind = chance.randrange(8)
        if kind == 0:
            content = content[:place] + bytes([chance.randrange(256)]) + content[place + 1:]
        elif kind == 1:
            content = content[:place] + content[end:]
        elif kind == 2:
            content = content[:end] + content[place:]
        elif kind == 3:
            content = content[:place]
        else:
            # Mostly where an element may stand.
            at = content.find(b"<", place)
            at = at if at >= 0 and kind < 7 else place
            content = content[:at] + chance.choice(TOKENS) + content[at:]
    return content


class Files:
    """The files to compare, the same for the same seed."""

    def __init__(self, dump, seed):
        self.dump = dump
        self.chance = random.Random(seed)
        self.cases = [path.read_bytes() for path in sorted(CASES.iterdir()) if path.stat().st_size < 4096]

    def next(self):
        number = self.chance.randrange(2**32)
        kind = self.chance.choice(tuple(TEXTS))
        source = self.chance.randrange(4)
        if source == 0:
            content = self.dump.written(number)
        elif source == 1:
            content = self.chance.choice(self.cases)
        else:
            content = plistlib.dumps(Source(number, TEXTS[kind]).dictionary(1), fmt=kind)
        return changed(content, self.chance) if self.chance.randrange(2) else content


def name_of(case):
    """The name of the difference, empty where both agree, None where it has none."""
    if case.ours_ok == case.theirs_ok and (not case.ours_ok or case.ours == case.theirs):
        return ""
    names = [row.name for row in DIFFERENCES if row.applies(case)]
    return names[0] if names else None


def compared(dump, content):
    return Case(content, *dump.read(content), *read_by_plistlib(content))


def test_examples(dump):
    """A line for each difference whose own example does not show it."""
    for row in DIFFERENCES:
        case = compared(dump, row.example)
        if name_of(case) != row.name:
            yield f"{row.name}: its example shows {name_of(case)!r}: {case}"


def test_alike(dump):
    """A line for each file of ALIKE that is not read alike."""
    for content in ALIKE:
        case = compared(dump, content)
        if name_of(case) != "":
            yield f"not alike: {case}"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("dump")
    parser.add_argument("--count", type=int, default=1500)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--explore", action="store_true")
    chosen = parser.parse_args()
    sys.setrecursionlimit(10000)  # for the deepest values
    dump = Dump(chosen.dump)
    failures = [*test_examples(dump), *test_alike(dump)]
    counts = collections.Counter(row.name for row in DIFFERENCES)
    agreed = read = 0
    files = Files(dump, chosen.seed)
    for number in range(chosen.count):
        case = compared(dump, files.next())
        name = name_of(case)
        agreed += name == ""
        read += name == "" and case.ours_ok
        if name is None:
            failures.append(f"file {number} of seed {chosen.seed}: {case}")
            if chosen.explore:
                print(failures[-1])
        elif name:
            counts[name] += 1
    if dump.close() != 0:
        failures.append("our reader did not end well")
    print(f"{'both read the same':34}{read:>8}\n{'both reject':34}{agreed - read:>8}")
    for row in DIFFERENCES:
        print(f"{row.name:34}{counts[row.name]:>8}  {row.why}")
    for failure in failures[:10]:
        print(failure)
    print(f"result\tcomparison with plistlib\t{chosen.count}\tfiles\t{len(failures)}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
