// A form's schedule in plain English: "every Wednesday at 07:05".
#pragma once

#include "core/agent_form.h"

#include <string>

namespace frimbolate {

/// When the schedule alone launches the agent, without a capital letter or a full stop; empty where
/// it never does. A faulty day or interval is left out: "once a month at 07:05", "at an interval".
/// Times are 24-hour, and an interval is told in the largest whole unit up to hours. Whether the
/// chosen action uses the schedule at all is not asked.
std::string scheduleWords(const AgentForm& form);

} // namespace frimbolate
