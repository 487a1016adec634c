#include "cli/new_agent.h"

#include "core/named_error.h"
#include "core/time_of_day.h"
#include "core/weekdays.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace frimbolate {

namespace {

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    });
    return text;
}

/// The schedule of a weekday: its name, or the first three letters or more of it.
std::optional<int> weekdaySchedule(const std::string& typed) {
    constexpr std::size_t fewestLetters = 3;
    const auto name = lowered(typed);
    for (std::size_t day = 0; day < weekdays.size(); ++day)
        if (name.size() >= fewestLetters &&
            lowered(std::string(weekdays[day].name)).starts_with(name))
            return ScheduleType::EverySunday + static_cast<int>(day);
    return std::nullopt;
}

void setDays(AgentForm& form, const NewAgentOptions& options) {
    if (!options.on || lowered(*options.on) == "day") {
        form.scheduleType = ScheduleType::EveryDay;
    } else if (const auto weekday = weekdaySchedule(*options.on)) {
        form.scheduleType = *weekday;
    } else {
        form.scheduleType = ScheduleType::OnceAMonth;
        form.dayOfMonthText = *options.on;
    }
}

void setTime(AgentForm& form, const NewAgentOptions& options) {
    const auto time = parseTimeOfDay(options.at.value_or(""));
    if (!options.at)
        throw NamedError("--at", "A schedule needs a time of day, such as 07:05");
    if (!time)
        throw NamedError("--at", "\u201c" + *options.at + "\u201d is not a time of day");
    form.scheduleTime.hour = time->hour;
    form.scheduleTime.minute = time->minute;
}

void setInterval(AgentForm& form, std::string text) {
    constexpr std::string_view units = "smh"; // in the order of IntervalUnit
    form.scheduleType = ScheduleType::OnInterval;
    const auto unit = text.empty() ? std::string_view::npos : units.find(text.back());
    if (unit != std::string_view::npos) {
        form.intervalUnit = static_cast<int>(unit);
        text.pop_back();
    }
    form.intervalText = std::move(text);
}

void setSchedule(AgentForm& form, const NewAgentOptions& options) {
    if (options.every) {
        setInterval(form, *options.every);
    } else if (options.atLoad) {
        form.scheduleType = ScheduleType::AtLoad;
    } else if (options.at || options.on) {
        setDays(form, options);
        setTime(form, options);
    } else {
        return; // reported as a missing choice
    }
    form.action = options.keepRunning ? AgentAction::KeepRunning : AgentAction::OnSchedule;
}

void setStart(AgentForm& form, const NewAgentOptions& options) {
    setSchedule(form, options);
    if (options.watch) {
        form.action = AgentAction::PathModified;
        form.watchPath = *options.watch;
    } else if (options.onMount) {
        form.action = AgentAction::VolumeMounted;
    } else if (options.keepRunning && form.action == AgentAction::None) {
        // Without a schedule it is kept running from its loading on.
        form.action = AgentAction::KeepRunning;
        form.scheduleType = ScheduleType::AtLoad;
    }
}

std::int64_t niceLevel(const std::string& text) {
    constexpr std::int64_t least = -20, greatest = 20; // those of the slider
    std::int64_t level = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, level);
    if (read.ec != std::errc() || read.ptr != end || level < least || level > greatest)
        throw NamedError("--nice", "\u201c" + text + "\u201d is no number from -20 to 20");
    return level;
}

} // namespace

AgentForm formOf(const NewAgentOptions& options) {
    AgentForm form;
    form.name = options.name.value_or("");
    if (options.script)
        form.targetType = TargetType::Script;
    else if (options.run)
        form.targetType = TargetType::File;
    form.targetPath = options.run.value_or("");
    form.scriptText = options.script.value_or("");
    setStart(form, options);
    form.allowSuccessfulExit = options.allowSuccessfulExit;
    form.enableGlobbing = options.globbing;
    form.priorityLevel = options.lowPriority ? PriorityLevel::Low : PriorityLevel::Normal;
    form.niceLevel = options.nice ? niceLevel(*options.nice) : 0;
    form.standardInPath = options.standardIn.value_or("");
    form.standardOutPath = options.standardOut.value_or("");
    form.standardErrorPath = options.standardError.value_or("");
    form.workingDirectory = options.workingDirectory.value_or("");
    form.rootDirectory = options.rootDirectory.value_or("");
    form.queueDirectory = options.queue.value_or("");
    form.alsoRunAtLoad = options.alsoAtLoad;
    form.alsoRunOnVolumeMount = options.alsoOnMount;
    form.alsoRunOnPathChange = options.alsoWatch.has_value();
    form.alsoRunPath = options.alsoWatch.value_or("");
    return form;
}

std::string_view optionOf(Fault fault) {
    switch (faultText(fault).row) {
    case FormRow::Name:
        return "--name";
    case FormRow::Target:
        return "--run";
    case FormRow::Action:
        return "--at";
    default:
        return fault <= Fault::DayOutOfRange ? "--on" : "--every";
    }
}

} // namespace frimbolate
