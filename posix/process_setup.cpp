#include "posix/process_setup.h"

#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace frimbolate {

void openStandardStreams() {
    // open() returns the lowest free number, which in this order is the missing one.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) < 0)
            return;
}

void surviveFailedWrites() {
    // An empty handler, not SIG_IGN: exec() resets a handler to the default and keeps SIG_IGN.
    struct sigaction action {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(SIGPIPE, &action, nullptr);
    ::sigaction(SIGXFSZ, &action, nullptr);
}

} // namespace frimbolate
