// The options of the word "new": a form without a window.
#pragma once

#include "core/agent_form.h"
#include "core/validation.h"

#include <optional>
#include <string>

namespace frimbolate {

/// The options as given; nothing for one that is not.
struct NewAgentOptions {
    using Text = std::optional<std::string>;
    Text name, run, script;
    Text at;    ///< "07:05"
    Text on;    ///< "wed", "day", or a day of the month
    Text every; ///< "30s", "15m", "2h"
    Text watch, queue;
    bool atLoad = false, onMount = false, keepRunning = false;
    Text nice, standardIn, standardOut, standardError, workingDirectory, rootDirectory;
    bool lowPriority = false, globbing = false, allowSuccessfulExit = false;
    bool alsoAtLoad = false, alsoOnMount = false;
    Text alsoWatch;
};

/// \throws NamedError with the option as its name for an unreadable time or number; a faulty
///         interval, day or name is left to validate()
AgentForm formOf(const NewAgentOptions& options);

/// The option that a fault of validate() concerns, "--name".
std::string_view optionOf(Fault fault);

} // namespace frimbolate
