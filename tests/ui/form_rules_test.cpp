#include "tests/support/editor_test.h"
#include "tests/support/form_picture.h"
#include "tests/support/rows.h"

namespace frimbolate {

namespace {

using test::differences;
using test::dirtyForm;
using test::EditorTest;
using test::NamedAfterRow;
using test::Picture;
using test::picture;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

/// What an action sets, when one pop-up selects an item; all else must stay as it was.
struct RuleRow {
    std::string_view name;
    int selectedItem;
    Picture sets;
};

Picture joined(Picture one, const Picture& other) {
    one.insert(other.begin(), other.end());
    return one;
}

class RuleTest : public EditorTest, public testing::WithParamInterface<RuleRow> {
  protected:
    /// Runs an action on two forms whose flags are all opposite, and compares the whole form.
    void expectRule(PopUp FormModel::*chosen, void (AppDelegate::*action)()) {
        for (const bool flag : {false, true}) {
            SCOPED_TRACE(flag ? "flags set" : "flags not set");
            form = dirtyForm(flag);
            (form.*chosen).selectedItem = GetParam().selectedItem;
            const auto expected = with(picture(form), GetParam().sets);
            (editor.*action)();
            EXPECT_THAT(differences(expected, picture(form)), IsEmpty());
        }
    }
};

// The action

const Picture neutral = {{"popoverScriptObject.shown", "no"},
                         {"alsoRunVolumeCheckbox.enabled", "yes"},
                         {"alsoRunPathChangeCheckbox.enabled", "yes"},
                         {"agentIntervalTypeButton.selectedItem", "0"},
                         {"agentIntervalTypeButton.hidden", "yes"},
                         {"agentIntervalField.stringValue", "\"\""},
                         {"agentIntervalField.hidden", "yes"},
                         {"onMonthTextBox.hidden", "yes"},
                         {"onMonthTextField.stringValue", "\"\""},
                         {"agentScheduleDatePicker.width", "146"},
                         {"agentWatchPathImageWell.image", "none"},
                         {"agentWatchPathImageWell.toolTip", "\"\""},
                         {"agentScheduleTypeButton.disabledItems", "0 5"},
                         {"allowSuccessfulExitCheckbox.state", "0"},
                         {"allowSuccessfulExitCheckbox.enabled", "no"}};

const Picture scheduled = joined({{"agentScheduleTypeButton.enabled", "yes"},
                                  {"agentScheduleTypeButton.selectedItem", "0"},
                                  {"agentScheduleTypeButton.width", "160"},
                                  {"agentScheduleDatePicker.hidden", "no"}},
                                 neutral);

const Picture keptRunning = joined({{"agentScheduleTypeButton.disabledItems", "0 5 14"},
                                    {"allowSuccessfulExitCheckbox.enabled", "yes"}},
                                   scheduled);

const Picture triggered = joined({{"agentScheduleTypeButton.enabled", "no"},
                                  {"agentScheduleTypeButton.selectedItem", "-1"},
                                  {"agentScheduleTypeButton.width", "311"},
                                  {"agentScheduleDatePicker.hidden", "yes"},
                                  {"alsoRunAtLoadCheckbox.enabled", "yes"}},
                                 neutral);

const Picture onMount = joined({{"alsoRunVolumeCheckbox.state", "0"},
                                {"alsoRunVolumeCheckbox.enabled", "no"},
                                {"agentWatchPathImageWell.image", "resource iconVolumes.png"},
                                {"agentWatchPathImageWell.toolTip", "\"/Volumes\""}},
                               triggered);

const RuleRow actions[] = {
    {"NoSelection", -1, scheduled},       {"None", 0, scheduled},
    {"Reserved", 1, scheduled},           {"OnSchedule", 2, scheduled},
    {"KeepRunning", 3, keptRunning},      {"VolumeMounted", 5, onMount},
    {"AboveVolumeMounted", 6, triggered}, {"FarAbove", 100, triggered},
};

class ActionRule : public RuleTest {};

TEST_P(ActionRule, setsNoMoreAndNoLess) {
    expectRule(&FormModel::agentActionButton, &AppDelegate::chooseAgentAction);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Actions, ActionRule, testing::ValuesIn(actions), NamedAfterRow());

// The schedule

const Picture anySchedule = {
    {"popoverScriptObject.shown", "no"},       {"alsoRunAtLoadCheckbox.enabled", "yes"},
    {"onMonthTextBox.hidden", "yes"},          {"agentScheduleDatePicker.hidden", "no"},
    {"agentScheduleDatePicker.width", "146"},  {"agentIntervalField.hidden", "yes"},
    {"agentIntervalTypeButton.hidden", "yes"}, {"agentScheduleTypeButton.width", "160"}};

const Picture onInterval = joined({{"agentScheduleDatePicker.hidden", "yes"},
                                   {"agentIntervalField.hidden", "no"},
                                   {"agentIntervalField.stringValue", "\"\""},
                                   {"agentIntervalTypeButton.hidden", "no"}},
                                  anySchedule);

const Picture atLoad = joined({{"agentScheduleDatePicker.hidden", "yes"},
                               {"alsoRunAtLoadCheckbox.state", "0"},
                               {"alsoRunAtLoadCheckbox.enabled", "no"},
                               {"agentScheduleTypeButton.width", "311"}},
                              anySchedule);

const Picture onceAMonth = joined({{"onMonthTextBox.hidden", "no"},
                                   {"onMonthTextField.stringValue", "\"\""},
                                   {"alsoRunAtLoadCheckbox.state", "0"},
                                   {"agentScheduleDatePicker.width", "90"}},
                                  anySchedule);

const RuleRow schedules[] = {
    {"FarBelow", -100, anySchedule},     {"NoSelection", -1, anySchedule},
    {"EveryDay", 0, anySchedule},        {"Reserved1", 1, anySchedule},
    {"EverySunday", 2, anySchedule},     {"EverySaturday", 8, anySchedule},
    {"Reserved9", 9, anySchedule},       {"OnceAMonth", 10, onceAMonth},
    {"Reserved11", 11, onceAMonth},      {"AtLoad", 12, atLoad},
    {"Reserved13", 13, atLoad},          {"OnInterval", 14, onInterval},
    {"AboveOnInterval", 15, onInterval}, {"FarAbove", 100, onInterval},
};

class ScheduleRule : public RuleTest {};

TEST_P(ScheduleRule, setsNoMoreAndNoLess) {
    expectRule(&FormModel::agentScheduleTypeButton, &AppDelegate::chooseAgentSchedule);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Schedules, ScheduleRule, testing::ValuesIn(schedules), NamedAfterRow());

// Actions and schedules, one after the other

class FormRules : public EditorTest {
  protected:
    FormRules() {
        editor.createNewAgent();
        platform.journal.clear();
    }

