// The states of the form that its rules allow: always, and right after a choice.
#include "tests/random_user/rules.h"

#include "core/form_widths.h"

#include <algorithm>
#include <cmath>

namespace frimbolate::test {

namespace {

std::string unless(bool holds, const char* detail) { return holds ? "" : detail; }

bool isOneOf(int value, std::initializer_list<int> allowed) {
    return std::ranges::find(allowed, value) != allowed.end();
}

int action(const Seen& seen) { return seen.form.agentActionButton.selectedItem; }
int target(const Seen& seen) { return seen.form.agentTargetButton.selectedItem; }
int schedule(const Seen& seen) { return seen.form.agentScheduleTypeButton.selectedItem; }

bool isEmpty(const ImageWell& well) {
    return well.toolTip.empty() && well.image.kind == Image::Kind::None;
}

bool isOn(const CheckBox& box) { return box.state == CheckState::On; }
bool isOffAndDisabled(const CheckBox& box) { return box.state == CheckState::Off && !box.enabled; }

/// Which controls stand beside the schedule, and how wide it is.
struct ScheduleControls {
    bool date, interval, day;
    int width, dateWidth;
    friend bool operator==(const ScheduleControls&, const ScheduleControls&) = default;
};

ScheduleControls controlsShown(const FormModel& form) {
    return {!form.agentScheduleDatePicker.hidden, !form.agentIntervalField.hidden,
            !form.onMonthTextBox.hidden, form.agentScheduleTypeButton.width,
            form.agentScheduleDatePicker.width};
}

ScheduleControls controlsOf(int kind, bool isEvent) {
    if (isEvent || kind == ScheduleType::AtLoad)
        return {false, false, false, wideScheduleWidth, normalDatePickerWidth};
    if (kind == ScheduleType::OnInterval)
        return {false, true, false, normalScheduleWidth, normalDatePickerWidth};
    if (kind == ScheduleType::OnceAMonth)
        return {true, false, true, normalScheduleWidth, narrowDatePickerWidth};
    return {true, false, false, normalScheduleWidth, normalDatePickerWidth};
}

bool startsByEvent(const Seen& seen) {
    return isOneOf(action(seen), {AgentAction::PathModified, AgentAction::VolumeMounted});
}

constexpr Rule always[] = {
    {"EveryPopUpShowsAnItemWithAMeaning",
     [](const Seen& seen) -> std::string {
         const FormModel& form = seen.form;
         return unless(isOneOf(target(seen), {0, 2, 3}) && isOneOf(action(seen), {0, 2, 3, 4, 5}) &&
                           isOneOf(schedule(seen), {-1, 0, 2, 3, 4, 5, 6, 7, 8, 10, 12, 14}) &&
                           isOneOf(form.agentIntervalTypeButton.selectedItem, {0, 1, 2}) &&
                           isOneOf(form.priorityLevelButton.selectedItem, {0, 1}) &&
                           form.scriptPopOverLanguageButton.selectedItem == 0 &&
                           isOneOf(form.globalGlobbingCheckbox.selectedItem, {0, 1}) &&
                           isOneOf(form.globalPriorityCheckbox.selectedItem, {0, 1}),
                       "an item without a meaning is selected");
     }},
    {"ATargetHasAPathOnlyWhereItIsAFile",
     [](const Seen& seen) -> std::string {
         return unless(target(seen) == TargetType::File || isEmpty(seen.form.agentTargetImageWell),
                       "there is a path or an image without a file");
     }},
    {"TheScriptButtonIsShownForAScriptAlone",
     [](const Seen& seen) -> std::string {
         return unless(seen.form.showPopOverScriptButton.hidden ==
                           (target(seen) != TargetType::Script),
                       "the button and the kind of target differ");
     }},
    {"OnIntervalIsDisabledForKeptRunningAlone",
     [](const Seen& seen) -> std::string {
         const auto& disabled = seen.form.agentScheduleTypeButton.disabledItems;
         const bool isKept = action(seen) == AgentAction::KeepRunning;
         return unless(disabled.empty() ||
                           (isKept && disabled == std::set<int>{ScheduleType::OnInterval}),
                       "another item or action");
     }},
    {"AnEventHasNoSchedule",
     [](const Seen& seen) -> std::string {
         return unless(!startsByEvent(seen) || (schedule(seen) == ScheduleType::NoSelection &&
                                                !seen.form.agentScheduleTypeButton.enabled),
                       "a schedule is selected or can be");
     }},
    {"OnlyAnEventDisablesTheSchedule",
     [](const Seen& seen) -> std::string {
         return unless(startsByEvent(seen) == !seen.form.agentScheduleTypeButton.enabled,
                       "the schedule is disabled without an event");
     }},
    {"AWatchedPathIsChosen",
     [](const Seen& seen) -> std::string {
         return unless(action(seen) != AgentAction::PathModified || seen.asks ||
                           !seen.form.agentWatchPathImageWell.toolTip.empty(),
                       "a path is to be watched, and none is chosen");
     }},
    {"APathIsWatchedForAnEventAlone",
     [](const Seen& seen) -> std::string {
         return unless(startsByEvent(seen) || isEmpty(seen.form.agentWatchPathImageWell),
                       "a path is kept that nothing watches");
     }},
    {"TheSchedulesControlsAreShown",
     [](const Seen& seen) -> std::string {
         return unless(controlsShown(seen.form) == controlsOf(schedule(seen), startsByEvent(seen)),
                       "other controls or widths than those of the schedule");
     }},
    {"TheIntervalHasItsUnit",
     [](const Seen& seen) -> std::string {
         return unless(seen.form.agentIntervalField.hidden ==
                           seen.form.agentIntervalTypeButton.hidden,
                       "one of the two is hidden");
     }},
    {"AtLoadIsNotAskedForTwice",
     [](const Seen& seen) -> std::string {
         return unless(schedule(seen) != ScheduleType::AtLoad ||
                           isOffAndDisabled(seen.form.alsoRunAtLoadCheckbox),
                       "the check box is on or enabled");
     }},
    {"AnotherWatchedPathIsChosen",
     [](const Seen& seen) -> std::string {
         return unless(!isOn(seen.form.alsoRunPathChangeCheckbox) || seen.asks ||
                           !seen.form.alsoRunPathChangeImageWell.toolTip.empty(),
                       "the check box is on without a path");
     }},
    {"AnEventIsNotAskedForTwice",
     [](const Seen& seen) -> std::string {
         return unless(action(seen) != AgentAction::VolumeMounted ||
                           !isOn(seen.form.alsoRunVolumeCheckbox),
                       "the check box is on, too");
     }},
    {"SuccessfulExitIsForKeptRunningAlone",
     [](const Seen& seen) -> std::string {
         const CheckBox& box = seen.form.allowSuccessfulExitCheckbox;
         return unless((!box.enabled || action(seen) == AgentAction::KeepRunning) &&
                           (!isOn(box) || box.enabled),
                       "the check box is on or enabled");
     }},
    {"CheckBoxesAreOnOrOff",
     [](const Seen& seen) -> std::string {
         const FormModel& form = seen.form;
         for (const CheckBox* box :
              {&form.enableGlobbingCheckbox, &form.alsoRunAtLoadCheckbox,
               &form.alsoRunVolumeCheckbox, &form.alsoRunPathChangeCheckbox,
               &form.allowSuccessfulExitCheckbox, &form.showWelcomeCheckbox,
               &form.showWelcomeWindowCheckbox, &form.autoCopyScriptCheckbox,
               &form.warnSuccessfulExitCheckbox, &form.autoCopyScriptsCheckbox2})
             if (!isOneOf(box->state, {CheckState::Off, CheckState::On}))
                 return std::string("a check box is neither");
         return std::string();
     }},
    {"TheNiceLevelIsThatOfTheSlider",
     [](const Seen& seen) -> std::string {
         const double level = seen.form.niceLevelSlider.value;
         return unless(std::abs(level) <= 20 && seen.form.niceLevelTextField.stringValue ==
                                                    std::to_string(static_cast<int>(level)),
                       "another text or a level out of range");
     }},
    {"AHiddenTimeIsReadable",
     [](const Seen& seen) -> std::string {
         const DatePicker& picker = seen.form.agentScheduleDatePicker;
         const auto& time = picker.dateValue;
         return unless((!picker.hidden || !picker.unreadableText) && time.hour >= 0 &&
                           time.hour <= 23 && time.minute >= 0 && time.minute <= 59,
                       "a hidden field has an unreadable text, or a time is none");
     }},
    {"TheToolbarItemDoesTheOpposite",
     [](const Seen& seen) -> std::string {
         using Action = ToolbarItem::Action;
         return unless((seen.form.advancedToolbarItem.action == Action::closeAdvancedDrawer) ==
                           seen.form.advancedDrawer.open,
                       "it would open an open drawer or close a closed one");
     }},
    {"TheDrawerKeepsItsSize",
     [](const Seen& seen) -> std::string {
         constexpr Size size{400, 380};
         const Drawer& drawer = seen.form.advancedDrawer;
         return unless(drawer.edge == 2 && drawer.contentSize == size &&
                           drawer.minContentSize == size && drawer.maxContentSize == size,
                       "another size or edge");
     }},
    {"AFaultyRowIsMarkedAndExplained",
     [](const Seen& seen) -> std::string {
         const FormModel& form = seen.form;
         const Marker* markers[] = {&form.nameErrorImageWell, &form.targetErrorImageWell,
                                    &form.actionErrorImageWell, &form.scheduleErrorImageWell};
         for (std::size_t row = 0; row < formRows.size(); ++row)
             if (seen.shown.rows[row].isFaulty &&
                 (markers[row]->hidden || seen.shown.rows[row].hint.empty()))
                 return std::string("a faulty row is not marked or not explained");
         return std::string();
     }},
    {"ACompleteFormHasNoFault",
     [](const Seen& seen) -> std::string {
         return unless(!seen.shown.summary.isComplete || seen.shown.faults.empty(),
                       "the summary is complete in spite of a fault");
     }},
    {"OnlyACompleteFormHasANextRun",
     [](const Seen& seen) -> std::string {
         return unless(seen.shown.nextRun.empty() || seen.shown.summary.isComplete,
                       "an incomplete form has a next run");
     }},
};

/// Whether the step has just chosen this item of the pop-up. Not where the choice asked for a path,
/// since the answer may have changed it.
bool hasChosen(const Seen& seen, const char* popUp, int item) {
    const auto& arguments = seen.step.arguments;
    return seen.session.hasChosenItem && seen.step.kind == "choose" && arguments[0] == popUp &&
           arguments[1] == std::to_string(item);
}

bool hasChosenAction(const Seen& seen) {
    return hasChosen(seen, "agentActionButton", action(seen)) && action(seen) != 0;
}

constexpr Rule afterAChoice[] = {
    {"AnActionBeginsWithEveryDay",
     [](const Seen& seen) -> std::string {
         return unless(!hasChosenAction(seen) || startsByEvent(seen) ||
                           schedule(seen) == ScheduleType::EveryDay,
                       "the schedule of the previous action is kept");
     }},
    {"AnActionBeginsWithoutIntervalAndDay",
     [](const Seen& seen) -> std::string {
         return unless(!hasChosenAction(seen) ||
                           (seen.form.agentIntervalField.stringValue.empty() &&
                            seen.form.agentIntervalTypeButton.selectedItem == 0 &&
                            seen.form.onMonthTextField.stringValue.empty()),
                       "a typed interval or day is kept");
     }},
    {"KeptRunningOffersASuccessfulExit",
     [](const Seen& seen) -> std::string {
         if (!hasChosenAction(seen))
             return std::string();
         const CheckBox& box = seen.form.allowSuccessfulExitCheckbox;
         return unless(!isOn(box) && box.enabled == (action(seen) == AgentAction::KeepRunning),
                       "the check box is on, or enabled for another action");
     }},
    {"KeptRunningHasNoInterval",
     [](const Seen& seen) -> std::string {
         const bool isDisabled =
             seen.form.agentScheduleTypeButton.disabledItems.contains(ScheduleType::OnInterval);
         return unless(!hasChosenAction(seen) ||
                           isDisabled == (action(seen) == AgentAction::KeepRunning),
                       "the item is disabled for another action, or enabled for this one");
     }},
    {"TheCheckBoxOfTheActionIsDisabled",
     [](const Seen& seen) -> std::string {
         if (!hasChosenAction(seen))
             return std::string();
         const CheckBox& path = seen.form.alsoRunPathChangeCheckbox;
         const CheckBox& volume = seen.form.alsoRunVolumeCheckbox;
         const bool watches = action(seen) == AgentAction::PathModified;
         const bool mounts = action(seen) == AgentAction::VolumeMounted;
         return unless(watches  ? isOffAndDisabled(path) && volume.enabled
                       : mounts ? isOffAndDisabled(volume) && path.enabled
                                : path.enabled && volume.enabled,
                       "the trigger can be asked for twice, or another one cannot be asked for");
     }},
    {"VolumesAreTheirOwnPath",
     [](const Seen& seen) -> std::string {
         const ImageWell volumes{Image::resource("iconVolumes.png"), "/Volumes"};
         return unless(!hasChosenAction(seen) || action(seen) != AgentAction::VolumeMounted ||
                           seen.form.agentWatchPathImageWell == volumes,
                       "another path or image");
     }},
    {"AScheduleBeginsEmpty",
     [](const Seen& seen) -> std::string {
         const bool hasInterval = hasChosen(seen, "agentScheduleTypeButton", 14);
         const bool hasDay = hasChosen(seen, "agentScheduleTypeButton", 10);
         return unless((!hasInterval || schedule(seen) != 14 ||
                        seen.form.agentIntervalField.stringValue.empty()) &&
                           (!hasDay || schedule(seen) != 10 ||
                            seen.form.onMonthTextField.stringValue.empty()),
                       "a typed interval or day is kept");
     }},
};

} // namespace

std::span<const Rule> formRules() { return always; }
std::span<const Rule> choiceRules() { return afterAChoice; }

} // namespace frimbolate::test
