// An advisory lock that one program has at a time, and that ends with it however it ends. Knows no
// Qt.
#pragma once

#include "posix/file_descriptor.h"

#include <functional>
#include <string>

namespace frimbolate {

/// Held until release() or destruction; a program started meanwhile does not inherit it. The empty
/// lock file stays: removed, it could be made twice.
class FileLock {
  public:
    enum class State {
        held,
        busy,       ///< another program held it at every try
        unavailable ///< the lock file cannot be made, or its file system has no locks
    };

    /// How long to wait for another program: a second, as it stands here.
    struct Patience {
        int tries = 101; ///< at least 1
        std::function<void()> pause = sleepShortly;
    };

    /// Holds nothing yet.
    FileLock() = default;
    /// Tries to take the lock until it is held or patience ends.
    FileLock(const std::string& path, const Patience& patience);

    /// Takes the lock unless another program holds it; does not wait.
    /// \param path of the lock file, which is created where it is missing
    State take(const std::string& path);
    void release() { file_.close(), state_ = State::busy; }

    State state() const { return state_; }
    bool isHeld() const { return state_ == State::held; }
    /// Why it is unavailable; a clause.
    const std::string& reason() const { return reason_; }

  private:
    static void sleepShortly();

    FileDescriptor file_{-1};
    State state_ = State::busy;
    std::string reason_;
};

} // namespace frimbolate
