// What comes before the application is made: Qt aborts or hangs where the process is not ready.
#pragma once

#include <chrono>
#include <optional>

namespace frimbolate {

/// Opens missing standard streams, lets failed writes fail, answers "--version" alone, and
/// makes sure that there is a display. Tells what is wrong in a line on standard error. Call it
/// first in main(), and fatalMessagesAbort() once the application is made.
/// \return the code with which the process is to end at once; nothing where it can go on
std::optional<int> prepareProcess(int argc, char* const argv[]);

/// How long another process may take to answer at the start: FRIMBOLATE_TIMEOUT_MS, else as usual.
std::chrono::milliseconds answerLimit(std::chrono::milliseconds usual);

} // namespace frimbolate
