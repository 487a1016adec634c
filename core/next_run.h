// The next run of a whole agent, and its text.
//
// Nothing is claimed where the next run cannot be known: for an agent that is off or kept running,
// for an interval, whose start is unknown, and for one without a calendar.
#pragma once

#include "core/calendar_runs.h"
#include "core/time_of_day.h"
#include "core/value.h"
#include "core/wall_clock.h"

#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

/// The next time that matches, with the changes of clocks: a time that comes twice counts the first
/// time only, a skipped one comes as much later as the clocks jump.
std::optional<LocalMinute> nextShownRun(const CalendarInterval& interval, const WallClock& clock);

/// The dictionaries of a StartCalendarInterval, which is one of them or an array. One that launchd
/// does not accept is left out: it holds a value that is no integer, or one out of its range.
std::vector<CalendarInterval> calendarIntervals(const Value& startCalendarInterval);

/// The next run of an agent by its calendars.
/// \param agent the keys of an agent; those that start nothing may be missing
std::optional<LocalMinute> nextRun(const Dictionary& agent, const WallClock& clock);

/// Whether an agent is on: by the key of the program's switch, and by that of launchd.
bool isAgentOn(const Dictionary& agent);

/// "Next: Wednesday 25 November, 07:05", with the year where it is not that of now.
std::string nextRunText(LocalMinute run, LocalMinute now, ClockFormat clock);

/// The same for a narrow column: "Today 07:05", within a week "Wed 07:05", then "25 Nov 07:05", and
/// "25 Nov 2027" from eleven months on. The wider clock of twelve hours shows "07:05 AM" for today
/// and no time after a week.
std::string shortRunText(LocalMinute run, LocalMinute now, ClockFormat clock);

} // namespace frimbolate
