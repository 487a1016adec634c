#include "platform/qt/utc_date.h"

#include "core/value_text.h"

#include <charconv>
#include <chrono>

namespace frimbolate {

namespace {

using namespace std::chrono;

constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ";

bool matchesPattern(std::string_view text) {
    if (text.size() != pattern.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool fits =
            pattern[i] == 'd' ? text[i] >= '0' && text[i] <= '9' : text[i] == pattern[i];
        if (!fits)
            return false;
    }
    return true;
}

/// Of a place that is known to hold digits.
int digits(std::string_view text, std::size_t start, std::size_t count) {
    int number = 0;
    std::from_chars(text.data() + start, text.data() + start + count, number);
    return number;
}

constexpr seconds firstSecond = sys_days(year{1} / January / 1).time_since_epoch();
constexpr seconds endOfTime = sys_days(year{10000} / January / 1).time_since_epoch();

} // namespace

std::optional<Date> dateOfText(std::string_view text) {
    if (!matchesPattern(text))
        return std::nullopt;
    const year_month_day date(year{digits(text, 0, 4)},
                              month{static_cast<unsigned>(digits(text, 5, 2))},
                              day{static_cast<unsigned>(digits(text, 8, 2))});
    const hours hour{digits(text, 11, 2)};
    const minutes minute{digits(text, 14, 2)};
    const seconds second{digits(text, 17, 2)};
    if (!date.ok() || date.year() < year{1} || hour >= 24h || minute >= 60min || second >= 60s)
        return std::nullopt;
    const seconds moment = sys_days(date).time_since_epoch() + hour + minute + second;
    return Date{moment.count()};
}

std::optional<std::string> textOfDate(Date date) {
    const seconds moment{date.secondsSinceEpoch};
    if (moment < firstSecond || moment >= endOfTime)
        return std::nullopt;
    return utcText(date, 'T', "Z");
}

} // namespace frimbolate
