#include "core/next_run.h"

#include "core/conversions.h"
#include "core/months.h"
#include "core/weekdays.h"

#include <algorithm>
#include <array>
#include <utility>

namespace frimbolate {

using namespace std::chrono;

namespace {

struct CalendarKey {
    std::string_view name;
    std::optional<int> CalendarInterval::*field;
};
constexpr std::array<CalendarKey, 5> calendarKeys = {{{"Month", &CalendarInterval::month},
                                                      {"Day", &CalendarInterval::day},
                                                      {"Weekday", &CalendarInterval::weekday},
                                                      {"Hour", &CalendarInterval::hour},
                                                      {"Minute", &CalendarInterval::minute}}};

/// Nothing for a value that is no integer of an int.
std::optional<int> smallInteger(const Value& value) {
    const std::int64_t* number = value.integer();
    if (!number || !std::in_range<int>(*number))
        return std::nullopt;
    return static_cast<int>(*number);
}

std::optional<CalendarInterval> calendarInterval(const Value& value) {
    const Dictionary* keys = value.dictionary();
    if (!keys)
        return std::nullopt;
    CalendarInterval interval;
    for (const auto& [name, field] : calendarKeys) {
        const Value* wanted = find(*keys, name);
        if (wanted && !(interval.*field = smallInteger(*wanted)))
            return std::nullopt;
    }
    if (!isValidInterval(interval))
        return std::nullopt;
    return interval;
}

bool hasInterval(const Dictionary& agent) {
    const Value* seconds = find(agent, "StartInterval");
    return seconds && (seconds->bigInteger() || (seconds->integer() && *seconds->integer() > 0));
}

/// Kept running, or started again by a condition: nobody can know whether it runs already.
bool isKeptAlive(const Dictionary& agent) {
    const Value* keepAlive = find(agent, "KeepAlive");
    const Value* onDemand = find(agent, "OnDemand"); // the retired opposite of KeepAlive
    if (onDemand && !toBoolOrFalse(*onDemand))
        return true;
    return keepAlive && (keepAlive->dictionary() || toBoolOrFalse(*keepAlive));
}

/// Runs once, which may have happened, or waits for a debugger.
bool mayNeverRunAgain(const Dictionary& agent) {
    const auto isSet = [&agent](std::string_view key) {
        const Value* value = find(agent, key);
        return value && toBoolOrFalse(*value);
    };
    return isSet("LaunchOnlyOnce") || isSet("WaitForDebugger");
}

year_month_day dateOf(LocalMinute time) { return year_month_day(floor<days>(time)); }

std::string_view weekdayName(LocalMinute time) {
    return weekdays[weekday(floor<days>(time)).c_encoding()].name;
}

std::string dayAndMonth(const year_month_day& date, std::size_t letters = std::string::npos) {
    const auto name = monthNames[unsigned(date.month()) - 1];
    return std::to_string(unsigned(date.day())) + " " + std::string(name.substr(0, letters));
}

std::string timeText(LocalMinute time, ClockFormat clock) {
    const hh_mm_ss ofDay(time - floor<days>(time));
    return formatTimeOfDay(
        {static_cast<int>(ofDay.hours().count()), static_cast<int>(ofDay.minutes().count())},
        clock);
}

} // namespace

std::optional<LocalMinute> nextShownRun(const CalendarInterval& interval, const WallClock& clock) {
    auto wanted = nextCalendarRun(interval, clock.searchStart());
    while (wanted && clock.momentOf(*wanted) <= clock.moment())
        wanted = nextCalendarRun(interval, *wanted);
    if (!wanted)
        return std::nullopt;
    return clock.shownAt(clock.momentOf(*wanted));
}

std::vector<CalendarInterval> calendarIntervals(const Value& startCalendarInterval) {
    std::vector<CalendarInterval> intervals;
    const auto add = [&intervals](const Value& value) {
        if (const auto interval = calendarInterval(value))
            intervals.push_back(*interval);
    };
    if (const Array* elements = startCalendarInterval.array())
        std::ranges::for_each(*elements, add);
    else
        add(startCalendarInterval);
    return intervals;
}

std::optional<LocalMinute> nextRun(const Dictionary& agent, const WallClock& clock) {
    const Value* schedule = find(agent, "StartCalendarInterval");
    if (!schedule || !isAgentOn(agent) || hasInterval(agent) || isKeptAlive(agent) ||
        mayNeverRunAgain(agent))
        return std::nullopt;
    std::optional<LocalMinute> earliest;
    for (const auto& interval : calendarIntervals(*schedule))
        if (const auto run = nextShownRun(interval, clock); run && (!earliest || *run < *earliest))
            earliest = run;
    return earliest;
}

bool isAgentOn(const Dictionary& agent) {
    const Value* enabled = find(agent, "Enabled");
    const Value* disabled = find(agent, "Disabled");
    return (!enabled || toBoolOrFalse(*enabled)) && !(disabled && toBoolOrFalse(*disabled));
}

std::string nextRunText(LocalMinute run, LocalMinute now, ClockFormat clock) {
    const auto date = dateOf(run);
    std::string text = "Next: ";
    text.append(weekdayName(run)).append(" ").append(dayAndMonth(date));
    if (date.year() != dateOf(now).year())
        text.append(" ").append(std::to_string(static_cast<int>(date.year())));
    return text.append(", ").append(timeText(run, clock));
}

std::string shortRunText(LocalMinute run, LocalMinute now, ClockFormat clock) {
    constexpr std::size_t letters = 3;
    const auto distance = floor<days>(run) - floor<days>(now);
    const bool isWide = clock == ClockFormat::TwelveHours;
    const auto time = timeText(run, clock);
    if (distance == days(0))
        return isWide ? time : std::string("Today ").append(time);
    if (distance > days(0) && distance < days(weekdays.size()))
        return std::string(weekdayName(run).substr(0, letters)) + " " + time;
    const auto date = dateOf(run);
    const auto day = dayAndMonth(date, letters);
    constexpr days elevenMonths(335);
    if (distance >= elevenMonths)
        return day + " " + std::to_string(static_cast<int>(date.year()));
    return isWide ? day : day + " " + time;
}

} // namespace frimbolate
