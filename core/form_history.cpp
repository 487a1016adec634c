#include "core/form_history.h"

#include <utility>

namespace frimbolate {

namespace {

void copyAllButTheForm(const FormModel& from, FormModel& to) {
    to.mainWindow = from.mainWindow;
    to.mainWindowToolbar = from.mainWindowToolbar;
    to.preferencesMenuItem = from.preferencesMenuItem;
    to.popoverScriptObject = from.popoverScriptObject;
    to.agentNameTipButton = from.agentNameTipButton;
    to.agentTargetTipButton = from.agentTargetTipButton;
    to.agentActionTipButton = from.agentActionTipButton;
    to.agentScheduleTipButton = from.agentScheduleTipButton;
    to.advancedDrawerTipButton = from.advancedDrawerTipButton;
    to.showWelcomeCheckbox = from.showWelcomeCheckbox;
    to.showWelcomeWindowCheckbox = from.showWelcomeWindowCheckbox;
    to.autoCopyScriptCheckbox = from.autoCopyScriptCheckbox;
    to.warnSuccessfulExitCheckbox = from.warnSuccessfulExitCheckbox;
    to.globalGlobbingCheckbox = from.globalGlobbingCheckbox;
    to.globalPriorityCheckbox = from.globalPriorityCheckbox;
    to.actionScriptTextView = from.actionScriptTextView;
    to.copyCommandButton = from.copyCommandButton;
    to.autoCopyScriptsCheckbox2 = from.autoCopyScriptsCheckbox2;
}

LocalDateTime timeAlone(const LocalDateTime& date) {
    LocalDateTime time;
    time.hour = date.hour;
    time.minute = date.minute;
    return time;
}

} // namespace

bool sameForm(const FormModel& one, const FormModel& other) {
    FormModel compared = other;
    copyAllButTheForm(one, compared);
    auto& date = compared.agentScheduleDatePicker.dateValue;
    const auto& expected = one.agentScheduleDatePicker.dateValue;
    if (timeAlone(date) == timeAlone(expected))
        date = expected;
    return compared == one;
}

void restoreForm(FormModel& model, const FormModel& form) {
    FormModel restored = form;
    copyAllButTheForm(model, restored);
    model = std::move(restored);
}

void FormHistory::record(std::string_view name, const FormModel& before, const FormModel& after) {
    if (sameForm(before, after))
        return;
    undone_.clear();
    if (done_.size() == mostSteps)
        done_.erase(done_.begin());
    done_.push_back({std::string(name), before});
}

std::optional<FormModel> FormHistory::undo(const FormModel& current) {
    return exchange(done_, undone_, current);
}

std::optional<FormModel> FormHistory::redo(const FormModel& current) {
    return exchange(undone_, done_, current);
}

std::optional<FormModel> FormHistory::exchange(Steps& from, Steps& to, const FormModel& current) {
    if (from.empty())
        return std::nullopt;
    Step step = std::move(from.back());
    from.pop_back();
    to.push_back({step.name, current});
    return std::move(step.form);
}

} // namespace frimbolate
