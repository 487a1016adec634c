#include "core/calendar_runs.h"

#include "core/time_of_day.h"

#include <algorithm>

namespace frimbolate {

namespace {

using namespace std::chrono;

constexpr int daysPerWeek = 7;

bool isWithin(const std::optional<int>& value, int least, int greatest) {
    return !value || (*value >= least && *value <= greatest);
}

/// The first time of a day that hour and minute match.
/// \param after the time of day that must have passed; nothing for the day's beginning
///
/// launchd adds one to the minute without carrying it: an interval without a minute still runs at
/// the full hour after 23:59, or after the last minute of its hour.
std::optional<minutes> firstTimeOfDay(const CalendarInterval& interval,
                                      std::optional<minutes> after) {
    for (int hour = interval.hour.value_or(0); hour <= interval.hour.value_or(hoursPerDay - 1);
         ++hour) {
        const auto begin = hours(hour);
        if (after && *after >= begin + minutes(minutesPerHour))
            continue;
        const auto first = after && *after >= begin ? *after - begin + minutes(1) : minutes(0);
        const auto minute = interval.minute ? minutes(*interval.minute) : first;
        if (minute >= first)
            return begin + minute;
    }
    return std::nullopt;
}

/// The first run by month and day.
///
/// A month is searched by the days that it is asked for, not by those that it has: the search of
/// April finds the 31st on 1 May, and the search of May no longer does.
LocalMinute nextByDate(const CalendarInterval& interval, LocalMinute now) {
    const auto today = floor<days>(now);
    const year_month_day date(today);
    const auto thisMonth = date.year() / date.month();
    for (auto month = thisMonth;; month += months(1)) {
        if (interval.month && month.month() != std::chrono::month(unsigned(*interval.month)))
            continue;
        const int first = month == thisMonth ? static_cast<int>(unsigned(date.day())) : 1;
        const int last = static_cast<int>(unsigned((month / std::chrono::last).day()));
        for (int day = interval.day.value_or(first); day <= interval.day.value_or(last); ++day) {
            if (day < first)
                continue;
            const bool isToday = month == thisMonth && day == first;
            if (const auto time =
                    firstTimeOfDay(interval, isToday ? std::optional(now - today) : std::nullopt))
                return local_days(month / 1) + days(day - 1) + *time;
        }
    }
}

LocalMinute nextByWeekday(const CalendarInterval& interval, LocalMinute now) {
    const weekday wanted(static_cast<unsigned>(*interval.weekday));
    const auto today = floor<days>(now);
    for (auto day = today;; day += days(1)) {
        if (weekday(day) != wanted)
            continue;
        if (const auto time =
                firstTimeOfDay(interval, day == today ? std::optional(now - today) : std::nullopt))
            return day + *time;
    }
}

} // namespace

bool isValidInterval(const CalendarInterval& interval) {
    return isWithin(interval.month, 1, 12) && isWithin(interval.day, 1, 31) &&
           isWithin(interval.weekday, 0, daysPerWeek) &&
           isWithin(interval.hour, 0, hoursPerDay - 1) &&
           isWithin(interval.minute, 0, minutesPerHour - 1);
}

std::optional<LocalMinute> nextCalendarRun(const CalendarInterval& interval, LocalMinute now) {
    if (!isValidInterval(interval))
        return std::nullopt;
    if (!interval.weekday)
        return nextByDate(interval, now);
    const auto byWeekday = nextByWeekday(interval, now);
    return interval.day ? std::min(byWeekday, nextByDate(interval, now)) : byWeekday;
}

} // namespace frimbolate
