#include "posix/local_clock.h"

#include <ctime>

namespace frimbolate {

LocalDateTime LocalClock::now() {
    const std::time_t moment = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&moment, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

} // namespace frimbolate
