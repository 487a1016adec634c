// The dependencies between the controls of the form.
//
// Each rule first resets the dependent controls and then applies the selected item. Controls that a
// rule does not name keep their state.
#include "ui/app_delegate.h"

#include "core/agent_plist.h"
#include "core/bundle_path.h"
#include "core/conversions.h"
#include "core/form_widths.h"

namespace frimbolate {

namespace {

void turnOff(CheckBox& box, bool enabled) {
    box.state = CheckState::Off;
    box.enabled = enabled;
}

} // namespace

void AppDelegate::createNewAgent() {
    if (isReading_)
        resetForm();
    else
        resetForm("New");
}

void AppDelegate::resetForm() {
    closeAdvancedDrawer();
    hideErrorMarkers();
    form_.agentNameTextField.stringValue.clear();
    form_.agentTargetButton.selectedItem = TargetType::None;
    clearTarget();
    form_.showPopOverScriptButton.hidden = true;
    form_.scriptPopOverLanguageButton.selectedItem = ScriptLanguage::Shell;
    form_.scriptPopOverScriptField.stringValue.clear();
    form_.agentActionButton.selectedItem = AgentAction::None;
    form_.agentWatchPathImageWell.clear();
    form_.agentScheduleTypeButton.selectedItem = ScheduleType::EveryDay;
    form_.agentScheduleTypeButton.enabled = true;
    form_.agentScheduleDatePicker.set(services_.clock.now());
    form_.agentScheduleDatePicker.hidden = false;
    form_.agentIntervalField.hidden = true;
    form_.agentIntervalTypeButton.hidden = true;
    form_.agentIntervalField.stringValue.clear();
    form_.agentIntervalTypeButton.selectedItem = IntervalUnit::Seconds;
    form_.onMonthTextBox.hidden = true;
    form_.onMonthTextField.stringValue.clear();
    form_.agentScheduleTypeButton.disabledItems.erase(ScheduleType::OnInterval);
    form_.agentScheduleTypeButton.width = normalScheduleWidth;
    form_.agentScheduleDatePicker.width = normalDatePickerWidth;
    resetDrawerControls();
    form_.showPopOverScriptButton.toolTip = "Click to edit script";
    setUpDefaults(); // sets globbing and priority, too
    afterReset_ = form_;
}

void AppDelegate::hideErrorMarkers() {
    form_.nameErrorImageWell.hidden = true;
    form_.targetErrorImageWell.hidden = true;
    form_.actionErrorImageWell.hidden = true;
    form_.scheduleErrorImageWell.hidden = true;
}

void AppDelegate::resetDrawerControls() {
    form_.niceLevelSlider.value = 0.0;
    niceLevelSliderValueChanged();
    for (auto* field :
         {&form_.standardInPathField, &form_.standardOutPathField, &form_.standardErrorPathField,
          &form_.workingDirectoryField, &form_.rootDirectoryField, &form_.queueDirectoryField})
        field->stringValue.clear();
    turnOff(form_.alsoRunAtLoadCheckbox, true);
    turnOff(form_.alsoRunPathChangeCheckbox, true);
    turnOff(form_.alsoRunVolumeCheckbox, true);
    turnOff(form_.allowSuccessfulExitCheckbox, false);
    form_.alsoRunPathChangeImageWell.clear();
}

void AppDelegate::chooseAgentAction() {
    const FormModel before = takeFormBeforeInput();
    applyAgentAction();
    if (form_.agentActionButton.selectedItem == AgentAction::PathModified)
        chooseWatchPath(before);
}

void AppDelegate::applyAgentAction() {
    setScheduleToNeutral();
    const int action = form_.agentActionButton.selectedItem;
    if (action <= AgentAction::KeepRunning) {
        form_.agentIntervalField.hidden = true;
        form_.agentIntervalTypeButton.hidden = true;
        if (action == AgentAction::KeepRunning) {
            form_.agentScheduleTypeButton.disabledItems.insert(ScheduleType::OnInterval);
            turnOff(form_.allowSuccessfulExitCheckbox, true);
        }
        return;
    }
    // For the other actions the event is the trigger, and no schedule applies.
    form_.agentScheduleTypeButton.selectedItem = ScheduleType::NoSelection;
    chooseAgentSchedule();
    form_.agentScheduleTypeButton.enabled = false;
    form_.agentScheduleDatePicker.hide();
    form_.agentScheduleTypeButton.width = wideScheduleWidth;
    if (action == AgentAction::VolumeMounted) {
        turnOff(form_.alsoRunVolumeCheckbox, false);
        form_.agentWatchPathImageWell.image = Image::resource("iconVolumes.png");
        form_.agentWatchPathImageWell.toolTip = "/Volumes";
    }
    if (action == AgentAction::PathModified)
        turnOff(form_.alsoRunPathChangeCheckbox, false);
}

void AppDelegate::setScheduleToNeutral() {
    closeScriptPopOver();
    form_.alsoRunVolumeCheckbox.enabled = true;
    form_.alsoRunPathChangeCheckbox.enabled = true;
    form_.agentScheduleTypeButton.enabled = true;
    form_.agentScheduleDatePicker.hidden = false;
    form_.agentScheduleTypeButton.selectedItem = ScheduleType::EveryDay;
    form_.agentIntervalTypeButton.selectedItem = IntervalUnit::Seconds;
    form_.agentIntervalField.stringValue.clear();
    form_.onMonthTextBox.hidden = true;
    form_.onMonthTextField.stringValue.clear();
    form_.agentWatchPathImageWell.clear();
    turnOff(form_.allowSuccessfulExitCheckbox, false);
    form_.agentScheduleTypeButton.width = normalScheduleWidth;
    form_.agentScheduleDatePicker.width = normalDatePickerWidth;
    form_.agentScheduleTypeButton.disabledItems.erase(ScheduleType::OnInterval);
}

OpenPanel AppDelegate::watchPathPanel() {
    OpenPanel panel;
    panel.canChooseDirectories = true;
    panel.canCreateDirectories = true;
    panel.prompt = "Select";
    panel.message = "Please choose folder:";
    return panel;
}

void AppDelegate::watchPathChosen(const std::string& path) {
    form_.agentWatchPathImageWell.image = Image::iconForFile(path);
    form_.agentWatchPathImageWell.toolTip = path;
}

void AppDelegate::watchPathDropped(const std::string& path) {
    if (form_.agentActionButton.selectedItem != AgentAction::PathModified)
        return;
    applyAgentAction();
    watchPathChosen(path);
}

void AppDelegate::chooseWatchPath(const FormModel& before) {
    services_.filePanels.open(
        watchPathPanel(),
        lifetime_.whileAlive([this, before](const std::optional<std::string>& path) {
            if (path)
                return watchPathChosen(*path);
            form_.agentActionButton.selectedItem = AgentAction::None;
            form_.agentWatchPathImageWell.clear();
            chooseAgentAction();
            history_.record("Choose Path", before, form_);
        }));
}

void AppDelegate::chooseAgentSchedule() {
    closeScriptPopOver();
    form_.alsoRunAtLoadCheckbox.enabled = true;
    form_.onMonthTextBox.hidden = true;
    form_.agentScheduleDatePicker.width = normalDatePickerWidth;

    // Ranges: a reserved index counts as the schedule before it.
    const int schedule = form_.agentScheduleTypeButton.selectedItem;
    const bool onInterval = schedule >= ScheduleType::OnInterval;
    const bool atLoad = !onInterval && schedule >= ScheduleType::AtLoad;
    const bool onceAMonth = !onInterval && !atLoad && schedule >= ScheduleType::OnceAMonth;

    form_.agentScheduleDatePicker.hidden = false;
    if (onInterval || atLoad)
        form_.agentScheduleDatePicker.hide();
    form_.agentIntervalField.hidden = !onInterval;
    form_.agentIntervalTypeButton.hidden = !onInterval;
    form_.agentScheduleTypeButton.width = atLoad ? wideScheduleWidth : normalScheduleWidth;
    if (onInterval)
        form_.agentIntervalField.stringValue.clear();
    if (atLoad)
        turnOff(form_.alsoRunAtLoadCheckbox, false);
    if (onceAMonth) {
        form_.onMonthTextBox.hidden = false;
        form_.onMonthTextField.stringValue.clear();
        turnOff(form_.alsoRunAtLoadCheckbox, true);
        form_.agentScheduleDatePicker.width = narrowDatePickerWidth;
    }
}

void AppDelegate::niceLevelSliderValueChanged() {
    const auto level = truncatedTo32Bits(toInteger(Value(form_.niceLevelSlider.value)));
    form_.niceLevelTextField.stringValue = std::to_string(level);
}

void AppDelegate::validateSuccessfulExit() {
    if (!isSuccessfulExitAtRisk())
        return;
    services_.alerts.show(
        {"Potential conflict identified...",
         "You've specified to keep a script running all the time, but also allow it to quit upon "
         "a successful exit.\n\nOften, when a script finishes running, it returns a \"successful "
         "exit\" value of 0. If you haven't programmed your script to return a value other than 0 "
         "when it completes, then it may only run once."},
        lifetime_.whileAlive([this](AlertOutcome) {
            // The alert interrupted the user before a script was typed.
            if (form_.agentTargetButton.selectedItem == TargetType::Script &&
                form_.scriptPopOverScriptField.stringValue.empty())
                showPopOverScript();
        }));
}

bool AppDelegate::isSuccessfulExitAtRisk() {
    const int target = form_.agentTargetButton.selectedItem;
    if (form_.allowSuccessfulExitCheckbox.state != CheckState::On ||
        form_.agentActionButton.selectedItem != AgentAction::KeepRunning ||
        (target != TargetType::File && target != TargetType::Script))
        return false;
    const auto bundle = bundlePath(form_.agentTargetImageWell.toolTip);
    services_.defaults.synchronize();
    return holdsString(services_.defaults, PreferenceKey::warnForSuccessfulExit, "True") &&
           targetExtension(bundle) != "app";
}

} // namespace frimbolate
