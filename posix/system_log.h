// Logs to the system log and, for a start from a terminal, to standard error. Blocks on neither.
#pragma once

#include "platform/services.h"
#include "posix/line_writer.h"
#include "posix/syslog_socket.h"

#include <syslog.h>
#include <unistd.h>

namespace frimbolate {

class SystemLog : public Log {
  public:
    /// \param file descriptor that gets each entry as a line; must stay open as long as this exists
    /// \param socket path of the socket of the system log's daemon
    explicit SystemLog(int file = STDERR_FILENO, std::string socket = _PATH_LOG)
        : terminal_(file), syslog_(std::move(socket)) {}
    /// Control characters, but for line ends and tabs, are masked.
    void line(const std::string& text) override;

  private:
    LineWriter terminal_;
    SyslogSocket syslog_;
};

} // namespace frimbolate
