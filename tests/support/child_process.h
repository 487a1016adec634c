// Runs a part of a test in a child process, which that part may end.
#pragma once

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

namespace frimbolate::test {

/// Runs the body in a forked process, which exits with what the body returns, and waits for it.
/// A process that hangs ends by SIGALRM after 60 seconds.
/// \returns the status that waitpid() reports
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
