#include "core/agent_plist.h"

#include "core/conversions.h"
#include "core/script_types.h"

namespace frimbolate {

namespace {

constexpr std::string_view fileSuffix = ".plist";

Array programArguments(const AgentForm& form) {
    if (form.targetType != TargetType::File)
        return {Value(shellScript.interpreter), Value("-c"), Value(form.scriptText)};
    if (const auto* type = scriptTypeWithExtension(targetExtension(form.targetPath)))
        return {Value(type->interpreter), Value(form.targetPath)};
    return {Value(form.targetPath)};
}

/// The leading integer of a field's text times a factor, truncated to the 32 bits of launchd.
std::int32_t scaledInteger(std::string_view text, std::uint64_t factor) {
    const auto number = static_cast<std::uint64_t>(leadingInteger(text));
    return truncatedTo32Bits(static_cast<std::int64_t>(number * factor));
}

std::uint64_t secondsPer(int unit) {
    return unit == IntervalUnit::Hours ? 3600 : unit == IntervalUnit::Minutes ? 60 : 1;
}

Dictionary calendarInterval(const AgentForm& form) {
    Dictionary calendar = {{"Hour", form.scheduleTime.hour}, {"Minute", form.scheduleTime.minute}};
    const int type = form.scheduleType;
    if (type >= ScheduleType::EverySunday && type <= ScheduleType::EverySaturday)
        calendar["Weekday"] = type - ScheduleType::EverySunday;
    if (type == ScheduleType::OnceAMonth)
        calendar["Day"] = dayOfMonth(form);
    return calendar;
}

void writeSchedule(AgentPlist& file, const AgentForm& form) {
    if (form.scheduleType <= ScheduleType::EverySaturday ||
        form.scheduleType == ScheduleType::OnceAMonth)
        file["StartCalendarInterval"] = calendarInterval(form);
    else if (form.scheduleType == ScheduleType::OnInterval)
        file["StartInterval"] = startInterval(form);
    else if (form.scheduleType == ScheduleType::AtLoad)
        file["RunAtLoad"] = true;
}

Value keepAlive(const AgentForm& form) {
    const bool atLoad = form.scheduleType == ScheduleType::AtLoad;
    if (atLoad && !form.allowSuccessfulExit)
        return true;
    Dictionary conditions;
    if (!atLoad)
        conditions["AfterInitialDemand"] = true;
    if (form.allowSuccessfulExit)
        conditions["SuccessfulExit"] = false;
    return conditions;
}

void writeLaunchCondition(AgentPlist& file, const AgentForm& form) {
    if (form.action <= AgentAction::KeepRunning)
        writeSchedule(file, form);
    if (form.action == AgentAction::KeepRunning)
        file["KeepAlive"] = keepAlive(form);
    if (form.action == AgentAction::PathModified)
        file["WatchPaths"] = Array{Value(form.watchPath)};
    if (form.action == AgentAction::VolumeMounted)
        file["StartOnMount"] = true;
}

void writeAdvancedKeys(AgentPlist& file, const AgentForm& form) {
    file["EnableGlobbing"] = form.enableGlobbing;
    file["LowPriorityIO"] = form.priorityLevel == PriorityLevel::Low;
    file["Nice"] = form.niceLevel;

    const auto writeText = [&file](const char* key, const std::string& text) {
        if (!text.empty())
            file[key] = text;
    };
    writeText("StandardInPath", form.standardInPath);
    writeText("StandardOutPath", form.standardOutPath);
    writeText("StandardErrorPath", form.standardErrorPath);
    writeText("WorkingDirectory", form.workingDirectory);
    writeText("RootDirectory", form.rootDirectory);
    if (!form.queueDirectory.empty())
        file["QueueDirectories"] = Array{Value(form.queueDirectory)};
}

/// Must run last: an additional condition replaces a main one of the same key.
void writeAdditionalConditions(AgentPlist& file, const AgentForm& form) {
    if (form.alsoRunAtLoad)
        file["RunAtLoad"] = true;
    if (form.alsoRunOnVolumeMount)
        file["StartOnMount"] = true;
    if (form.alsoRunOnPathChange)
        file["WatchPaths"] = Array{Value(form.alsoRunPath)};
}

} // namespace

AgentPlist buildAgentPlist(const AgentForm& form, std::string_view label) {
    AgentPlist file;
    file["Label"] = label;
    file["ProgramArguments"] = programArguments(form);
    writeLaunchCondition(file, form);
    writeAdvancedKeys(file, form);
    writeAdditionalConditions(file, form);
    return file;
}

AgentPlist buildStartKeys(const AgentForm& form) {
    AgentPlist keys;
    writeLaunchCondition(keys, form);
    writeAdditionalConditions(keys, form);
    return keys;
}

std::int32_t startInterval(const AgentForm& form) {
    return scaledInteger(form.intervalText, secondsPer(form.intervalUnit));
}

std::int32_t dayOfMonth(const AgentForm& form) { return scaledInteger(form.dayOfMonthText, 1); }

std::string proposedFileName(std::string_view agentName) {
    return std::string(labelPrefix).append(agentName).append(fileSuffix);
}

std::string labelForFileName(std::string_view fileName) {
    std::string label(fileName);
    if (const auto last = label.rfind(fileSuffix); last != std::string::npos)
        label.erase(last, fileSuffix.size());
    return label;
}

std::string_view targetExtension(std::string_view path) { return afterLast(path, "."); }

} // namespace frimbolate
