// Writes to the system log over its socket.
//
// syslog() of the C library blocks while the log's daemon does not read; this never blocks.
#pragma once

#include "posix/file_descriptor.h"

#include <cstddef>
#include <ctime>
#include <string>

namespace frimbolate {

/// "<13>Nov  1 14:05:09 Frimbolate: text": a notice of a user's program. The month is English in
/// every locale.
/// \param time local time
std::string syslogRecord(const std::tm& time, const std::string& text);

class SyslogSocket {
  public:
    /// \param path of the datagram socket of the log's daemon; need not exist
    explicit SyslogSocket(std::string path) : path_(std::move(path)) {}

    /// Sends the text up to its first NUL as one record, without waiting. A record that cannot be
    /// sent at once is dropped and counted; the count is sent as soon as sending works again.
    void line(const std::string& text);

  private:
    bool send(const std::string& text);
    bool connect();

    std::string path_;
    FileDescriptor socket_{-1};
    std::size_t dropped_ = 0;
};

} // namespace frimbolate
