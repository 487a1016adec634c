// The form in plain English: what launchd will do with it, and a line under each of its rows.
//
// The sentences speak of the form alone. Whether an agent is saved, loaded or switched on cannot be
// known, so no sentence says anything about it.
#pragma once

#include "core/agent_form.h"
#include "core/time_of_day.h"
#include "core/validation.h"

#include <array>
#include <string>
#include <string_view>

namespace frimbolate {

/// What texts about a form depend on beside the form.
struct TextStyle {
    std::string_view home =
        {}; ///< the user's home folder, shown as "~"; without it paths stand whole
    ClockFormat clock = ClockFormat::TwentyFourHours;
};

/// One sentence: when launchd runs what, or else what is still missing or wrong.
struct Summary {
    std::string sentence;
    /// Nothing is missing or wrong, and something starts the agent. Validation asks for less: an
    /// empty target path passes it.
    bool isComplete = false;
};

/// \param faults those of this form
Summary summary(const AgentForm& form, const Faults& faults, const TextStyle& style = {});

/// The line under each row of the form: plain words without a full stop or dots at their end, for
/// some of them end with a path or a file name.
struct RowHints {
    std::string name;     ///< the file name that will be proposed
    std::string target;   ///< the chosen path or the typed script
    std::string action;   ///< what the chosen condition means
    std::string schedule; ///< "Every Monday at 07:30"
};

/// A flag per row, by FormRow.
using RowFlags = std::array<bool, formRows.size()>;

/// The hints of the form as it stands. A marked row says its fault instead, until it is mended.
/// \param faults those of this form
/// \param marked the rows whose error marker is shown
RowHints rowHints(const AgentForm& form, const Faults& faults, const RowFlags& marked = {},
                  const TextStyle& style = {});

} // namespace frimbolate
