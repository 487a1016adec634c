#include "posix/local_clock.h"

#include <ctime>

namespace frimbolate {

namespace {

std::tm localTime(std::time_t moment) {
    std::tm local{};
    ::localtime_r(&moment, &local);
    return local;
}

std::chrono::minutes offsetFromUtc(WorldMinute moment) {
    const auto seconds = std::chrono::seconds(moment.time_since_epoch()).count();
    const std::tm local = localTime(static_cast<std::time_t>(seconds));
    return std::chrono::floor<std::chrono::minutes>(std::chrono::seconds(local.tm_gmtoff));
}

} // namespace

LocalDateTime LocalClock::now() {
    const std::tm local = localTime(std::time(nullptr));
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

WallClock localWallClock() {
    const auto now = std::chrono::system_clock::from_time_t(std::time(nullptr));
    return {std::chrono::floor<std::chrono::minutes>(now), offsetFromUtc};
}

} // namespace frimbolate
