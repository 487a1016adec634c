// What is wrong with a form, all at once, before anything is written.
#pragma once

#include "core/agent_form.h"

#include <string>

namespace frimbolate {

struct ErrorReport {
    /// A line "• …\n" for each fault, in the order of the rules; empty when the form is sound.
    std::string text;
    bool name = false; ///< the row is at fault and its marker shown; likewise the three below
    bool action = false;
    bool target = false;
    bool schedule = false;

    bool passed() const { return text.empty(); }
};

/// Checks the form; never fails itself. Whether a target path or a script holds anything is not
/// checked, and the least interval binds the typed number of seconds alone.
ErrorReport validate(const AgentForm& form);

} // namespace frimbolate
