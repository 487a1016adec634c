// Parsing, formatting and stepping of a time of day.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

inline constexpr int hoursPerDay = 24;
inline constexpr int minutesPerHour = 60;

struct TimeOfDay {
    int hour = 0;   ///< 0 to 23
    int minute = 0; ///< 0 to 59
    friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

/// How times are shown. Parsing does not depend on it.
enum class ClockFormat {
    TwentyFourHours, ///< "07:30", "19:30"
    TwelveHours      ///< "07:30 AM", "07:30 PM"
};

/// The time that a typed text means; none where it is no time or ambiguous.
///
/// Accepted are hours alone ("7"), hours and two digits of minutes separated by a colon, a full
/// stop or blanks ("7:30", "07 30"), and both without a separator ("730", "0730"). "a", "am",
/// "a.m." or "p", "pm", "p.m." in any case may follow and require hours from 1 to 12; without them
/// the 24-hour clock applies. Blanks, no-break spaces included, may surround each part.
std::optional<TimeOfDay> parseTimeOfDay(std::string_view text);

/// The text of a time. Fields and sentences share this format.
std::string formatTimeOfDay(TimeOfDay time, ClockFormat clock);

enum class TimePart { Hours, Minutes, Meridiem };

/// The part of a formatted time at a cursor position, which is the index of the character after the
/// cursor. A cursor between a part and the separator after it belongs to that part.
TimePart timePartAt(std::size_t position, ClockFormat clock);

struct TextSpan {
    std::size_t position;
    std::size_t length;
    friend bool operator==(const TextSpan&, const TextSpan&) = default;
};

/// The characters of a part in a formatted time.
TextSpan spanOf(TimePart part);

/// The time with one part increased, or decreased for a negative number of steps. Each part wraps
/// around by itself: minute 59 is followed by 0 of the same hour, hour 23 by 0. An odd number of
/// steps swaps AM and PM.
TimeOfDay stepTimeOfDay(TimeOfDay time, TimePart part, int steps);

} // namespace frimbolate
