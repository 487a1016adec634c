#include "core/calendar_text.h"

#include "core/months.h"
#include "core/schedule_text.h"
#include "core/weekdays.h"

#include <algorithm>
#include <iterator>

namespace frimbolate {

namespace {

using Intervals = std::vector<CalendarInterval>;

constexpr std::size_t mostGroups = 5;

bool hasTime(const CalendarInterval& interval) { return interval.hour && interval.minute; }

std::string timeOf(const CalendarInterval& interval, ClockFormat clock) {
    return formatTimeOfDay({*interval.hour, *interval.minute}, clock);
}

/// launchd takes no notice of the month of a weekday.
bool isWeekdayOnly(const CalendarInterval& interval) { return interval.weekday && !interval.day; }
bool isDayOnly(const CalendarInterval& interval) {
    return interval.day && !interval.weekday && !interval.month;
}

std::string weekdayName(const CalendarInterval& interval) {
    return std::string(
        weekdays[static_cast<std::size_t>(*interval.weekday) % weekdays.size()].name);
}

std::string dateWords(const CalendarInterval& interval) {
    const auto month = [&] {
        return std::string(monthNames[static_cast<std::size_t>(*interval.month) - 1]);
    };
    if (interval.day && interval.month)
        return "every year on " + std::to_string(*interval.day) + " " + month();
    if (interval.day)
        return "on the " + ordinal(*interval.day) + " of every month";
    return interval.month ? "every day of " + month() : "every day";
}

std::string dayWords(const CalendarInterval& interval) {
    if (!interval.weekday)
        return dateWords(interval);
    const auto byWeekday = "every " + weekdayName(interval);
    return interval.day ? dateWords(interval) + " and " + byWeekday : byWeekday;
}

/// The words for a calendar without an hour or a minute.
std::string openWords(const CalendarInterval& interval, ClockFormat clock) {
    std::string times = "every minute";
    if (interval.minute)
        times = "at minute " + std::to_string(*interval.minute) + " of every hour";
    else if (interval.hour)
        times += " from " + formatTimeOfDay({*interval.hour, 0}, clock) + " to " +
                 formatTimeOfDay({*interval.hour, 59}, clock);
    const auto day = dayWords(interval);
    return day == "every day" ? times : day + ", " + times;
}

void addOnce(Words& words, std::string word) {
    if (std::ranges::find(words, word) == words.end())
        words.push_back(std::move(word));
}

/// The days of calendars that share their time.
std::string sharedDays(const Intervals& group) {
    Words words;
    if (std::ranges::all_of(group, isWeekdayOnly)) {
        for (const auto& interval : group)
            addOnce(words, weekdayName(interval));
        return words.size() == weekdays.size() ? "every day"
                                               : "every " + joined(words, ", ", " and ");
    }
    if (std::ranges::all_of(group, isDayOnly)) {
        for (const auto& interval : group)
            addOnce(words, ordinal(*interval.day));
        return "on the " + joined(words, ", ", " and ") + " of every month";
    }
    for (const auto& interval : group)
        addOnce(words, dayWords(interval));
    return joined(words, ", ", " and ");
}

std::string endWords(const Intervals& group) {
    const bool mayPassTheEnd = std::ranges::any_of(group, [](const CalendarInterval& interval) {
        return interval.day && *interval.day > everyMonthHas;
    });
    return std::string(mayPassTheEnd ? afterMonthsEnd : "");
}

/// The words of calendars with a time of day.
Words timedWords(const Intervals& timed, ClockFormat clock) {
    Words words, days, times;
    for (const auto& interval : timed) {
        addOnce(days, dayWords(interval));
        addOnce(times, timeOf(interval, clock));
    }
    if (days.size() == 1)
        return {days.front() + " at " + joined(times, ", ", " and ") + endWords(timed)};
    for (const auto& time : times) {
        Intervals group;
        std::ranges::copy_if(timed, std::back_inserter(group),
                             [&](const auto& interval) { return timeOf(interval, clock) == time; });
        words.push_back(sharedDays(group) + " at " + time + endWords(group));
    }
    return words;
}

} // namespace

Words calendarWords(const std::vector<CalendarInterval>& intervals, ClockFormat clock) {
    Intervals timed;
    std::ranges::copy_if(intervals, std::back_inserter(timed), hasTime);
    Words words = timed.empty() ? Words() : timedWords(timed, clock);
    for (const auto& interval : intervals)
        if (!hasTime(interval))
            addOnce(words, openWords(interval, clock));
    if (words.size() > mostGroups + 1) {
        const auto more = words.size() - mostGroups;
        words.resize(mostGroups);
        words.push_back("at " + std::to_string(more) + " other times");
    }
    return words;
}

} // namespace frimbolate
