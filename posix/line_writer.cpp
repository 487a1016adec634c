#include "posix/line_writer.h"

#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace frimbolate {

namespace {

#ifdef MSG_NOSIGNAL
constexpr int sendFlags = MSG_DONTWAIT | MSG_NOSIGNAL;
#else
constexpr int sendFlags = MSG_DONTWAIT;
#endif

/// A second open file description, not shared with the shell. Fails without /proc, and for a pipe
/// of another user.
int reopen(int file) {
    return ::open(("/proc/self/fd/" + std::to_string(file)).c_str(),
                  O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

bool mayBlock(int file, mode_t mode) {
    return S_ISFIFO(mode) || (S_ISCHR(mode) && ::isatty(file) == 1);
}

} // namespace

std::string droppedLinesNotice(std::size_t count) {
    return count == 1 ? "1 line of the log was dropped here"
                      : std::to_string(count) + " lines of the log were dropped here";
}

LineWriter::LineWriter(int file) : file_(file) {
    struct stat status {};
    if (::fstat(file, &status) != 0)
        return;
    if (S_ISSOCK(status.st_mode)) {
        kind_ = Kind::socket;
    } else if (mayBlock(file, status.st_mode)) {
        kind_ = Kind::shared;
        // Not for regular files: a second description would start at the first byte.
        reopened_ = FileDescriptor(reopen(file));
    }
}

LineWriter::~LineWriter() {
    if (finishLastLine())
        writeDroppedNotice();
}

void LineWriter::write(std::string_view text) {
    std::string line(text);
    line += '\n';
    if (!finishLastLine() || !writeDroppedNotice() || !writeOrKeep(line))
        ++dropped_;
}

bool LineWriter::finishLastLine() {
    if (unfinished_.empty())
        return true;
    const std::string rest = std::exchange(unfinished_, {});
    if (writeOrKeep(rest))
        return unfinished_.empty();
    if (errno == EAGAIN)
        unfinished_ = rest;
    else
        ++dropped_;
    return unfinished_.empty();
}

bool LineWriter::writeDroppedNotice() {
    if (dropped_ == 0)
        return true;
    if (!writeOrKeep(droppedLinesNotice(dropped_) + "\n"))
        return false;
    dropped_ = 0;
    return unfinished_.empty();
}

/// Writes the bytes; keeps the rest in unfinished_ if only some fit. Returns false, with errno set,
/// if none could be written.
bool LineWriter::writeOrKeep(std::string_view bytes) {
    const std::size_t all = bytes.size();
    while (!bytes.empty()) {
        const ssize_t written = writeSome(bytes);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            if (errno != EAGAIN || bytes.size() == all)
                return false;
            unfinished_ = bytes;
            return true;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

ssize_t LineWriter::writeSome(std::string_view bytes) const {
    if (kind_ == Kind::socket)
        return ::send(file_, bytes.data(), bytes.size(), sendFlags);
    if (reopened_)
        return ::write(reopened_.number(), bytes.data(), bytes.size());
    if (kind_ == Kind::plain)
        return ::write(file_, bytes.data(), bytes.size());
    // A writable pipe has room for PIPE_BUF bytes.
    pollfd state{file_, POLLOUT, 0};
    if (::poll(&state, 1, 0) == 0) {
        errno = EAGAIN;
        return -1;
    }
    return ::write(file_, bytes.data(), std::min<std::size_t>(bytes.size(), PIPE_BUF));
}

} // namespace frimbolate
