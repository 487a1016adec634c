#include "core/form_model.h"

#include "core/conversions.h"

namespace frimbolate {

AgentForm agentForm(const FormModel& model) {
    const auto isOn = [](const CheckBox& box) { return box.state == CheckState::On; };
    AgentForm form;
    form.name = model.agentNameTextField.stringValue;
    form.targetType = model.agentTargetButton.selectedItem;
    form.targetPath = model.agentTargetImageWell.toolTip;
    form.scriptText = model.scriptPopOverScriptField.stringValue;
    form.scriptLanguage = model.scriptPopOverLanguageButton.selectedItem;
    form.action = model.agentActionButton.selectedItem;
    form.watchPath = model.agentWatchPathImageWell.toolTip;
    form.scheduleType = model.agentScheduleTypeButton.selectedItem;
    form.scheduleTime = model.agentScheduleDatePicker.dateValue;
    form.intervalText = model.agentIntervalField.stringValue;
    form.intervalUnit = model.agentIntervalTypeButton.selectedItem;
    form.dayOfMonthText = model.onMonthTextField.stringValue;
    form.allowSuccessfulExit = isOn(model.allowSuccessfulExitCheckbox);
    // The globbing box alone counts the mixed state as on.
    form.enableGlobbing = model.enableGlobbingCheckbox.state != CheckState::Off;
    form.priorityLevel = model.priorityLevelButton.selectedItem;
    form.niceLevel = toInteger(Value(model.niceLevelSlider.value));
    form.standardInPath = model.standardInPathField.stringValue;
    form.standardOutPath = model.standardOutPathField.stringValue;
    form.standardErrorPath = model.standardErrorPathField.stringValue;
    form.workingDirectory = model.workingDirectoryField.stringValue;
    form.rootDirectory = model.rootDirectoryField.stringValue;
    form.queueDirectory = model.queueDirectoryField.stringValue;
    form.alsoRunAtLoad = isOn(model.alsoRunAtLoadCheckbox);
    form.alsoRunOnVolumeMount = isOn(model.alsoRunVolumeCheckbox);
    form.alsoRunOnPathChange = isOn(model.alsoRunPathChangeCheckbox);
    form.alsoRunPath = model.alsoRunPathChangeImageWell.toolTip;
    return form;
}

} // namespace frimbolate
