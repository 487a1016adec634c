// The system log, and beside it the standard error, for a start from a terminal.
// Knows no Qt, and never waits for either.
#pragma once

#include "platform/services.h"
#include "posix/line_writer.h"
#include "posix/syslog_socket.h"

#include <syslog.h>
#include <unistd.h>

namespace frimbolate {

class SystemLog : public Log {
  public:
    /// \param file descriptor that gets each entry as a line of its own
    /// \param socket path of the one on which the system log's daemon listens
    explicit SystemLog(int file = STDERR_FILENO, std::string socket = _PATH_LOG)
        : terminal_(file), syslog_(std::move(socket)) {}
    void line(const std::string& text) override;

  private:
    LineWriter terminal_;
    SyslogSocket syslog_;
};

} // namespace frimbolate
