#include "core/form_summary.h"

#include "core/agent_plist.h"
#include "core/conversions.h"
#include "core/schedule_text.h"
#include "core/script_types.h"
#include "core/sentence_words.h"

#include <array>

namespace frimbolate {

namespace {

/// The name of the target in a sentence.
std::string targetName(const AgentForm& form) {
    if (form.targetType != TargetType::File)
        return form.scriptText.empty() ? "an empty script" : "a script";
    return programName(form.targetPath);
}

bool usesSchedule(const AgentForm& form) { return form.action <= AgentAction::KeepRunning; }

/// The additional path replaces the main one, as it does in the agent file.
const std::string& watchedPath(const AgentForm& form) {
    return form.alsoRunOnPathChange ? form.alsoRunPath : form.watchPath;
}

bool watchesPath(const AgentForm& form) {
    return form.action == AgentAction::PathModified || form.alsoRunOnPathChange;
}

/// Kept running only after a first start by demand, which is made by a path or a queue alone:
/// launchd starts such an agent neither by calendar nor interval, nor at load, nor for a mount.
bool waitsForDemand(const AgentForm& form) {
    return form.action == AgentAction::KeepRunning && form.scheduleType != ScheduleType::AtLoad;
}

bool hasDemand(const AgentForm& form) { return watchesPath(form) || !form.queueDirectory.empty(); }

/// What starts the agent by demand.
Words demands(const AgentForm& form, const TextStyle& style) {
    Words words;
    if (watchesPath(form))
        words.push_back("when " + shownPath(watchedPath(form), style.home) + " changes");
    if (!form.queueDirectory.empty())
        words.push_back("as long as " + shownPath(form.queueDirectory, style.home) +
                        " is not empty");
    return words;
}

Words launchConditions(const AgentForm& form, const Faults& faults, const TextStyle& style) {
    Words demand = demands(form, style);
    if (waitsForDemand(form))
        return demand;
    Words words;
    if (usesSchedule(form))
        if (auto schedule = scheduleText(form, faults, style.clock); !schedule.empty())
            words.push_back(std::move(schedule));
    const bool alreadyAtLoad = usesSchedule(form) && form.scheduleType == ScheduleType::AtLoad;
    if (form.alsoRunAtLoad && !alreadyAtLoad)
        words.emplace_back("when the agent is loaded, such as at login");
    if (form.action == AgentAction::VolumeMounted || form.alsoRunOnVolumeMount)
        words.emplace_back("when a volume is mounted");
    words.insert(words.end(), demand.begin(), demand.end());
    return words;
}

/// \param started the words after "once"
std::string keptRunning(const AgentForm& form, std::string_view started = "it has been started") {
    std::string text = "Kept running ";
    text.append(form.allowSuccessfulExit ? "until it succeeds, once " : "once ").append(started);
    return hasDemand(form) ? text : text + "; nothing in this form starts it";
}

/// The path that a row needs although validation does not require it; empty where none is missing.
std::string_view missingPath(const AgentForm& form, FormRow row) {
    if (row == FormRow::Target && form.targetType == TargetType::File && form.targetPath.empty())
        return "something to launch";
    if (row == FormRow::Action && form.action == AgentAction::PathModified &&
        watchedPath(form).empty())
        return "a path to watch";
    return "";
}

/// What the form lacks, in the order of the rows.
Words missingParts(const AgentForm& form, const Faults& faults) {
    Words words;
    for (const auto row : formRows) {
        if (const auto* fault = faultOfRow(faults, row); fault && !fault->missing.empty())
            words.emplace_back(fault->missing);
        if (const auto path = missingPath(form, row); !path.empty())
            words.emplace_back(path);
    }
    // The additional path belongs to the drawer, which comes after all rows.
    if (form.action != AgentAction::PathModified && watchesPath(form) && watchedPath(form).empty())
        words.emplace_back("a path to watch");
    return words;
}

/// What is missing, then what is wrong; empty for a complete form.
std::string missingOrInvalid(const AgentForm& form, const Faults& faults) {
    const Words missing = missingParts(form, faults);
    Words parts;
    if (!missing.empty())
        parts.push_back("still needs " + joined(missing, ", ", " and "));
    for (const Fault fault : faults)
        if (const auto& text = faultText(fault); text.missing.empty())
            parts.push_back(uncapitalized(std::string(text.hint)));
    return joined(parts, "; ", "; ");
}

bool needsRemovedInterpreter(const AgentForm& form) {
    if (form.targetType != TargetType::File)
        return false;
    const auto* type = scriptTypeWithExtension(targetExtension(form.targetPath));
    return type && type->interpreter == removedInterpreter;
}

std::string targetHint(const AgentForm& form, std::string_view home) {
    if (form.targetType == TargetType::None ||
        (form.targetType == TargetType::File && form.targetPath.empty()))
        return "Choose an application or a script, or drop one on the box";
    if (needsRemovedInterpreter(form))
        return "macOS no longer has " + std::string(removedInterpreter) +
               "; choose a script with its own interpreter line and no .py, or type one";
    if (form.targetType == TargetType::File)
        return shownPath(form.targetPath, home);
    return form.scriptText.empty() ? "An empty script"
                                   : "Script: " + replacedAll(form.scriptText, "\n", " ");
}

std::string actionHint(const AgentForm& form, std::string_view home) {
    switch (form.action) {
    case AgentAction::None:
        return "Choose a schedule or an event that starts the agent";
    case AgentAction::KeepRunning:
        if (waitsForDemand(form))
            return keptRunning(form);
        return form.allowSuccessfulExit ? "Launched as scheduled, and again whenever it fails"
                                        : "Launched as scheduled, and again whenever it ends";
    case AgentAction::PathModified:
        return form.watchPath.empty() ? "Choose the file or folder to watch"
                                      : "Watches " + shownPath(form.watchPath, home);
    case AgentAction::VolumeMounted:
        return "Launched whenever a file system is mounted";
    default:
        return usesSchedule(form) ? "Launched as scheduled below" : "Never launched";
    }
}

std::string scheduleRowHint(const AgentForm& form, const Faults& faults, ClockFormat clock) {
    if (!usesSchedule(form))
        return "Not used: the condition above launches the agent";
    if (waitsForDemand(form))
        return "Not used: the agent waits for a first start";
    const auto words = scheduleHint(form, faults, clock);
    return words.empty() ? "Never" : capitalized(words);
}

void addShortHints(RowHints& hints, const AgentForm& form, const Faults& faults,
                   const TextStyle& style) {
    hints.targetWarns = needsRemovedInterpreter(form);
    if (hints.targetWarns)
        hints.shortTarget = "macOS no longer has " + std::string(removedInterpreter) +
                            "; choose a script without .py, or type one";
    hints.actionWarns = waitsForDemand(form) && !hasDemand(form);
    if (waitsForDemand(form))
        hints.shortAction = keptRunning(form, "started");
    else if (usesSchedule(form))
        hints.shortSchedule = capitalized(shortScheduleHint(form, faults, style.clock));
}

} // namespace

Summary summary(const AgentForm& form, const Faults& faults, const TextStyle& style) {
    if (const auto lacking = missingOrInvalid(form, faults); !lacking.empty())
        return {capitalized(lacking) + ".", false};
    if (waitsForDemand(form) && !hasDemand(form))
        return {keptRunning(form) + ".", false};
    const auto conditions = launchConditions(form, faults, style);
    if (conditions.empty())
        return {"Never runs " + targetName(form) + ": nothing launches it.", false};
    std::string sentence = "Runs " + targetName(form) + " " + joined(conditions, ", ", ", and ");
    if (form.action == AgentAction::KeepRunning)
        sentence += form.allowSuccessfulExit ? ", and keeps it running until it succeeds"
                                             : ", and keeps it running";
    return {sentence + ".", true};
}

RowHints rowHints(const AgentForm& form, const Faults& faults, const RowFlags& marked,
                  const TextStyle& style) {
    RowHints hints{proposedFileName(form.name.empty() ? "<name>" : form.name),
                   targetHint(form, style.home),
                   actionHint(form, style.home),
                   scheduleRowHint(form, faults, style.clock),
                   {},
                   {},
                   {},
                   false,
                   false};
    addShortHints(hints, form, faults, style);
    constexpr std::array<std::string RowHints::*, formRows.size()> members = {
        &RowHints::name, &RowHints::target, &RowHints::action, &RowHints::schedule};
    for (const auto row : formRows) {
        const auto index = static_cast<std::size_t>(row);
        if (const auto* fault = faultOfRow(faults, row); fault && marked[index])
            hints.*members[index] = fault->hint;
    }
    return hints;
}

} // namespace frimbolate
