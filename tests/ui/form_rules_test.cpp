#include "tests/support/editor_test.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

#include <optional>

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::NamedAfterRow;
using test::Snapshot;
using test::snapshot;
using test::with;
using testing::IsEmpty;

/// The properties that an action sets when a pop-up selects an item. All others must keep their
/// value.
struct RuleRow {
    std::string_view name;
    int selectedItem;
    Snapshot sets;
    std::optional<bool> offersInterval = {}; ///< whether "On Interval" is enabled; unset: unchanged
};

Snapshot joined(Snapshot one, const Snapshot& other) {
    one.insert(other.begin(), other.end());
    return one;
}

/// The disabled items of the schedule: those of the form, with "On Interval" added or removed.
Snapshot disabledItems(FormModel form, bool offersInterval) {
    auto& items = form.agentScheduleTypeButton.disabledItems;
    if (offersInterval)
        items.erase(ScheduleType::OnInterval);
    else
        items.insert(ScheduleType::OnInterval);
    constexpr auto name = "agentScheduleTypeButton.disabledItems";
    return {{name, snapshot(form).at(name)}};
}

class RuleTest : public EditorTest, public testing::WithParamInterface<RuleRow> {
  protected:
    /// Runs the action on each start form and compares the whole form with the row.
    void expectRule(PopUp FormModel::*chosen, void (AppDelegate::*action)()) {
        for (const auto& start : startForms()) {
            SCOPED_TRACE(start.name);
            form = start.form;
            (form.*chosen).selectedItem = GetParam().selectedItem;
            auto expected = with(snapshot(form), GetParam().sets);
            if (GetParam().offersInterval)
                expected = with(expected, disabledItems(form, *GetParam().offersInterval));
            (editor.*action)();
            EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
        }
    }
};

// The action

const Snapshot neutral = {
    {"popoverScriptObject.shown", "no"},          {"alsoRunVolumeCheckbox.enabled", "yes"},
    {"alsoRunPathChangeCheckbox.enabled", "yes"}, {"agentIntervalTypeButton.selectedItem", "0"},
    {"agentIntervalTypeButton.hidden", "yes"},    {"agentIntervalField.stringValue", "\"\""},
    {"agentIntervalField.hidden", "yes"},         {"onMonthTextBox.hidden", "yes"},
    {"onMonthTextField.stringValue", "\"\""},     {"agentScheduleDatePicker.width", "146"},
    {"agentWatchPathImageWell.image", "none"},    {"agentWatchPathImageWell.toolTip", "\"\""},
    {"allowSuccessfulExitCheckbox.state", "0"},   {"allowSuccessfulExitCheckbox.enabled", "no"}};

const Snapshot scheduled = joined({{"agentScheduleTypeButton.enabled", "yes"},
                                   {"agentScheduleTypeButton.selectedItem", "0"},
                                   {"agentScheduleTypeButton.width", "160"},
                                   {"agentScheduleDatePicker.hidden", "no"}},
                                  neutral);

const Snapshot keptRunning = joined({{"allowSuccessfulExitCheckbox.enabled", "yes"}}, scheduled);

const Snapshot triggered = joined({{"agentScheduleTypeButton.enabled", "no"},
                                   {"agentScheduleTypeButton.selectedItem", "-1"},
                                   {"agentScheduleTypeButton.width", "311"},
                                   {"agentScheduleDatePicker.hidden", "yes"},
                                   {"agentScheduleDatePicker.unreadableText", "none"},
                                   {"alsoRunAtLoadCheckbox.enabled", "yes"}},
                                  neutral);

const Snapshot onMount = joined({{"alsoRunVolumeCheckbox.state", "0"},
                                 {"alsoRunVolumeCheckbox.enabled", "no"},
                                 {"agentWatchPathImageWell.image", "resource iconVolumes.png"},
                                 {"agentWatchPathImageWell.toolTip", "\"/Volumes\""}},
                                triggered);

const RuleRow actions[] = {
    {"NoSelection", -1, scheduled, true},       {"None", 0, scheduled, true},
    {"Reserved", 1, scheduled, true},           {"OnSchedule", 2, scheduled, true},
    {"KeepRunning", 3, keptRunning, false},     {"VolumeMounted", 5, onMount, true},
    {"AboveVolumeMounted", 6, triggered, true}, {"FarAbove", 100, triggered, true},
};

class ActionRule : public RuleTest {};

