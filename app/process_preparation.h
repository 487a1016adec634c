// What comes before the application is made: Qt aborts or hangs where the process is not ready.
#pragma once

#include <QProcessEnvironment>

#include <chrono>
#include <optional>

namespace frimbolate {

struct PreparedProcess {
    /// With which the process is to end at once; nothing where it can go on.
    std::optional<int> exitCode;
    /// The environment as the process got it, for the programs that it starts.
    QProcessEnvironment environment;
};

/// Opens missing standard streams, lets failed writes fail, makes sure that there is a display, and
/// keeps Qt away from message buses that do not answer. Tells what is wrong in a line on standard
/// error. Call it first in main(), and fatalMessagesAbort() once the application is made.
PreparedProcess prepareProcess(int argc, char* const argv[]);

/// How long another process may take to answer at the start: FRIMBOLATE_TIMEOUT_MS, else as usual.
std::chrono::milliseconds answerLimit(std::chrono::milliseconds usual);

} // namespace frimbolate
