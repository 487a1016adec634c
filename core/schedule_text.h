// The schedule of a form in plain English, such as "every Wednesday at 07:05", and the message
// about an unreadable time.
#pragma once

#include "core/agent_form.h"
#include "core/time_of_day.h"
#include "core/validation.h"

#include <string>
#include <string_view>

namespace frimbolate {

/// When the schedule alone launches the agent, without a capital letter or a full stop; empty where
/// it never does. A faulty day or interval is left out: "once a month at 07:05", "at an interval".
/// An interval is given in the largest whole unit up to hours. Ignores whether the chosen action
/// uses the schedule.
/// \param faults those of this form
/// \param clock how times are shown
std::string scheduleText(const AgentForm& form, const Faults& faults,
                         ClockFormat clock = ClockFormat::TwentyFourHours);

/// The same with what becomes of a run that is missed while the machine is asleep: launchd makes
/// those of a calendar up once on waking, and drops those of an interval. Nothing is added to a
/// faulty schedule, nor to one that no clock starts.
std::string scheduleHint(const AgentForm& form, const Faults& faults, ClockFormat clock);

/// A shorter wording of scheduleHint() for a narrow line; empty where there is none.
std::string shortScheduleHint(const AgentForm& form, const Faults& faults, ClockFormat clock);
/// "1st", "22nd"; for numbers from 1 to 31.
std::string ordinal(int number);

/// What follows the time of a day that some months lack.
inline constexpr std::string_view afterMonthsEnd =
    ", in shorter months on a day after the month's end";
/// The last day that every month has.
inline constexpr int everyMonthHas = 28;

/// The message that a typed text is no time of day, and which time the form keeps. A long text is
/// shortened; one of blanks alone is not quoted.
std::string unreadableTimeWords(std::string_view typed, TimeOfDay kept, ClockFormat clock);

} // namespace frimbolate
