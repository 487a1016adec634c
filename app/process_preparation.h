// Prepares the process before the application is constructed; Qt would abort or hang otherwise.
#pragma once

#include <QProcessEnvironment>

#include <chrono>
#include <optional>

namespace frimbolate {

struct PreparedProcess {
    /// The code with which the process must exit at once; nothing where it can continue.
    std::optional<int> exitCode;
    /// The original environment, for the programs that this one starts.
    QProcessEnvironment environment;
};

/// Opens missing standard streams, makes failed writes return errors, checks that there is a
/// display, and hides unresponsive message buses from Qt. Prints each problem in a line on standard
/// error. Call it first in main(), and fatalMessagesAbort() once the application is constructed.
PreparedProcess prepareProcess(int argc, char* const argv[]);

/// The time limit for an answer of another process at the start: FRIMBOLATE_TIMEOUT_MS if set, else
/// the usual one.
std::chrono::milliseconds answerLimit(std::chrono::milliseconds usual);

} // namespace frimbolate
