// The rules of the program in a terminal: the words that may follow its name, such as "check".
//
// Needs no display and no application object. Everything that it prints goes through the streams of
// CommandLineServices, so that a test runs it in its own process.
#pragma once

#include "core/wall_clock.h"
#include "posix/local_agent_folder.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// What the process returns to the shell.
namespace ExitCode {
enum : int {
    Nothing = 0,  ///< done; nothing found
    Findings = 1, ///< something is wrong with an agent, or with the agent that was asked for
    Failed = 2    ///< could not look, could not write, or called wrongly
};
}

struct CommandLineServices {
    std::istream& in; ///< the file "-"
    std::ostream& out;
    std::ostream& err;
    WallClock now;
    std::string home; ///< shown as "~"; without a final "/"
    bool colorsOut = false;
    bool colorsErr = false;
    /// What stands at the paths of an agent; asked of this computer by default.
    std::function<PathState(const std::string&)> pathState = localPathState;
};

/// Whether the program's first argument is for the command line: any that is no option.
bool isCommandWord(std::string_view argument);

/// \param arguments those after the name of the program
/// \returns an ExitCode
int runCommandLine(const std::vector<std::string>& arguments, const CommandLineServices& services);

} // namespace frimbolate
