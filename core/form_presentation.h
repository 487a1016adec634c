// What the window shows beyond the form model itself, made once for each refresh.
#pragma once

#include "core/form_model.h"
#include "core/form_summary.h"
#include "core/validation.h"

#include <array>
#include <string>

namespace frimbolate {

/// What is shown for one row of the form beside its controls.
struct RowPresentation {
    std::string hint;      ///< the line below the row
    bool isFaulty = false; ///< the row's marker is shown and the fault not mended yet
    bool warns = false;    ///< the hint tells of something wrong
};

/// What is shown on the command sheet beside the command.
struct CommandPresentation {
    bool unloads = false;      ///< the command unloads the agent rather than loads it
    std::string agentFileName; ///< last component of the agent file's path
    std::string warning;       ///< why the command is not safe to paste; empty where it is
};

/// Every text, mark and flag that follows from the model. Views show it and derive nothing.
struct FormPresentation {
    AgentForm record;
    Faults faults;
    std::array<RowPresentation, formRows.size()> rows; ///< by FormRow
    /// That a typed time was not understood, for the time field itself; empty where it was.
    std::string unreadableTime;
    Summary summary;
    CommandPresentation command;

    const RowPresentation& row(FormRow row) const { return rows[static_cast<std::size_t>(row)]; }
};

/// Validates the form once, and renders all else from that one list of faults.
FormPresentation present(const FormModel& model, const TextStyle& style = {});

} // namespace frimbolate
