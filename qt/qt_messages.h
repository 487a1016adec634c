// Where the toolkit's own warnings go.
#pragma once

namespace frimbolate {

/// Sends Qt's messages to standard error as the log's lines go there: none of them waits for a
/// reader. Call it before the application is made; it holds until the process ends.
void routeQtMessages();

/// A fatal message ends the process with this code; before the call, and after
/// fatalMessagesAbort(), it aborts, which leaves a core dump. Without a usable display making the
/// application is fatal.
void fatalMessagesExit(int code);
void fatalMessagesAbort();

} // namespace frimbolate
