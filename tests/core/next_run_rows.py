"""Computes the next run of calendars minute by minute, independently of the program.

It knows no shortcut: it walks over the minutes of the zone's clocks and asks of each whether a
calendar wants it. The facts about launchd are those of calendar.tsv: a day that the month lacks is
counted on from the month's end, as long as the search began within that month or before it; a
weekday without a day takes no notice of the month; with both, either one starts the agent; and one
minute is added to the time of the search without a carry, so that a calendar without a minute also
matches the minute after the last one of its hour.

    next_run_rows.py                  checks the rows of next_runs.tsv
    next_run_rows.py make SEED COUNT  prints new rows

A row of next_runs.tsv: zone, now in UTC, calendars "month,day,weekday,hour,minute" separated by
";" with "-" for a missing key, and the time that the clock shows at the next run, or "never". A row
of zones.tsv: zone, minutes ahead of UTC, then each change: its moment in UTC and the new minutes.
"""

import random
import sys
from calendar import monthrange
from datetime import datetime, timedelta
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
MINUTE = timedelta(minutes=1)
BEGIN, END = datetime(2025, 12, 31), datetime(2029, 2, 1)
LONGEST_JUMP = timedelta(hours=2)
RANGES = ((1, 12), (1, 31), (0, 7), (0, 23), (0, 59))


def moment_of(text):
    return datetime.fromisoformat(text)


class Zone:
    """The minutes that the clocks of a zone show, from BEGIN to END."""

    def __init__(self, first, changes):
        self.changes = [(BEGIN, first), *changes]

    def offset(self, moment):
        return timedelta(minutes=[ahead for at, ahead in self.changes if at <= moment][-1])

    def shown(self, moment):
        return moment + self.offset(moment)

    def moment(self, wall):
        """The first moment at which the clocks show a time, else when it is due after a jump."""
        near = wall - self.offset(wall) - LONGEST_JUMP
        previous = self.shown(near - MINUTE)
        while True:
            shown = self.shown(near)
            if shown == wall:
                return near
            if previous < wall < shown:  # a jump: as much later as the time is in the gap
                return near + (wall - previous - MINUTE)
            previous = shown
            near += MINUTE


def read_zones():
    zones = {}
    for line in (FOLDER / "zones.tsv").read_text(encoding="utf-8").splitlines():
        name, first, *changes = line.split("\t")
        pairs = zip(changes[::2], changes[1::2])
        zones[name] = Zone(int(first), [(moment_of(at), int(ahead)) for at, ahead in pairs])
    return zones


def fits(wanted, number):
    return wanted is None or wanted == number


def date_fits(month, day, date, start):
    """Whether launchd's search by month and day, begun at a time, finds a date."""
    if fits(month, date.month) and fits(day, date.day):
        return True
    before = date.replace(day=1) - timedelta(days=1)  # the last day of the month before
    length = monthrange(before.year, before.month)[1]
    return (
        day is not None
        and fits(month, before.month)
        and day - length == date.day
        and start.date() <= before.date()
    )


def day_fits(calendar, date, start):
    month, day, weekday, _, _ = calendar
    if weekday is None:
        return date_fits(month, day, date, start)
    is_weekday = (date.weekday() + 1) % 7 == weekday % 7
    return is_weekday or (day is not None and date_fits(month, day, date, start))


def matches(calendar, wall, start):
    _, _, _, hour, minute = calendar
    if minute is None and start.minute == 59 and wall == start + MINUTE:
        if fits(hour, start.hour) and day_fits(calendar, start, start):
            return True
    if not (fits(hour, wall.hour) and fits(minute, wall.minute)):
        return False
    return day_fits(calendar, wall, start)


def is_valid(calendar):
    return all(
        value is None or least <= value <= greatest
        for value, (least, greatest) in zip(calendar, RANGES)
    )


def next_run(zone, now, calendar):
    """The moment of the next run, or None."""
    if not is_valid(calendar):
        return None
    # Where the clocks were put back, the search began at the latest time that they have shown.
    start = max(zone.shown(now - minutes * MINUTE) for minutes in range(120))
    wall = zone.shown(now) - LONGEST_JUMP
    while wall < END:
        wall += MINUTE
        if matches(calendar, wall, start) and zone.moment(wall) > now:
            return zone.moment(wall)
    raise ValueError("no run within the years of the zones")


def answer(zone, now, calendars):
    moments = [run for run in (next_run(zone, now, one) for one in calendars) if run]
    return zone.shown(min(moments)).strftime("%Y-%m-%dT%H:%M") if moments else "never"


def parsed(text):
    return [
        tuple(None if value == "-" else int(value) for value in calendar.split(","))
        for calendar in text.split(";")
    ]


def random_calendar(rng, hours):
    month, day, weekday, hour, minute = "-", "-", "-", "-", "-"
    kind = rng.random()
    if kind < 0.25:
        day = rng.choice((1, 15, 28, 29, 30, 31))
    elif kind < 0.45:
        weekday = rng.randint(0, 7)
    elif kind < 0.55:
        day, weekday = rng.randint(1, 31), rng.randint(0, 7)
    if rng.random() < 0.15:
        month = rng.randint(1, 12)
    if rng.random() < 0.85:
        hour = rng.choice(hours)
    if rng.random() < 0.85:
        minute = rng.choice((0, 5, 15, 30, 45, 59))
    if rng.random() < 0.04:
        minute = rng.choice((60, -1, 75))
    return f"{month},{day},{weekday},{hour},{minute}"


def random_rows(seed, count):
    """Rows about the changes of the clocks: just before one, within it, and just after it."""
    rng = random.Random(seed)
    zones = read_zones()
    for _ in range(count):
        name = rng.choice(list(zones))
        zone = zones[name]
        change = rng.choice(zone.changes[1:5] or [(datetime(2026, 11, 21, 4), 0)])[0]
        nearness = rng.choice((1, 3, 3, 30, 24 * 20))
        now = change + rng.randint(-60 * nearness, 60 * nearness) * MINUTE
        hours = [(zone.shown(change).hour + shift) % 24 for shift in (-3, -2, -1, 0, 1)] + [9, 23]
        calendars = ";".join(
            random_calendar(rng, hours) for _ in range(rng.choice((1, 1, 1, 2, 3, 5)))
        )
        found = answer(zone, now, parsed(calendars))
        yield f"{name}\t{now:%Y-%m-%dT%H:%M}\t{calendars}\t{found}"


def faults():
    zones = read_zones()
    for line in (FOLDER / "next_runs.tsv").read_text(encoding="utf-8").splitlines():
        name, now, calendars, expected = line.split("\t")
        found = answer(zones[name], moment_of(now), parsed(calendars))
        if found != expected:
            yield f"{line}: found {found}"


if __name__ == "__main__":
    if sys.argv[1:2] == ["make"]:
        print(*random_rows(int(sys.argv[2]), int(sys.argv[3])), sep="\n")
    else:
        wrong = list(faults())
        print(*wrong, sep="\n")
        sys.exit(1 if wrong else 0)
