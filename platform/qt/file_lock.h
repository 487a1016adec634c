// Keeps two programs apart that change one file.
#pragma once

#include "platform/qt/file_descriptor.h"

#include <functional>
#include <string>

namespace frimbolate {

/// An advisory lock, held from construction to destruction. The system gives it back when the
/// program ends, however that happens; the empty lock file stays.
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

    /// \param path of the lock file, which is created where it is missing
    FileLock(const std::string& path, const Patience& patience);

    State state() const { return state_; }
    /// Why it is unavailable; a clause.
    const std::string& reason() const { return reason_; }

  private:
    static void sleepShortly();

    FileDescriptor file_{-1};
    State state_ = State::busy;
    std::string reason_;
};

} // namespace frimbolate
