#include "tests/two_at_once/killed_write.h"

#include <csignal>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int callsUntilEnd = 0; ///< 0 where the process is not to end
bool endsAfterCall = false;

template <typename Call>
int endAround(Call call) {
    const bool ends = callsUntilEnd > 0 && --callsUntilEnd == 0;
    if (ends && !endsAfterCall)
        ::raise(SIGKILL);
    const int result = static_cast<int>(call());
    if (ends)
        ::raise(SIGKILL);
    return result;
}

} // namespace

extern "C" {

int fsync(int file) {
    return endAround([=] { return ::syscall(SYS_fsync, file); });
}

int renameat(int from, const char* oldName, int to, const char* newName) noexcept {
    return endAround([=] { return ::syscall(SYS_renameat2, from, oldName, to, newName, 0); });
}
}

namespace frimbolate::test {

void killAtCall(int number, bool isAfter) {
    callsUntilEnd = number;
    endsAfterCall = isAfter;
}

} // namespace frimbolate::test
