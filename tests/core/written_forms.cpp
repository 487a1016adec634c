#include "tests/core/written_forms.h"

namespace frimbolate::test {

AgentForm idleForm() {
    AgentForm form;
    form.targetType = TargetType::File;
    form.targetPath = "/bin/true";
    form.action = 6;
    form.scheduleType = ScheduleType::NoSelection;
    form.scheduleTime = {2026, 3, 1, 7, 5, 59};
    return form;
}

namespace {

/// The keys that are always written.
AgentPlist idleFile() {
    return {{"Label", label},
            {"ProgramArguments", Array{Value("/bin/true")}},
            {"EnableGlobbing", false},
            {"LowPriorityIO", false},
            {"Nice", 0}};
}

/// The idle form with a value in every field that is not written.
AgentForm unwrittenForm() {
    auto form = idleForm();
    form.name = "Other";
    form.scriptText = "rm -r /";
    form.scriptLanguage = 3;
    form.watchPath = "/other";
    form.scheduleTime = {1999, 12, 31, 7, 5, 1};
    form.intervalText = "77";
    form.intervalUnit = IntervalUnit::Hours;
    form.dayOfMonthText = "17";
    form.allowSuccessfulExit = true;
    form.alsoRunPath = "/other";
    return form;
}

/// The unwritten form with every advanced key and every additional condition.
AgentForm fullForm() {
    auto form = unwrittenForm();
    form.enableGlobbing = true;
    form.priorityLevel = PriorityLevel::Low;
    form.niceLevel = 7;
    form.standardInPath = "/other/in";
    form.standardOutPath = "/other/out";
    form.standardErrorPath = "/other/error";
    form.workingDirectory = "/other/working";
    form.rootDirectory = "/other/root";
    form.queueDirectory = "/other/queue";
    form.alsoRunAtLoad = true;
    form.alsoRunOnVolumeMount = true;
    form.alsoRunOnPathChange = true;
    form.alsoRunPath = "/also";
    return form;
}

AgentPlist fullFile() {
    return {{"Label", label},
            {"ProgramArguments", Array{Value("/bin/true")}},
            {"EnableGlobbing", true},
            {"LowPriorityIO", true},
            {"Nice", 7},
            {"StandardInPath", "/other/in"},
            {"StandardOutPath", "/other/out"},
            {"StandardErrorPath", "/other/error"},
            {"WorkingDirectory", "/other/working"},
            {"RootDirectory", "/other/root"},
            {"QueueDirectories", Array{Value("/other/queue")}},
            {"RunAtLoad", true},
            {"StartOnMount", true},
            {"WatchPaths", Array{Value("/also")}}};
}

} // namespace

std::vector<Start> starts() {
    const Dictionary additional = {
        {"RunAtLoad", true}, {"StartOnMount", true}, {"WatchPaths", Array{Value("/also")}}};
    return {{"nothing else is written", idleForm(), idleFile()},
            {"fields that are not written hold something", unwrittenForm(), idleFile()},
            {"every other key is written", fullForm(), fullFile(), additional}};
}

Dictionary joined(Dictionary one, const Dictionary& over) {
    for (const auto& [key, value] : over)
        one[key] = value;
    return one;
}

AgentPlist fileOf(AgentForm form, const Change& change) {
    change(form);
    return buildAgentPlist(form, label);
}

Change launched(int action, int schedule, std::string number, int unit) {
    return [=, number = std::move(number)](AgentForm& form) {
        form.action = action;
        form.scheduleType = schedule;
        form.intervalText = form.dayOfMonthText = number;
        form.intervalUnit = unit;
        form.watchPath = "/watched";
    };
}

} // namespace frimbolate::test
