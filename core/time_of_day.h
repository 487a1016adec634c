// A time of day as users type it, as the window shows it, and as arrow keys step it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

struct TimeOfDay {
    int hour = 0;   ///< 0 to 23
    int minute = 0; ///< 0 to 59
    friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

/// How times are shown. Both clocks read the same texts.
enum class ClockFormat {
    TwentyFourHours, ///< "07:30", "19:30"
    TwelveHours      ///< "07:30 AM", "07:30 PM"
};

/// The time that a typed text means; none where it means no time or more than one.
///
/// Hours stand alone ("7"), before two digits of minutes behind a colon, a full stop or blanks
/// ("7:30", "07 30"), or in one with them ("730", "0730"). "a", "am", "a.m." or "p", "pm", "p.m."
/// may follow, in capitals too, and ask for hours from 1 to 12; without them the 24-hour clock is
/// meant. Blanks, also those that do not break, may surround each part.
std::optional<TimeOfDay> parseTimeOfDay(std::string_view text);

/// The one way in which a time is shown, in the field as in sentences.
std::string formatTimeOfDay(TimeOfDay time, ClockFormat clock);

enum class TimePart { Hours, Minutes, Meridiem };

/// The part of a formatted time at a cursor, which stands before the character of that index. The
/// cursor between a part and what separates it from the next belongs to the part.
TimePart timePartAt(std::size_t position, ClockFormat clock);

struct TextSpan {
    std::size_t position;
    std::size_t length;
    friend bool operator==(const TextSpan&, const TextSpan&) = default;
};

/// Where a part stands in a formatted time.
TextSpan spanOf(TimePart part);

/// The time after one part went up, or down for a negative number of steps. Each part goes round
/// by itself: 59 minutes are followed by 0 of the same hour, and 23 hours by 0. An odd number of
/// steps exchanges AM and PM.
TimeOfDay stepTimeOfDay(TimeOfDay time, TimePart part, int steps);

} // namespace frimbolate
