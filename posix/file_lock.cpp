#include "posix/file_lock.h"

#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace frimbolate {

FileLock::FileLock(const std::string& path, const Patience& patience) {
    for (int i = 0; i < patience.tries && state_ == State::busy; ++i) {
        if (i > 0)
            patience.pause();
        // Opened at each try: another process may have removed the file and may hold a new one.
        take(path);
    }
}

FileLock::State FileLock::take(const std::string& path) {
    FileDescriptor file(::open(
        path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0600));
    if (file && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0) {
        file_ = std::move(file);
        state_ = State::held;
    } else if (errno == EWOULDBLOCK || errno == EINTR) {
        state_ = State::busy;
    } else {
        reason_ = errnoMessage();
        state_ = State::unavailable;
    }
    return state_;
}

void FileLock::sleepShortly() { std::this_thread::sleep_for(std::chrono::milliseconds(10)); }

} // namespace frimbolate
