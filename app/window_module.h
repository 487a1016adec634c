// Starts the window. Everything that needs Qt is a module of its own, so that a word in a terminal
// does not load it: the libraries take longer to load than the checks of a file.
#pragma once

namespace frimbolate {

/// \returns the exit code of the process; 1 where the module is missing
int runWindow(int argc, char* argv[]);

} // namespace frimbolate
