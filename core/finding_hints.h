// Which findings the form shows, and in which words.
#pragma once

#include "core/form_findings.h"

namespace frimbolate {

/// The findings that matter, so no notes, in the order of formFindings(). Left out are those that
/// the form says in words of its own: the hints of the action row, of the drawer's paths and of
/// what needs root.
std::vector<FormFinding> shownFindings(const AgentForm& form, const Faults& faults,
                                       const CheckContext& context = {});

/// A wording for the title line of the drawer, "Working folder: a variable is not expanded"; empty
/// where there is none.
std::string shortWords(const FormFinding& finding);

/// The first of the drawer's findings about a key of the agent file; nullptr where there is none.
const FormFinding* drawerFindingOf(const std::vector<FormFinding>& findings, std::string_view key);

/// The first of the drawer; nullptr where there is none.
const FormFinding* firstOfDrawer(const std::vector<FormFinding>& findings);

} // namespace frimbolate
