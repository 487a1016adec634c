// The text of the time field.
#include "core/time_of_day.h"
#include "tests/fuzz/fuzz_target.h"

#include <functional>

namespace frimbolate::test {

namespace {

constexpr TimePart timeParts[] = {TimePart::Hours, TimePart::Minutes, TimePart::Meridiem};

bool isInDay(TimeOfDay time) {
    return time.hour >= 0 && time.hour < hoursPerDay && time.minute >= 0 &&
           time.minute < minutesPerHour;
}

void requireFormats(TimeOfDay time, ClockFormat clock) {
    const std::string text = formatTimeOfDay(time, clock);
    require(parseTimeOfDay(text) == time, "a shown time is read as itself");
    for (std::size_t position = 0; position <= text.size(); ++position) {
        const TextSpan span = spanOf(timePartAt(position, clock));
        require(span.position + span.length <= text.size(), "a part lies within the text");
    }
}

} // namespace

void fuzzTimeOfDay(std::string_view input) {
    const auto time = parseTimeOfDay(input);
    require(parseTimeOfDay("\t " + std::string(input) + "\u00a0 ") == time,
            "blanks around a time mean nothing");
    if (!time)
        return;
    require(isInDay(*time), "a time lies within a day");
    requireFormats(*time, ClockFormat::TwentyFourHours);
    requireFormats(*time, ClockFormat::TwelveHours);
    const auto steps = static_cast<int>(std::hash<std::string_view>{}(input) % 2000000) - 1000000;
    for (const TimePart part : timeParts) {
        const TimeOfDay there = stepTimeOfDay(*time, part, steps);
        require(isInDay(there), "a step stays within the day");
        require(stepTimeOfDay(there, part, -steps) == *time, "a step back undoes a step");
    }
}

} // namespace frimbolate::test
