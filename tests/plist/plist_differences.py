"""Where our readers and Python's plistlib differ, each with the reason.

Ours read what the platform reads. plistlib reads well-formed XML, and leaves the rest to Python.
"""

import re
from typing import Callable, NamedTuple


class Case(NamedTuple):
    """A file, and what both made of it: whether it was read, and its value or the reason."""

    content: bytes
    ours_ok: bool
    ours: str
    theirs_ok: bool
    theirs: str


class Difference(NamedTuple):
    name: str
    why: str
    example: bytes  # which shows it
    applies: Callable[[Case], bool]


def we_read(error):
    """What plistlib rejects with such an exception."""
    return lambda case: case.ours_ok and not case.theirs_ok and re.match(error, case.theirs) is not None


def they_read(reason):
    """What we reject for such a reason."""
    return lambda case: not case.ours_ok and case.theirs_ok and re.search(reason, case.ours) is not None


def both_read(alike):
    """Values that are the same after a change of their texts."""
    return lambda case: case.ours_ok and case.theirs_ok and alike(case.ours) == alike(case.theirs)


def with_line_feeds(value):
    """The parts of a value with one line feed for line ends in a row, of which "&#13;" can be one. Sorted, since another line end in a key also changes the order of the keys."""
    value = re.sub(r"(\\u000d|\\u000a)+", "\n", value)
    return sorted(re.split("[{(,)}]", value))


def without_data(value):
    return [re.sub(r"(^|=)D[0-9a-f]*$", r"\1D", part) for part in with_line_feeds(value)]


def xml(body, head=b'<?xml version="1.0"?>'):
    return head + b"<plist>" + body + b"</plist>"


def binary(body, offsets, extra=b""):
    count = len(offsets)
    head = b"bplist00" + body
    table = bytes(offsets) + extra
    return head + table + bytes(6) + b"\x01\x01" + count.to_bytes(8, "big") + bytes(8) + len(head).to_bytes(8, "big")


DOCTYPE = b'<!DOCTYPE plist PUBLIC "a" "b">'

