#include "posix/syslog_socket.h"

#include "posix/line_writer.h"

#include <array>
#include <cstdio>
#include <sys/socket.h>
#include <sys/un.h>
#include <syslog.h>

namespace frimbolate {

std::string syslogRecord(const std::tm& time, const std::string& text) {
    constexpr std::array months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::array<char, 64> head{};
    std::snprintf(head.data(), head.size(),
                  "<%d>%s %2d %02d:%02d:%02d Frimbolate: ", LOG_USER | LOG_NOTICE,
                  months.at(static_cast<std::size_t>(time.tm_mon)), time.tm_mday, time.tm_hour,
                  time.tm_min, time.tm_sec);
    return head.data() + text.substr(0, text.find('\0'));
}

void SyslogSocket::line(const std::string& text) {
    if (dropped_ > 0 && send(droppedLinesNotice(dropped_)))
        dropped_ = 0;
    if (dropped_ > 0 || !send(text))
        ++dropped_;
}

bool SyslogSocket::send(const std::string& text) {
    const std::time_t now = std::time(nullptr);
    std::tm time{};
    ::localtime_r(&now, &time);
    const std::string record = syslogRecord(time, text);
    const auto sent = [&] {
        return socket_ && ::send(socket_.number(), record.data(), record.size(),
                                 MSG_DONTWAIT | MSG_NOSIGNAL) >= 0;
    };
    // A restarted daemon has replaced the socket of this connection.
    return sent() || (connect() && sent());
}

bool SyslogSocket::connect() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof address.sun_path)
        return false;
    path_.copy(address.sun_path, path_.size());
    FileDescriptor fresh(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!fresh ||
        ::connect(fresh.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return false;
    socket_ = std::move(fresh);
    return true;
}

} // namespace frimbolate
