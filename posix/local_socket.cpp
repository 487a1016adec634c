#include "posix/local_socket.h"

#include <cstddef>
#include <sys/socket.h>
#include <sys/un.h>

namespace frimbolate {

LocalConnection connectToLocalSocket(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return {ConnectOutcome::refused, FileDescriptor(-1)};
    path.copy(address.sun_path, path.size());
    // An abstract name ends with the address, a path with its NUL.
    const bool isAbstract = path.front() == '\0';
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() +
                                             (isAbstract ? 0 : 1));
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), size) == 0)
        return {ConnectOutcome::done, std::move(socket)};
    const bool isCrowded = errno == EAGAIN || errno == EINPROGRESS;
    return {isCrowded ? ConnectOutcome::queueFull : ConnectOutcome::refused, FileDescriptor(-1)};
}

} // namespace frimbolate
