// The form in plain English: what launchd will do with it, and a line below each of its rows.
//
// The sentences describe the form alone. Whether an agent is saved, loaded or switched on cannot be
// known, so no sentence mentions it.
#pragma once

#include "core/agent_form.h"
#include "core/time_of_day.h"
#include "core/validation.h"
#include "core/wall_clock.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// What the texts about a form depend on beside the form.
struct TextStyle {
    /// The user's home folder, shown as "~"; empty shows whole paths. The characters must outlive
    /// the style.
    std::string_view home = {};
    ClockFormat clock = ClockFormat::TwentyFourHours;
    /// The clock by which the next run is computed; without it no next run is claimed.
    std::optional<WallClock> now = {};
};

/// One sentence: when launchd runs what, or what is still missing or wrong.
struct Summary {
    std::string sentence;
    /// Nothing is missing or wrong, and something starts the agent. Stricter than validation, which
    /// accepts an empty target path.
    bool isComplete = false;
};

/// \param faults those of this form
Summary summary(const AgentForm& form, const Faults& faults, const TextStyle& style = {});

/// The line below each row of the form. Without a full stop, since some end with a path or a file
/// name. Where a hint may be too wide for its line, a shorter wording is given for the line.
struct RowHints {
    std::string name;     ///< the file name that will be proposed
    std::string target;   ///< the chosen path or the typed script
    std::string action;   ///< what the chosen condition means
    std::string schedule; ///< "Every Monday at 07:30"

    std::string shortTarget, shortAction, shortSchedule; ///< empty without a shorter wording
    bool targetWarns = false; ///< the target's hint says why launchd could not start the target
    bool actionWarns = false; ///< the action's hint says that nothing starts the agent
};

/// A flag per row, by FormRow.
using RowFlags = std::array<bool, formRows.size()>;

/// The hints of the form. A marked row with a fault shows the text of the fault instead.
/// \param faults those of this form
/// \param marked the rows whose error marker is shown
RowHints rowHints(const AgentForm& form, const Faults& faults, const RowFlags& marked = {},
                  const TextStyle& style = {});

} // namespace frimbolate
