// The destination of Qt's own messages.
#pragma once

namespace frimbolate {

/// Sends Qt's messages to standard error, like the lines of the log, without ever blocking. Call it
/// before the application is constructed; it stays in effect until the process ends.
void routeQtMessages();

/// Makes a fatal message end the process with this code. Constructing the application without a
/// usable display is fatal.
void fatalMessagesExit(int code);
/// Makes a fatal message abort, with a core dump, which is also the initial state.
void fatalMessagesAbort();

} // namespace frimbolate
