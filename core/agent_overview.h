// One property list as the list of agents shows it.
#pragma once

#include "core/agent_checks.h"
#include "core/form_summary.h"
#include "core/value.h"
#include "core/wall_clock.h"

#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

/// What a property list is to the program.
enum class AgentKind { Own, EarlierVersion, OtherProgram, Unreadable };

struct AgentOverview {
    std::string path; ///< as it was given
    /// Of an own agent the name that the form shows; of another one its label, or its file name
    /// where it has none.
    std::string name;
    AgentKind kind = AgentKind::Unreadable;
    std::optional<bool> isOn; ///< nothing where the file is unreadable
    /// What launchd does with the agent, in the words of summary(); of an unreadable file the
    /// reason, "Cannot be read: …."
    std::string sentence;
    /// By the wall clock; nothing where the agent is off or not timed, or it cannot be known.
    std::optional<LocalMinute> nextRun;
    std::vector<Finding> findings;
};

/// \param agent   content of the file; anything but a dictionary is unreadable
/// \param path    decides the kind, as agentOrigin() does
/// \param context for the checks
AgentOverview agentOverview(const Value& agent, const std::string& path,
                            const CheckContext& context, const TextStyle& style);

/// \param reason a clause such as "it is not a regular file"
AgentOverview unreadableOverview(const std::string& path, const std::string& reason);

} // namespace frimbolate
