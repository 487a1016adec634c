// What the window shows beyond the form model itself, computed once per refresh.
#pragma once

#include "core/finding_hints.h"
#include "core/form_model.h"
#include "core/form_summary.h"
#include "core/validation.h"

#include <array>
#include <functional>
#include <string>

namespace frimbolate {

/// What one row of the form shows beside its controls.
struct RowPresentation {
    std::string hint;      ///< the line below the row
    std::string shortHint; ///< shown where the hint does not fit; empty without a shorter wording
    bool isFaulty = false; ///< the row's marker is shown and its fault still present
    bool warns = false;    ///< the hint reports an error or a finding
};

/// What the command sheet shows beside the command.
struct CommandPresentation {
    bool unloads = false;      ///< the command unloads the agent rather than loads it
    std::string agentFileName; ///< last component of the agent file's path
    std::string warning;       ///< why the command is not safe to paste; empty where it is
};

/// Every text and flag derived from the model. Views show it and derive nothing themselves.
struct FormPresentation {
    AgentForm record;
    Faults faults;
    std::array<RowPresentation, formRows.size()> rows; ///< by FormRow
    std::vector<FormFinding> findings;                 ///< shownFindings(), of rows and drawer
    /// The message of the time field about a typed text that is no time; empty where there is none.
    std::string unreadableTime;
    Summary summary;
    /// nextRunText(); empty without a clock, for an incomplete form, and where it cannot be known.
    std::string nextRun;
    CommandPresentation command;

    const RowPresentation& row(FormRow row) const { return rows[static_cast<std::size_t>(row)]; }
};

/// The text of the next run of a complete form.
std::string nextRunOf(const AgentForm& form, const WallClock& now, ClockFormat clock);

/// Tells what stands at an absolute path; see CheckContext::pathState.
using PathLookup = std::function<PathState(const std::string&)>;

/// Validates the form once and derives everything else from that list of faults.
/// \param lookUp for the findings about paths, a few calls each time; without it there are none
FormPresentation present(const FormModel& model, const TextStyle& style = {},
                         const PathLookup& lookUp = {});

} // namespace frimbolate
