// Connects to a local socket without waiting.
#pragma once

#include "posix/file_descriptor.h"

#include <string>

namespace frimbolate {

enum class ConnectOutcome {
    done,
    refused,   ///< there is no listener, or connecting is not permitted
    queueFull, ///< the listener accepts no further connection at the moment
};

struct LocalConnection {
    ConnectOutcome outcome;
    FileDescriptor socket; ///< in non-blocking mode; empty unless done
};

/// \param path of a stream socket; a leading NUL denotes an abstract name of Linux
LocalConnection connectToLocalSocket(const std::string& path);

} // namespace frimbolate
