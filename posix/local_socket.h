// A connection to a socket of this machine, made without waiting. Knows no Qt.
#pragma once

#include "posix/file_descriptor.h"

#include <string>

namespace frimbolate {

enum class ConnectOutcome {
    done,
    refused,   ///< there is no listener, or it may not be connected to
    queueFull, ///< the listener accepts no more connections at the moment
};

struct LocalConnection {
    ConnectOutcome outcome;
    FileDescriptor socket; ///< in non-blocking mode; none unless done
};

/// \param path of a stream socket; one that begins with NUL is an abstract name of Linux
LocalConnection connectToLocalSocket(const std::string& path);

} // namespace frimbolate