TEST_P(ActionRule, SetsNoMoreAndNoLess) {
    expectRule(&FormModel::agentActionButton, &AppDelegate::chooseAgentAction);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Actions, ActionRule, testing::ValuesIn(actions), NamedAfterRow());

// The schedule

const Snapshot anySchedule = {
    {"popoverScriptObject.shown", "no"},       {"alsoRunAtLoadCheckbox.enabled", "yes"},
    {"onMonthTextBox.hidden", "yes"},          {"agentScheduleDatePicker.hidden", "no"},
    {"agentScheduleDatePicker.width", "146"},  {"agentIntervalField.hidden", "yes"},
    {"agentIntervalTypeButton.hidden", "yes"}, {"agentScheduleTypeButton.width", "160"}};

const Snapshot onInterval = joined({{"agentScheduleDatePicker.hidden", "yes"},
                                    {"agentScheduleDatePicker.unreadableText", "none"},
                                    {"agentIntervalField.hidden", "no"},
                                    {"agentIntervalField.stringValue", "\"\""},
                                    {"agentIntervalTypeButton.hidden", "no"}},
                                   anySchedule);

const Snapshot atLoad = joined({{"agentScheduleDatePicker.hidden", "yes"},
                                {"agentScheduleDatePicker.unreadableText", "none"},
                                {"alsoRunAtLoadCheckbox.state", "0"},
                                {"alsoRunAtLoadCheckbox.enabled", "no"},
                                {"agentScheduleTypeButton.width", "311"}},
                               anySchedule);

const Snapshot onceAMonth = joined({{"onMonthTextBox.hidden", "no"},
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

TEST_P(ScheduleRule, SetsNoMoreAndNoLess) {
    expectRule(&FormModel::agentScheduleTypeButton, &AppDelegate::chooseAgentSchedule);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Schedules, ScheduleRule, testing::ValuesIn(schedules), NamedAfterRow());

// Sequences of actions and schedules

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

TEST_F(FormRules, AnyOtherActionTakesTheSuccessfulExitAwayAgain) {
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

TEST_F(FormRules, KeepRunningChosenAgainIsOffAgain) {
    chooseAction(AgentAction::KeepRunning);
    form.allowSuccessfulExitCheckbox.state = CheckState::On;
    chooseAction(AgentAction::KeepRunning);
    EXPECT_EQ(form.allowSuccessfulExitCheckbox.state, CheckState::Off);
    EXPECT_TRUE(form.allowSuccessfulExitCheckbox.enabled);
}

TEST_F(FormRules, AtLoadTakesTheAdditionalLoadAwayUntilAnotherScheduleIsChosen) {
    for (const int schedule : {12, 13}) {
        form.alsoRunAtLoadCheckbox.state = CheckState::On;
        chooseSchedule(schedule);
        EXPECT_FALSE(form.alsoRunAtLoadCheckbox.enabled);
        chooseSchedule(ScheduleType::EveryDay);
        EXPECT_TRUE(form.alsoRunAtLoadCheckbox.enabled);
        EXPECT_EQ(form.alsoRunAtLoadCheckbox.state, CheckState::Off);
    }
}

TEST_F(FormRules, AnActionByScheduleLeavesTheAdditionalLoadDisabled) {
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

TEST_F(FormRules, ADailyScheduleAfterAMonthlyOneKeepsTheHiddenDay) {
    chooseSchedule(ScheduleType::OnceAMonth);
    form.onMonthTextField.stringValue = "15";
    chooseSchedule(ScheduleType::EverySaturday);
    EXPECT_TRUE(form.onMonthTextBox.hidden);
    EXPECT_EQ(form.onMonthTextField.stringValue, "15");
    EXPECT_EQ(form.agentScheduleDatePicker.width, 146);
}

TEST_F(FormRules, ADailyScheduleAfterAnIntervalKeepsTheHiddenNumber) {
    chooseSchedule(ScheduleType::OnInterval);
    form.agentIntervalField.stringValue = "20";
    form.agentIntervalTypeButton.selectedItem = IntervalUnit::Hours;
    chooseSchedule(ScheduleType::EveryDay);
    EXPECT_EQ(form.agentIntervalField.stringValue, "20");
    EXPECT_EQ(form.agentIntervalTypeButton.selectedItem, IntervalUnit::Hours);
}

} // namespace

} // namespace frimbolate
