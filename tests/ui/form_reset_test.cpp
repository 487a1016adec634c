// The form of a new agent, and the text of the nice level, which the reset sets from the slider.
#include "tests/support/editor_test.h"
#include "tests/support/rows.h"

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::NamedAfterRow;
using test::Snapshot;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

// The reset

class FormReset : public EditorTest {
  protected:
    static Snapshot newAgent() {
        return {{"advancedDrawer.open", "no"},
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
                {"agentWatchPathImageWell.image", "none"},
                {"agentWatchPathImageWell.toolTip", "\"\""},
                {"agentScheduleTypeButton.enabled", "yes"},
                {"agentScheduleTypeButton.selectedItem", "0"},
                {"agentScheduleTypeButton.width", "160"},
                {"agentScheduleDatePicker.hidden", "no"},
                {"agentScheduleDatePicker.width", "146"},
                {"agentScheduleDatePicker.dateValue", "2026-11-21 9:41:7"},
                {"agentScheduleDatePicker.unreadableText", "none"},
                {"agentIntervalField.hidden", "yes"},
                {"agentIntervalField.stringValue", "\"\""},
                {"agentIntervalTypeButton.hidden", "yes"},
                {"agentIntervalTypeButton.selectedItem", "0"},
                {"onMonthTextBox.hidden", "yes"},
                {"onMonthTextField.stringValue", "\"\""},
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
                {"alsoRunPathChangeCheckbox.enabled", "yes"},
                {"alsoRunVolumeCheckbox.state", "0"},
                {"alsoRunVolumeCheckbox.enabled", "yes"},
                {"allowSuccessfulExitCheckbox.state", "0"},
                {"allowSuccessfulExitCheckbox.enabled", "no"},
                {"alsoRunPathChangeImageWell.image", "none"},
                {"alsoRunPathChangeImageWell.toolTip", "\"\""},
                // From the preferences, which all hold their defaults
                {"enableGlobbingCheckbox.state", "0"},
                {"priorityLevelButton.selectedItem", "1"},
                {"showWelcomeWindowCheckbox.state", "1"},
                {"autoCopyScriptCheckbox.state", "0"},
                {"warnSuccessfulExitCheckbox.state", "1"},
                {"globalGlobbingCheckbox.selectedItem", "1"},
                {"globalPriorityCheckbox.selectedItem", "0"}};
    }
};

TEST_F(FormReset, SetsNoMoreAndNoLess) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        auto allowed = form;
        allowed.agentScheduleTypeButton.disabledItems.erase(ScheduleType::OnInterval);
        const auto expected = with(snapshot(allowed), newAgent());
        editor.createNewAgent();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    }
}

TEST_F(FormReset, EndsByNormalisingThePreferences) {
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

TEST_F(FormReset, TakesGlobbingAndPriorityFromThePreferences) {
    platform.defaults.contents["DefaultGlobbingKey"] = "0";
    platform.defaults.contents["DefaultPriorityKey"] = "1";
    editor.createNewAgent();
    EXPECT_TRUE(agentForm(form).enableGlobbing);
    EXPECT_EQ(agentForm(form).priorityLevel, PriorityLevel::Low);
}

TEST_F(FormReset, TakesNoNumberForAPreference) {
    platform.defaults.contents["DefaultGlobbingKey"] = 0;
    platform.defaults.contents["DefaultPriorityKey"] = 1;
    editor.createNewAgent();
    EXPECT_FALSE(agentForm(form).enableGlobbing);
    EXPECT_EQ(agentForm(form).priorityLevel, PriorityLevel::Normal);
}

TEST_F(FormReset, GivesARecordThatIsNew) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        editor.createNewAgent();
        AgentForm expected;
        expected.scheduleTime = platform.time;
        EXPECT_EQ(agentForm(form), expected);
    }
}

TEST_F(FormReset, KeepsTheTimeAtWhichItRan) {
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

TEST_P(NiceLevel, IsMirroredAsText) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        form.niceLevelSlider.value = GetParam().value;
        const auto expected =
            with(snapshot(form), {{"niceLevelTextField.stringValue", '"' + GetParam().text + '"'}});
        editor.niceLevelSliderValueChanged();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    }
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