    void chooseAction(int action) {
        form.agentActionButton.selectedItem = action;
        editor.chooseAgentAction();
    }

    void chooseSchedule(int schedule) {
        form.agentScheduleTypeButton.selectedItem = schedule;
        editor.chooseAgentSchedule();
    }
};

TEST_F(FormRules, anyOtherActionTakesTheSuccessfulExitAwayAgain) {
    for (const int other : {0, 1, 2, 5, 6}) {
        SCOPED_TRACE(other);
        chooseAction(AgentAction::KeepRunning);
        EXPECT_TRUE(form.agentScheduleTypeButton.disabledItems.contains(14));
        EXPECT_TRUE(form.allowSuccessfulExitCheckbox.enabled);
        form.allowSuccessfulExitCheckbox.state = CheckState::On;

        chooseAction(other);
        EXPECT_FALSE(form.agentScheduleTypeButton.disabledItems.contains(14));
        EXPECT_FALSE(form.allowSuccessfulExitCheckbox.enabled);
        EXPECT_EQ(form.allowSuccessfulExitCheckbox.state, CheckState::Off);
    }
}

TEST_F(FormRules, keepRunningChosenAgainIsOffAgain) {
    chooseAction(AgentAction::KeepRunning);
    form.allowSuccessfulExitCheckbox.state = CheckState::On;
    chooseAction(AgentAction::KeepRunning);
    EXPECT_EQ(form.allowSuccessfulExitCheckbox.state, CheckState::Off);
    EXPECT_TRUE(form.allowSuccessfulExitCheckbox.enabled);
}

TEST_F(FormRules, atLoadTakesTheAdditionalLoadAwayUntilAnotherScheduleIsChosen) {
    for (const int schedule : {12, 13}) {
        form.alsoRunAtLoadCheckbox.state = CheckState::On;
        chooseSchedule(schedule);
        EXPECT_FALSE(form.alsoRunAtLoadCheckbox.enabled);
        chooseSchedule(ScheduleType::EveryDay);
        EXPECT_TRUE(form.alsoRunAtLoadCheckbox.enabled);
        EXPECT_EQ(form.alsoRunAtLoadCheckbox.state, CheckState::Off);
    }
}

TEST_F(FormRules, anActionByScheduleLeavesTheAdditionalLoadDisabled) {
    for (const int action : {0, 1, 2, 3}) {
        SCOPED_TRACE(action);
        chooseSchedule(ScheduleType::AtLoad);
        chooseAction(action);
        EXPECT_EQ(form.agentScheduleTypeButton.selectedItem, ScheduleType::EveryDay);
        EXPECT_FALSE(form.alsoRunAtLoadCheckbox.enabled);
        EXPECT_EQ(form.alsoRunAtLoadCheckbox.state, CheckState::Off);
    }
    chooseAction(AgentAction::VolumeMounted);
    EXPECT_TRUE(form.alsoRunAtLoadCheckbox.enabled);
    chooseSchedule(ScheduleType::AtLoad);
    chooseSchedule(ScheduleType::EveryMonday);
    EXPECT_TRUE(form.alsoRunAtLoadCheckbox.enabled);
}

TEST_F(FormRules, aDailyScheduleAfterAMonthlyOneKeepsTheHiddenDay) {
    chooseSchedule(ScheduleType::OnceAMonth);
    form.onMonthTextField.stringValue = "15";
    chooseSchedule(ScheduleType::EverySaturday);
    EXPECT_TRUE(form.onMonthTextBox.hidden);
    EXPECT_EQ(form.onMonthTextField.stringValue, "15");
    EXPECT_EQ(form.agentScheduleDatePicker.width, 146);
}

TEST_F(FormRules, aDailyScheduleAfterAnIntervalKeepsTheHiddenNumber) {
    chooseSchedule(ScheduleType::OnInterval);
    form.agentIntervalField.stringValue = "20";
    form.agentIntervalTypeButton.selectedItem = IntervalUnit::Hours;
    chooseSchedule(ScheduleType::EveryDay);
    EXPECT_EQ(form.agentIntervalField.stringValue, "20");
    EXPECT_EQ(form.agentIntervalTypeButton.selectedItem, IntervalUnit::Hours);
}

// The reset

class FormReset : public EditorTest {
  protected:
    static Picture newAgent() {
        return joined(scheduled, {{"advancedDrawer.open", "no"},
                                  {"advancedToolbarItem.action", "openAdvancedDrawer"},
                                  {"nameErrorImageWell.hidden", "yes"},
                                  {"targetErrorImageWell.hidden", "yes"},
                                  {"actionErrorImageWell.hidden", "yes"},
                                  {"scheduleErrorImageWell.hidden", "yes"},
                                  {"agentNameTextField.stringValue", "\"\""},
                                  {"agentTargetButton.selectedItem", "0"},
                                  {"agentTargetImageWell.image", "none"},
                                  {"agentTargetImageWell.toolTip", "\"\""},
                                  {"showPopOverScriptButton.hidden", "yes"},
                                  {"showPopOverScriptButton.toolTip", "\"Click to edit script\""},
                                  {"scriptPopOverLanguageButton.selectedItem", "0"},
                                  {"scriptPopOverScriptField.stringValue", "\"\""},
                                  {"agentActionButton.selectedItem", "0"},
                                  {"agentScheduleDatePicker.dateValue", "2026-11-21 9:41:7"},
                                  {"niceLevelSlider.value", "0.000000"},
                                  {"niceLevelTextField.stringValue", "\"0\""},
                                  {"standardInPathField.stringValue", "\"\""},
                                  {"standardOutPathField.stringValue", "\"\""},
                                  {"standardErrorPathField.stringValue", "\"\""},
                                  {"workingDirectoryField.stringValue", "\"\""},
                                  {"rootDirectoryField.stringValue", "\"\""},
                                  {"queueDirectoryField.stringValue", "\"\""},
                                  {"alsoRunAtLoadCheckbox.state", "0"},
                                  {"alsoRunAtLoadCheckbox.enabled", "yes"},
                                  {"alsoRunPathChangeCheckbox.state", "0"},
                                  {"alsoRunVolumeCheckbox.state", "0"},
                                  {"alsoRunPathChangeImageWell.image", "none"},
                                  {"alsoRunPathChangeImageWell.toolTip", "\"\""},
                                  // From the preferences, which are all at their defaults
                                  {"enableGlobbingCheckbox.state", "0"},
                                  {"priorityLevelButton.selectedItem", "1"},
                                  {"showWelcomeWindowCheckbox.state", "1"},
                                  {"autoCopyScriptCheckbox.state", "0"},
                                  {"warnSuccessfulExitCheckbox.state", "1"},
                                  {"globalGlobbingCheckbox.selectedItem", "1"},
                                  {"globalPriorityCheckbox.selectedItem", "0"}});
    }
};

TEST_F(FormReset, setsNoMoreAndNoLess) {
    for (const bool flag : {false, true}) {
        SCOPED_TRACE(flag ? "flags set" : "flags not set");
        form = dirtyForm(flag);
        auto sets = newAgent();
        sets.erase("popoverScriptObject.shown"); // it stays as it is
        const auto expected = with(picture(form), sets);
        editor.createNewAgent();
        EXPECT_THAT(differences(expected, picture(form)), IsEmpty());
    }
}

TEST_F(FormReset, endsByNormalisingThePreferences) {
    editor.createNewAgent();
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("synchronize: defaults",
                    "log: No key found for ShowWelcomeWindow, writing default of True - 3.0",
                    "set: ShowWelcomeWindow = True - 3.0",
                    "log: No key found for AutoCopyScriptsKey, writing default of False",
                    "set: AutoCopyScriptsKey = False",
                    "log: No key found for WarnForSuccessfulExit, writing default of True",
                    "set: WarnForSuccessfulExit = True",
                    "log: No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
                    "set: DefaultGlobbingKey = 1",
                    "log: No key found or key is 0 for DefaultPriorityKey, writing default of 0",
                    "set: DefaultPriorityKey = 0"));
}

TEST_F(FormReset, takesGlobbingAndPriorityFromThePreferences) {
    platform.defaults.contents["DefaultGlobbingKey"] = "0";
    platform.defaults.contents["DefaultPriorityKey"] = "1";
    editor.createNewAgent();
    EXPECT_TRUE(agentForm(form).enableGlobbing);
    EXPECT_EQ(agentForm(form).priorityLevel, PriorityLevel::Low);
}

TEST_F(FormReset, takesNoNumberForAPreference) {
    platform.defaults.contents["DefaultGlobbingKey"] = 0;
    platform.defaults.contents["DefaultPriorityKey"] = 1;
    editor.createNewAgent();
    EXPECT_FALSE(agentForm(form).enableGlobbing);
    EXPECT_EQ(agentForm(form).priorityLevel, PriorityLevel::Normal);
}

TEST_F(FormReset, givesARecordThatIsNew) {
    form = dirtyForm(true);
    editor.createNewAgent();
    AgentForm expected;
    expected.scheduleTime = platform.time;
    EXPECT_EQ(agentForm(form), expected);
}

TEST_F(FormReset, keepsTheTimeAtWhichItRan) {
    editor.createNewAgent();
    platform.time.hour = 22;
    EXPECT_EQ(form.agentScheduleDatePicker.dateValue.hour, 9);
}

// The nice level

struct LevelRow {
    std::string_view name;
    double value;
    std::string text;
};

class NiceLevel : public EditorTest, public testing::WithParamInterface<LevelRow> {};

TEST_P(NiceLevel, isMirroredAsText) {
    form = dirtyForm(true);
    form.niceLevelSlider.value = GetParam().value;
    const auto expected =
        with(picture(form), {{"niceLevelTextField.stringValue", '"' + GetParam().text + '"'}});
    editor.niceLevelSliderValueChanged();
    EXPECT_THAT(differences(expected, picture(form)), IsEmpty());
}

const LevelRow levels[] = {
    {"Least", -20.0, "-20"},
    {"Most", 20.0, "20"},
    {"Zero", 0.0, "0"},
    {"FractionIsCutOff", 2.9, "2"},
    {"NegativeFractionIsCutOff", -2.9, "-2"},
    {"NearZero", -0.9, "0"},
    {"Most32Bits", 2147483647.0, "2147483647"},
    {"Beyond32Bits", 2147483648.0, "-2147483648"},
    {"WrapsToOne", 4294967297.0, "1"},
};

INSTANTIATE_TEST_SUITE_P(Levels, NiceLevel, testing::ValuesIn(levels), NamedAfterRow());

} // namespace

} // namespace frimbolate
