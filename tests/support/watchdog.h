// Ends a test that blocks.
#pragma once

#include <unistd.h>

namespace frimbolate::test {

/// SIGALRM ends the process if the object lives longer than 60 seconds.
struct Watchdog {
    Watchdog() { ::alarm(60); }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog() { ::alarm(0); }
};

} // namespace frimbolate::test
