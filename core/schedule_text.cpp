#include "core/schedule_text.h"

#include "core/agent_plist.h"
#include "core/conversions.h"
#include "core/weekdays.h"

#include <array>

namespace frimbolate {

namespace {

std::string atTime(const AgentForm& form, ClockFormat clock) {
    const auto& time = form.scheduleTime;
    return " at " + formatTimeOfDay({time.hour, time.minute}, clock);
}

std::string onceAMonth(const AgentForm& form, const Faults& faults, ClockFormat clock) {
    if (faultOfRow(faults, FormRow::Schedule))
        return "once a month" + atTime(form, clock);
    const int day = dayOfMonth(form);
    return "on the " + ordinal(day) + " of every month" + atTime(form, clock) +
           std::string(day > everyMonthHas ? afterMonthsEnd : "");
}

/// Empty for an interval that launchd ignores: zero or negative.
std::string onInterval(const AgentForm& form, const Faults& faults) {
    if (faultOfRow(faults, FormRow::Schedule))
        return "at an interval";
    struct Unit {
        std::int64_t seconds;
        std::string_view name;
    };
    constexpr std::array<Unit, 3> units = {{{3600, "hour"}, {60, "minute"}, {1, "second"}}};
    const auto seconds = startInterval(form);
    for (const auto& [length, name] : units)
        if (seconds > 0 && seconds % length == 0)
            return seconds == length ? "every " + std::string(name)
                                     : "every " + std::to_string(seconds / length) + " " +
                                           std::string(name) + "s";
    return "";
}

/// The text on one line, without surrounding white space, shortened to the length of a hint.
std::string excerpt(std::string_view text) {
    constexpr int most = 20; // characters
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    const auto first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos)
        return "";
    text = text.substr(first, text.find_last_not_of(whiteSpace) + 1 - first);
    std::string line;
    int characters = 0;
    for (const char unit : text) {
        const auto byte = static_cast<unsigned char>(unit);
        const bool begins = (byte & 0xc0) != 0x80; // not a continuation of a UTF-8 sequence
        if (begins && ++characters > most)
            return line + "\u2026";
        line += byte < ' ' ? ' ' : unit;
    }
    return line;
}

} // namespace

std::string ordinal(int number) {
    const bool teen = number / 10 == 1;
    const auto last = static_cast<std::size_t>(number % 10);
    constexpr std::array<std::string_view, 4> endings = {"th", "st", "nd", "rd"};
    return std::to_string(number).append(teen || last > 3 ? "th" : endings[last]);
}

std::string scheduleText(const AgentForm& form, const Faults& faults, ClockFormat clock) {
    const int type = form.scheduleType;
    if (type >= ScheduleType::EverySunday && type <= ScheduleType::EverySaturday) {
        const auto day = static_cast<std::size_t>(type - ScheduleType::EverySunday);
        return "every " + std::string(weekdays[day].name) + atTime(form, clock);
    }
    if (type < ScheduleType::EverySunday)
        return "every day" + atTime(form, clock);
    if (type == ScheduleType::OnceAMonth)
        return onceAMonth(form, faults, clock);
    if (type == ScheduleType::AtLoad)
        return "when the agent is loaded, such as at login";
    return type == ScheduleType::OnInterval ? onInterval(form, faults) : "";
}

std::string scheduleHint(const AgentForm& form, const Faults& faults, ClockFormat clock) {
    auto text = scheduleText(form, faults, clock);
    if (text.empty() || faultOfRow(faults, FormRow::Schedule))
        return text;
    if (form.scheduleType == ScheduleType::OnInterval)
        return text + "; not made up if missed while asleep";
    return form.scheduleType == ScheduleType::AtLoad
               ? text
               : text + "; made up once if missed while asleep";
}

std::string shortScheduleHint(const AgentForm& form, const Faults& faults, ClockFormat clock) {
    if (form.scheduleType != ScheduleType::OnceAMonth || faultOfRow(faults, FormRow::Schedule) ||
        dayOfMonth(form) <= everyMonthHas)
        return "";
    return "on the " + ordinal(dayOfMonth(form)) + atTime(form, clock) +
           " or after a shorter month's end; made up once if asleep";
}

std::string unreadableTimeWords(std::string_view typed, TimeOfDay kept, ClockFormat clock) {
    const auto text = excerpt(typed);
    return (text.empty() ? "No time was given" : "\u201c" + text + "\u201d is not a time of day") +
           "; the field keeps " + formatTimeOfDay(kept, clock);
}

} // namespace frimbolate
