#include "core/form_presentation.h"

#include "core/agent_plist.h"
#include "core/command_warning.h"
#include "core/conversions.h"
#include "core/launchctl_command.h"
#include "core/next_run.h"
#include "core/schedule_text.h"
#include "core/sentence_words.h"

namespace frimbolate {

namespace {

RowFlags markedRows(const FormModel& model) {
    return {!model.nameErrorImageWell.hidden, !model.targetErrorImageWell.hidden,
            !model.actionErrorImageWell.hidden, !model.scheduleErrorImageWell.hidden};
}

std::string unreadableTime(const FormModel& model, ClockFormat clock) {
    const DatePicker& picker = model.agentScheduleDatePicker;
    if (!picker.unreadableText)
        return "";
    const TimeOfDay kept{picker.dateValue.hour, picker.dateValue.minute};
    return unreadableTimeWords(*picker.unreadableText, kept, clock);
}

CommandPresentation presentCommand(const std::string& command) {
    const auto path = pathOfCommand(command);
    return {isUnloadCommand(command), std::string(afterLast(path, "/")), commandWarning(path)};
}

std::vector<FormFinding> presentFindings(const FormPresentation& form, const TextStyle& style,
                                         const PathLookup& lookUp) {
    CheckContext context;
    context.home = style.home;
    context.pathState = lookUp;
    return shownFindings(form.record, form.faults, context);
}

/// Adds what is wrong to a hint that says none; where it does not fit, it is shown alone.
void addFinding(RowPresentation& row, const FormFinding* finding) {
    if (!finding || row.warns)
        return;
    row.hint.append("; ").append(uncapitalized(finding->text));
    row.shortHint = finding->text;
    row.warns = true;
}

} // namespace

std::string nextRunOf(const AgentForm& form, const WallClock& now, ClockFormat clock) {
    const auto run = nextRun(buildStartKeys(form), now);
    return run ? nextRunText(*run, now.now(), clock) : "";
}

FormPresentation present(const FormModel& model, const TextStyle& style, const PathLookup& lookUp) {
    FormPresentation result;
    result.record = agentForm(model);
    result.faults = validate(result.record);
    result.findings = presentFindings(result, style, lookUp);
    result.summary = summary(result.record, result.faults, style);
    if (style.now && result.summary.isComplete)
        result.nextRun = nextRunOf(result.record, *style.now, style.clock);
    result.unreadableTime = unreadableTime(model, style.clock);
    result.command = presentCommand(model.actionScriptTextView.string);

    const auto marked = markedRows(model);
    auto hints = rowHints(result.record, result.faults, marked, style);
    std::array<std::string*, formRows.size()> lines = {&hints.name, &hints.target, &hints.action,
                                                       &hints.schedule};
    result.rows[static_cast<std::size_t>(FormRow::Target)].shortHint = hints.shortTarget;
    result.rows[static_cast<std::size_t>(FormRow::Action)].shortHint = hints.shortAction;
    result.rows[static_cast<std::size_t>(FormRow::Schedule)].shortHint = hints.shortSchedule;
    for (const auto row : formRows) {
        const auto index = static_cast<std::size_t>(row);
        auto& shown = result.rows[index];
        // A marker stays until the next validation; the row stops looking faulty once corrected.
        shown.isFaulty = marked[index] && faultOfRow(result.faults, row);
        shown.warns = shown.isFaulty || (row == FormRow::Target && hints.targetWarns) ||
                      (row == FormRow::Action && hints.actionWarns);
        shown.hint = std::move(*lines[index]);
        if (row == FormRow::Schedule && !result.unreadableTime.empty()) {
            shown.hint =
                shown.isFaulty ? shown.hint + "; " + result.unreadableTime : result.unreadableTime;
            shown.shortHint.clear();
            shown.warns = true;
        }
        addFinding(shown, findingOfRow(result.findings, row));
    }
    return result;
}

} // namespace frimbolate