DIFFERENCES = (
    # What we read and plistlib does not
    Difference("other forms", "plistlib knows no old style, and only XML that begins with its header or <plist>",
               b"{a = b;}", we_read("InvalidFileException")),
    Difference("after the root", "the platform reads no further than the end of the root",
               b"<plist><true/></plist>a", we_read("ExpatError: junk after document element")),
    Difference("XML header", "the platform skips a processing instruction, whatever it holds",
               b"<?xml?><plist><true/></plist>", we_read("ExpatError: (XML|text) declaration|ExpatError: XML or text")),
    Difference("tags and characters", "the platform ends a tag at the first \">\", and keeps control characters",
               xml(b"<string>\x01</string>"), we_read("ExpatError: not well-formed")),
    Difference("numbered characters", "the platform keeps control characters",
               xml(b"<string>&#1;</string>"), we_read("ExpatError: reference to invalid character number")),
    Difference("document type", "the platform skips a document type up to the first \">\"",
               b"<?xml version='1.0'?><!DOCTYPE plist PUBLIC><plist><true/></plist>",
               we_read("ExpatError: (syntax error|illegal character.* in public id|unclosed token)")),
    Difference("other syntax of XML", "the platform's grammar is not that of XML",
               b"<plist a='' a=''><true/></plist>", we_read("ExpatError: ")),
    Difference("incomplete data", "the platform drops an incomplete group at the end",
               xml(b"<data>AAA</data>"), we_read("Error: (Incorrect padding|Invalid base64)")),
    Difference("integers", "the platform reads blanks before a number and after its sign, and a sign before 0x",
               xml(b"<integer>-0x1</integer>"), we_read("ValueError: invalid literal for int")),
    Difference("root in document type", "the platform ends a document type at the first \">\", and reads the root alone",
               b"<?xml version='1.0'?><!DOCTYPE a PUBLIC 'b' 'c><true/>'><plist><real>.</real></plist>",
               we_read("ValueError: could not convert string to float")),
    Difference("dates out of range", "the platform carries over months, days and times that no calendar has",
               xml(b"<date>2001-13-03T00:00:00Z</date>"),
               we_read("(ValueError: (month|day|hour|minute|second|year)|OverflowError)")),
    Difference("long years", "the platform reads years of any length, and negative ones",
               xml(b"<date>12001-01-01T00:00:00Z</date>"), we_read("AttributeError: 'NoneType'")),
    Difference("key as value", "the platform reads a <key> in place of a value as a text",
               xml(b"<dict><key>a</key><key>b</key></dict>"), we_read("ValueError: unexpected key")),
    Difference("key as root", "the platform reads a <key> in place of a value as a text",
               xml(b"<key>b</key>"), we_read("IndexError: list index out of range")),
    Difference("encoding beside a mark", "the platform goes by the byte order mark, whatever the header declares",
               b"\xef\xbb\xbf<?xml version='1.0' encoding='a'?><plist><true/></plist>",
               we_read("LookupError: unknown encoding")),
    # What plistlib reads and we do not
    Difference("table of offsets", "the platform wants it to end where the trailer begins",
               binary(b"\x09", [8], b"\x00"), they_read("its table of objects does not fit in")),
    Difference("offset beyond objects", "the platform wants every object before the table",
               binary(b"\x09", [8, 200]), they_read("an object lies outside of it")),
    Difference("object in the table", "the platform wants every object to end before the table",
               binary(b"\x52a", [8]), they_read("an object reaches beyond its end")),
    Difference("kind of counts", "the platform wants a count to be an integer; plistlib reads its size alone",
               binary(b"\x5f\x20\x01a", [8]), they_read("a count is no integer")),
    Difference("size of references", "the platform wants references of a byte at least, also where there are none",
               binary(b"\x09", [8]).replace(b"\x01\x01", b"\x01\x00", 1), they_read("its trailer is damaged")),
    Difference("short file", "the platform wants more than header and trailer",
               b"bplist00" + b"\x09\x09" + bytes(4) + b"\x01\x01" + bytes(7) + b"\x01" + bytes(15) + b"\x09",
               they_read("it is cut off")),
    Difference("null", "a value cannot be null, nor can XML", binary(b"\x00", [8]), they_read("a null")),
    Difference("wide integers", "a value holds 64 bits", binary(b"\x14" + b"\x01" * 16, [8]),
               they_read("needs more than 64 bits")),
    Difference("odd sizes", "the platform reads integers of 1 to 16 bytes",
               binary(b"\x15" + bytes(32), [8]), they_read("an integer has an unknown size")),
    Difference("text between elements", "the platform allows blanks only", xml(b"<dict>a</dict>"),
               they_read("text stands between the elements")),
    Difference("elements between", "the platform allows no section between elements",
               xml(b"<dict><![CDATA[a]]></dict>"), they_read("a declaration or section stands between")),
    Difference("elements in texts", "the platform allows no element or comment in a text, except sections",
               xml(b"<string>a<!--b--></string>"),
               they_read("a text holds another element|stands where </(key|string|real)> is expected")),
    Difference("elements in scalars", "the platform reads plain characters alone in numbers, dates, data and booleans",
               xml(b"<integer>1<!--b--></integer>"),
               they_read("stands where </(integer|date|data|true|false)> is expected")),
    Difference("several values", "the platform wants one value in <plist>", xml(b"<true/><true/>"),
               they_read("<plist> holds more than one value")),
    Difference("integers of Python", "plistlib reads what Python's int() reads", xml(b"<integer>1_0</integer>"),
               they_read("this <integer> cannot be read")),
    Difference("reals of Python", "plistlib reads what Python's float() reads", xml(b"<real>1_0</real>"),
               they_read("this <real> cannot be read")),
    Difference("parts of dates", "plistlib completes a date whose end is missing", xml(b"<date>2001-01-01Z</date>"),
               they_read("this <date> cannot be read")),
    Difference("empty plist", "plistlib reads nothing at all as None", xml(b""), they_read("<plist> is empty")),
    Difference("empty scalars", "the platform reads no scalar of an empty tag", xml(b"<data/>"),
               they_read("<(data|integer|real|date)> is empty")),
    Difference("unknown elements", "the platform rejects them", xml(b"<dict><x/></dict>"),
               they_read("is no known element")),
    Difference("unknown entities", "the platform knows the five of XML", b"<?xml version='1.0'?>" + DOCTYPE +
               b"<plist><string>&a;</string></plist>", they_read("it holds an unknown entity")),
    Difference("unknown encodings", "an encoding that is not known is not guessed",
               b"<?xml version='1.0' encoding='koi8-r'?><plist><true/></plist>",
               they_read("it declares an encoding that is not known")),
    Difference("declared types", "the platform reads no document type of its own",
               b"<?xml version='1.0'?><!DOCTYPE a [<!ELEMENT b ANY>]><plist><true/></plist>",
               they_read("it declares a document type of its own")),
    Difference("tag in document type", "the platform ends a document type at the first \">\"",
               b"<?xml version='1.0'?><!DOCTYPE a PUBLIC 'b' 'c>d'><plist><true/></plist>",
               they_read("stands where an element is expected")),
    Difference("key after an empty key", "plistlib takes an empty key for none",
               xml(b"<dict><key/><key>a</key><true/></dict>"), they_read("has no key|the last key of <dict>")),
    Difference("nesting", "our readers bound the stack at 512 levels", xml(b"<array>" * 513 + b"</array>" * 513),
               they_read("nested too deeply")),
    # What both read as another value
    Difference("line ends", "an XML reader makes line feeds of them; the platform does not",
               xml(b"<string>\r</string>"),
               lambda case: b"\r" in case.content and both_read(with_line_feeds)(case)),
    Difference("byte order mark in texts", "the platform drops one at the beginning of a text or key",
               xml("<string>\ufeffa</string>".encode()),
               lambda case: both_read(lambda value: None)(case) and
               b"\xef\xbb\xbf" in case.content[3:] and case.theirs.count("ufeff") > case.ours.count("ufeff")),
    Difference("other root", "the platform ends a document type at the first \">\", and reads the element behind it",
               b"<?xml version='1.0'?><!DOCTYPE a PUBLIC 'b' 'c><true/>'><plist><false/></plist>",
               lambda case: both_read(lambda value: None)(case) and
               re.search(rb"<!DOCTYPE[^>]*>\s*<(?!plist)", case.content) is not None),
    Difference("padding of data", "the platform skips what is no base64, and goes on after padding",
               xml(b"<data>AA==AAAA</data>"), both_read(without_data)),
)

# What both must read alike, or both reject.
ALIKE = (
    xml(b"<dict><key>a</key><true/><key>a</key><false/></dict>"),
    xml(b"<dict><key>b</key><true/><key>a</key><true/><key>b</key><false/></dict>"),
    xml(b"<array><integer>18446744073709551615</integer><integer>-9223372036854775808</integer></array>"),
    xml(b"<dict><key>a</key></dict>"),
    xml(b"<string>a]]&gt;&#65;&amp;</string>"),
    binary(b"\xa1\x00", [8]),
)
