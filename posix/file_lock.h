// An advisory lock that one process holds at a time. The system releases it when the process ends.
#pragma once

#include "posix/file_descriptor.h"

#include <functional>
#include <string>

namespace frimbolate {

/// Held until release() or destruction; child processes do not inherit it. The empty lock file is
/// never removed: two processes could then hold locks on different files of that name.
class FileLock {
  public:
    enum class State {
        held,
        busy,       ///< another process held it at every try
        unavailable ///< the lock file cannot be created, or its file system has no locks
    };

    /// How long to wait for another process; one second by default.
    struct Patience {
        int tries = 101; ///< at least 1; a pause between two of them
        std::function<void()> pause = sleepShortly;
    };

    /// Does not hold a lock.
    FileLock() = default;
    /// Tries to take the lock until it is held, is unavailable, or the tries are used up.
    FileLock(const std::string& path, const Patience& patience);

    /// Takes the lock unless another process holds it; does not wait.
    /// \param path of the lock file, which is created if missing
    State take(const std::string& path);
    void release() { file_.close(), state_ = State::busy; }

    State state() const { return state_; }
    bool isHeld() const { return state_ == State::held; }
    /// Why the lock is unavailable, as the system's message.
    const std::string& reason() const { return reason_; }

  private:
    static void sleepShortly();

    FileDescriptor file_{-1};
    State state_ = State::busy;
    std::string reason_;
};

} // namespace frimbolate
