// A piece of a test that runs in a process of its own, for it may end it.
#pragma once

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

namespace frimbolate::test {

/// The status, as waitpid() tells it, of a forked process that exits with what the body returns.
/// One that hangs ends by a signal after a minute.
template <typename Body>
int statusOfChild(Body body) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(60);
        ::_exit(body());
    }
    int status = -1;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

inline bool endedWell(int status) { return WIFEXITED(status) && WEXITSTATUS(status) == 0; }

} // namespace frimbolate::test
