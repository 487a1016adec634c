// What launchd would refuse, ignore or do otherwise than meant with the agent in the form.
#pragma once

#include "core/agent_checks.h"
#include "core/agent_form.h"
#include "core/validation.h"

#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

struct FormFinding {
    /// The row of the form that the value is from; nothing for the drawer.
    std::optional<FormRow> row;
    /// What is wrong, in the words of the form: "The working folder begins with …". One or more
    /// clauses without a final full stop.
    std::string text;
    Finding finding;       ///< the same, for the agent file
    std::string name = {}; ///< what the text begins with: "The working folder"
    friend bool operator==(const FormFinding&, const FormFinding&) = default;
};

/// The findings of the agent file that the form would be saved as, in the order of checkAgent().
///
/// A row with a fault has none: what is missing there is said by the fault. Neither has a path that
/// is not chosen yet.
/// \param faults those of this form
/// \param context without a file: its path, mode and owner are not looked at
std::vector<FormFinding> formFindings(const AgentForm& form, const Faults& faults,
                                      const CheckContext& context = {});

/// The most severe finding of a row, the first of several; nullptr where there is none.
const FormFinding* findingOfRow(const std::vector<FormFinding>& findings,
                                std::optional<FormRow> row);

} // namespace frimbolate
