// Ends a test that hangs.
#pragma once

#include <unistd.h>

namespace frimbolate::test {

/// What must not block would hold up the test for ever; a signal ends it after a minute instead.
struct Watchdog {
    Watchdog() { ::alarm(60); }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog() { ::alarm(0); }
};

} // namespace frimbolate::test
