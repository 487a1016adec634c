#include "core/value_text.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace frimbolate {

std::string shortestReal(double number) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

std::string utcText(Date date, char separator, const char* suffix) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(date.secondsSinceEpoch)};
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day calendar(midnight);
    const std::chrono::hh_mm_ss time(moment - midnight);
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u%c%02d:%02d:%02d%s",
                  static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                  static_cast<unsigned>(calendar.day()), separator,
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()), suffix);
    return text.data();
}

} // namespace frimbolate
