// The words of the command line, each as a function that prints and returns an ExitCode.
#pragma once

#include "cli/command_line.h"
#include "cli/new_agent.h"

#include <string>
#include <vector>

namespace frimbolate {

using Paths = std::vector<std::string>;

/// Prints findings and errors on the standard error, or all of it as JSON on the standard output.
int checkCommand(const Paths& paths, bool json, const CommandLineServices& services);

int explainCommand(const Paths& paths, bool json, const CommandLineServices& services);

/// \param folder empty for the user's LaunchAgents folder
int listCommand(const std::string& folder, bool json, const CommandLineServices& services);

/// Writes the switch of each file that has the other state. The standard input is written to the
/// standard output.
int switchCommand(bool enable, const Paths& paths, bool json, const CommandLineServices& services);

/// How a command line for launchctl is composed.
struct LaunchctlCommand {
    bool unloads = false;
    bool isModern = false;
};
int launchctlCommand(LaunchctlCommand command, const std::string& path, bool json,
                     const CommandLineServices& services);

/// Where `new` writes to.
struct NewAgentOutput {
    std::string path;      ///< "-" for the standard output
    bool replaces = false; ///< an existing file
};
int newCommand(const NewAgentOptions& options, const NewAgentOutput& output, bool json,
               const CommandLineServices& services);

} // namespace frimbolate
