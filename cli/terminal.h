// The command line on the streams and the clock of this process.
#pragma once

#include "cli/command_line.h"

namespace frimbolate {

/// Runs the words of the command line.
/// \returns the exit code of the process
int runInTerminal(int argc, char* argv[]);

} // namespace frimbolate
