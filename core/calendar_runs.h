// When launchd runs an agent that has a StartCalendarInterval.
#pragma once

#include "core/wall_clock.h"

#include <optional>

namespace frimbolate {

/// One dictionary of StartCalendarInterval. A missing key matches every value.
struct CalendarInterval {
    std::optional<int> month = {};   ///< 1 to 12
    std::optional<int> day = {};     ///< 1 to 31
    std::optional<int> weekday = {}; ///< 0 to 7, where 0 and 7 are Sunday
    std::optional<int> hour = {};    ///< 0 to 23
    std::optional<int> minute = {};  ///< 0 to 59

    friend bool operator==(const CalendarInterval&, const CalendarInterval&) = default;
};

/// Whether every value is in its range.
bool isValidInterval(const CalendarInterval& interval);

/// The first run after `now`; the change of clocks is not taken into account.
///
/// As launchd computes it: a day that the month lacks is counted on from the month's end (31 April
/// is 1 May); a weekday without a day takes no notice of the month; with a day and a weekday either
/// one starts the agent. Nothing where a value is outside of its range.
std::optional<LocalMinute> nextCalendarRun(const CalendarInterval& interval, LocalMinute now);

} // namespace frimbolate
