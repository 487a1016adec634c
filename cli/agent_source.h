// Reads the agents that a command names: files, folders, and "-" for the standard input.
#pragma once

#include "cli/command_line.h"
#include "core/agent_overview.h"

#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

/// One property list that a command looks at.
struct AgentSource {
    AgentOverview overview; ///< its findings include a damaged content
    /// By finding: its line in the file, where that is known.
    std::vector<std::optional<std::size_t>> lines;
    Dictionary agent;    ///< empty where it could not be read
    std::string program; ///< what it runs, with its arguments; empty where it names nothing
    std::string error;   ///< why it could not be looked at; empty otherwise
    /// What the command made of it: a command line or the content of a file.
    std::string result;
};

/// The name by which a user means the standard input.
inline constexpr std::string_view standardInput = "-";

AgentSource readAgent(const std::string& path, const CommandLineServices& services);

/// The files of the arguments: each folder is replaced by its property lists, sorted. A folder that
/// cannot be listed stays, so that reading it fails.
std::vector<std::string> filesOf(const std::vector<std::string>& paths);

/// The overview of an agent that was just made, as if it stood at the path.
AgentSource sourceOf(const Dictionary& agent, const std::string& path,
                     const CommandLineServices& services);

} // namespace frimbolate
