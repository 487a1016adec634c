// A form's schedule in plain English: "every Wednesday at 07:05", and what is wrong with a time.
#pragma once

#include "core/agent_form.h"
#include "core/time_of_day.h"
#include "core/validation.h"

#include <string>
#include <string_view>

namespace frimbolate {

/// When the schedule alone launches the agent, without a capital letter or a full stop; empty where
/// it never does. A faulty day or interval is left out: "once a month at 07:05", "at an interval".
/// An interval is told in the largest whole unit up to hours. Whether the chosen action uses the
/// schedule at all is not asked.
/// \param faults those of this form
/// \param clock how times are shown
std::string scheduleText(const AgentForm& form, const Faults& faults,
                         ClockFormat clock = ClockFormat::TwentyFourHours);

/// That a typed text is no time of day, and which time stands instead. A long text is cut short,
/// and one of blanks alone is told without quotes.
std::string unreadableTimeWords(std::string_view typed, TimeOfDay kept, ClockFormat clock);

} // namespace frimbolate
