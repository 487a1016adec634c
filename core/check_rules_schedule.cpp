// Rules about the calendar and the interval.
#include "core/check_rules.h"
#include "core/conversions.h"
#include "core/launchd_keys.h"

#include <algorithm>
#include <vector>

namespace frimbolate {

namespace {

constexpr const char* calendarKey = "StartCalendarInterval";
constexpr std::int64_t wildcard = -1;
constexpr std::int64_t february = 2;
constexpr std::int64_t shortestMonth = 28;

struct Month {
    std::string_view name;
    std::int64_t days; ///< the most that it has in any year
};
constexpr Month months[] = {{"January", 31}, {"February", 29}, {"March", 31},
                            {"April", 30},   {"May", 31},      {"June", 30},
                            {"July", 31},    {"August", 31},   {"September", 30},
                            {"October", 31}, {"November", 30}, {"December", 31}};

/// One dictionary of the calendar; a missing key is a wildcard.
struct Times {
    std::int64_t month = wildcard, day = wildcard, weekday = wildcard;
    std::int64_t hour = wildcard, minute = wildcard;

    bool hasDate() const { return month != wildcard || day != wildcard || weekday != wildcard; }
    friend auto operator<=>(const Times&, const Times&) = default;
};

/// Reports numbers out of range.
/// \return nothing where a key or its value is not one that launchd knows
std::optional<Times> readTimes(const Dictionary& entries, const std::string& path,
                               FindingList& findings) {
    Times times;
    const std::pair<std::string_view, std::int64_t*> fields[] = {{"Month", &times.month},
                                                                 {"Day", &times.day},
                                                                 {"Weekday", &times.weekday},
                                                                 {"Hour", &times.hour},
                                                                 {"Minute", &times.minute}};
    bool isKnown = true;
    std::size_t read = 0;
    for (const auto& [name, field] : fields) {
        const auto* value = find(entries, name);
        if (!value)
            continue;
        ++read;
        const auto* key = launchdKey(calendarKey, name);
        const auto* number = value->integer();
        if (number && *number >= key->least && *number <= key->greatest) {
            *field = *number;
            continue;
        }
        isKnown = false;
        if (number || value->bigInteger())
            findings.add(Rule::CalendarRange, entryPath(path, name), 0,
                         {toDisplayString(*value), std::to_string(key->least),
                          std::to_string(key->greatest)});
    }
    if (!isKnown || read != entries.size())
        return std::nullopt;
    times.weekday = times.weekday == 7 ? 0 : times.weekday;
    return times;
}

void checkWildcards(const Times& times, const std::string& path, FindingList& findings) {
    if (times == Times{})
        findings.add(Rule::CalendarWildcard, path, 2);
    else if (times.minute == wildcard)
        findings.add(Rule::CalendarWildcard, path, 0);
    else if (times.hour == wildcard && times.hasDate())
        findings.add(Rule::CalendarWildcard, path, 1);
}

/// launchd counts a day that the month lacks on from the end of the month.
std::string runInstead(const Times& times) {
    const auto over = times.day - months[times.month - 1].days;
    const auto day = [](std::int64_t number, std::int64_t month) {
        return std::to_string(number).append(" ").append(months[month - 1].name);
    };
    if (times.month != february)
        return day(over, times.month + 1);
    return day(over + 1, times.month + 1) + " (" + day(over, times.month + 1) + " in a leap year)";
}

void checkDay(const Times& times, const std::string& path, FindingList& findings) {
    constexpr std::int64_t leapDay = 29;
    if (times.day <= shortestMonth)
        return;
    if (times.month == wildcard) {
        findings.add(Rule::CalendarShortMonth, entryPath(path, "Day"), 0,
                     {std::to_string(times.day)});
        return;
    }
    const auto& month = months[times.month - 1];
    if (times.day > month.days)
        findings.add(Rule::CalendarMissingDay, path, 0,
                     {month.name, std::to_string(times.day), runInstead(times)});
    else if (times.month == february && times.day == leapDay)
        findings.add(Rule::CalendarLeapDay, path);
}

void checkCombination(const Times& times, const std::string& path, FindingList& findings) {
    if (times.weekday == wildcard)
        return;
    if (times.day != wildcard)
        findings.add(Rule::CalendarDayAndWeekday, path);
    if (times.month != wildcard)
        findings.add(Rule::CalendarWeekdayAndMonth, path);
}

std::optional<Times> checkTimes(const Dictionary& entries, const std::string& path,
                                FindingList& findings) {
    const auto times = readTimes(entries, path, findings);
    if (times) {
        checkWildcards(*times, path, findings);
        checkDay(*times, path, findings);
        checkCombination(*times, path, findings);
    }
    return times;
}

struct IndexedTimes {
    Times times;
    std::size_t index;
    friend auto operator<=>(const IndexedTimes&, const IndexedTimes&) = default;
};

/// The first element whose runs include every run of this one; nothing where there is none. Of two
/// equal ones the later is included. The candidates are few: each has the date or none, the hour or
/// none, and the minute or none.
std::optional<std::size_t> coveredBy(const IndexedTimes& entry,
                                     const std::vector<IndexedTimes>& sorted) {
    for (unsigned dropped = 0; dropped < 8; ++dropped) {
        Times candidate = entry.times;
        if ((dropped & 1U) != 0)
            candidate.month = candidate.day = candidate.weekday = wildcard;
        if ((dropped & 2U) != 0)
            candidate.hour = wildcard;
        if ((dropped & 4U) != 0)
            candidate.minute = wildcard;
        // On the day that stands for a missing one, wildcards match a single time.
        if (candidate.day > shortestMonth && (dropped & 6U) != 0)
            continue;
        const auto found =
            std::lower_bound(sorted.begin(), sorted.end(), IndexedTimes{candidate, 0});
        if (found == sorted.end() || found->times != candidate)
            continue;
        if (candidate != entry.times || found->index < entry.index)
            return found->index;
    }
    return std::nullopt;
}

void checkAlternatives(const Array& alternatives, FindingList& findings) {
    std::vector<IndexedTimes> entries;
    for (std::size_t i = 0; i < alternatives.size(); ++i)
        if (const auto* calendar = alternatives[i].dictionary())
            if (const auto times = checkTimes(*calendar, elementPath(calendarKey, i), findings))
                entries.push_back({*times, i});
    auto sorted = entries;
    std::sort(sorted.begin(), sorted.end());
    for (const auto& entry : entries)
        if (const auto other = coveredBy(entry, sorted))
            findings.add(Rule::CalendarShadowed, elementPath(calendarKey, entry.index), 0,
                         {elementPath(calendarKey, *other)});
}

} // namespace

void checkSchedule(const CheckedAgent& agent) {
    if (const auto* calendar = agent.dictionary(calendarKey))
        checkTimes(*calendar, calendarKey, agent.findings);
    if (const auto* alternatives = agent.array(calendarKey))
        checkAlternatives(*alternatives, agent.findings);
    if (const auto* interval = agent.integer("StartInterval"); interval && *interval <= 0)
        agent.findings.add(Rule::IntervalNotPositive, "StartInterval", 0,
                           {std::to_string(*interval)});
}

} // namespace frimbolate
