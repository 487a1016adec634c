// The form in plain English: what launchd will do with it, and a line under each of its rows.
//
// The sentences speak of the form alone. Whether an agent is saved, loaded or switched on cannot be
// known, so no sentence says anything about it.
#pragma once

#include "core/agent_form.h"
#include "core/time_of_day.h"
#include "core/validation.h"

#include <string>
#include <string_view>

namespace frimbolate {

/// One sentence: when launchd runs what, or else what is still missing or wrong.
/// \param home the person's home folder, shown as "~"; without it paths stand in full
/// \param clock how times are shown
std::string planSentence(const AgentForm& form, std::string_view home = {},
                         ClockFormat clock = ClockFormat::TwentyFourHours);

/// Whether that sentence tells a plan: nothing is missing or wrong, and something starts the agent.
/// Validation asks for less; an empty target path passes it.
bool isPlanComplete(const AgentForm& form);

/// The line under each row of the form: plain words without a full stop or dots at their end, for
/// some of them end with a path or a file name.
struct RowHints {
    std::string name;     ///< the file name that will be proposed
    std::string target;   ///< the chosen path or the typed script
    std::string action;   ///< what the chosen condition means
    std::string schedule; ///< "Every Monday at 07:30"
};

/// The hints of the form as it stands. A row whose marker is shown says its fault instead, until
/// the fault is mended: it is the form that is judged here, and of `markers` only the four flags
/// count.
RowHints rowHints(const AgentForm& form, const ErrorReport& markers, std::string_view home = {},
                  ClockFormat clock = ClockFormat::TwentyFourHours);

} // namespace frimbolate
