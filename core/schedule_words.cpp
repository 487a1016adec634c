#include "core/schedule_words.h"

#include "core/agent_file.h"
#include "core/conversions.h"
#include "core/validation.h"

#include <array>

namespace frimbolate {

namespace {

std::string twoDigits(int number) {
    return std::string(number < 10 ? "0" : "").append(std::to_string(number));
}

std::string atTime(const AgentForm& form) {
    return " at " + twoDigits(form.scheduleTime.hour) + ":" + twoDigits(form.scheduleTime.minute);
}

std::string ordinal(int number) {
    const bool teen = number / 10 == 1;
    const auto last = static_cast<std::size_t>(number % 10);
    constexpr std::array<std::string_view, 4> endings = {"th", "st", "nd", "rd"};
    return std::to_string(number).append(teen || last > 3 ? "th" : endings[last]);
}

std::string onceAMonth(const AgentForm& form) {
    if (validate(form).schedule)
        return "once a month" + atTime(form);
    constexpr int everyMonthHas = 28;
    const int day = truncatedTo32Bits(leadingInteger(form.dayOfMonthText));
    return "on the " + ordinal(day) + " of every month" + atTime(form) +
           (day > everyMonthHas ? ", skipping shorter months" : "");
}

/// Empty for the intervals that launchd ignores, zero among them.
std::string onInterval(const AgentForm& form) {
    if (validate(form).schedule)
        return "at an interval";
    struct Unit {
        std::int64_t seconds;
        std::string_view name;
    };
    constexpr std::array<Unit, 3> units = {{{3600, "hour"}, {60, "minute"}, {1, "second"}}};
    const auto file = agentFile(form, "");
    const auto written = file.find("StartInterval");
    const auto seconds = written == file.end() ? 0 : integerValue(written->second);
    for (const auto& [length, name] : units)
        if (seconds > 0 && seconds % length == 0)
            return seconds == length ? "every " + std::string(name)
                                     : "every " + std::to_string(seconds / length) + " " +
                                           std::string(name) + "s";
    return "";
}

} // namespace

std::string scheduleWords(const AgentForm& form) {
    constexpr std::array<std::string_view, 7> days = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                      "Thursday", "Friday", "Saturday"};
    const int type = form.scheduleType;
    if (type >= ScheduleType::EverySunday && type <= ScheduleType::EverySaturday) {
        const auto day = static_cast<std::size_t>(type - ScheduleType::EverySunday);
        return "every " + std::string(days[day]) + atTime(form);
    }
    if (type < ScheduleType::EverySunday)
        return "every day" + atTime(form);
    if (type == ScheduleType::OnceAMonth)
        return onceAMonth(form);
    if (type == ScheduleType::AtLoad)
        return "when the agent is loaded, such as at login";
    return type == ScheduleType::OnInterval ? onInterval(form) : "";
}

} // namespace frimbolate
