#include "core/form_history.h"

#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <functional>

namespace frimbolate::test {
namespace {

FormModel named(const std::string& name) {
    FormModel form;
    form.agentNameTextField.stringValue = name;
    return form;
}

std::string nameOf(const std::optional<FormModel>& form) {
    return form ? form->agentNameTextField.stringValue : "nothing";
}

TEST(FormHistory, HasNothingAtFirst) {
    FormHistory history;
    EXPECT_EQ(history.undoName(), "");
    EXPECT_EQ(history.redoName(), "");
    EXPECT_FALSE(history.undo({}));
    EXPECT_FALSE(history.redo({}));
}

TEST(FormHistory, GoesBackAndForthStepByStep) {
    FormHistory history;
    history.record("First", named("a"), named("b"));
    history.record("Second", named("b"), named("c"));
    EXPECT_EQ(history.undoName(), "Second");
    EXPECT_EQ(nameOf(history.undo(named("c, edited"))), "b");
    EXPECT_EQ(history.undoName(), "First");
    EXPECT_EQ(history.redoName(), "Second");
    EXPECT_EQ(nameOf(history.undo(named("b, edited"))), "a");
    EXPECT_EQ(history.undoName(), "");
    EXPECT_EQ(history.redoName(), "First");
    EXPECT_EQ(nameOf(history.redo(named("a, edited"))), "b, edited");
    EXPECT_EQ(nameOf(history.redo(named("b, edited"))), "c, edited");
    EXPECT_EQ(history.redoName(), "");
    EXPECT_EQ(nameOf(history.undo(named("c"))), "b, edited");
    EXPECT_EQ(nameOf(history.undo(named("b"))), "a, edited");
}

TEST(FormHistory, ForgetsUndoneStepsAtANewStep) {
    FormHistory history;
    history.record("First", named("a"), named("b"));
    history.undo(named("b"));
    history.record("Second", named("a"), named("c"));
    EXPECT_EQ(history.redoName(), "");
    EXPECT_FALSE(history.redo(named("c")));
    EXPECT_EQ(nameOf(history.undo(named("c"))), "a");
}

TEST(FormHistory, IgnoresAStepThatChangedNothing) {
    FormHistory history;
    history.record("First", named("a"), named("b"));
    history.undo(named("b"));
    history.record("Nothing", named("a"), named("a"));
    EXPECT_EQ(history.undoName(), "");
    EXPECT_EQ(history.redoName(), "First");
}

struct BoundRow {
    std::string_view name;
    std::size_t steps, kept;
};

class FormHistoryBound : public testing::TestWithParam<BoundRow> {};

TEST_P(FormHistoryBound, HoldsForUndoAndRedo) {
    const auto& [name, steps, kept] = GetParam();
    FormHistory history;
    const auto number = [](std::size_t step) { return std::to_string(step); };
    for (std::size_t step = 0; step < steps; ++step)
        history.record(number(step), named(number(step)), named(number(step + 1)));
    std::size_t undone = 0, redone = 0;
    auto current = named(number(steps));
    for (; auto form = history.undo(current); ++undone)
        current = *form;
    EXPECT_EQ(undone, kept);
    EXPECT_EQ(nameOf(current), number(steps - kept));
    for (; auto form = history.redo(current); ++redone)
        current = *form;
    EXPECT_EQ(redone, kept);
    EXPECT_EQ(nameOf(current), number(steps));
    EXPECT_EQ(history.undoName(), number(steps - 1));
}

const BoundRow boundRows[] = {
    {"One", 1, 1}, {"OneLess", 19, 19}, {"All", 20, 20}, {"OneMore", 21, 20}, {"Many", 50, 20}};

INSTANTIATE_TEST_SUITE_P(Table, FormHistoryBound, testing::ValuesIn(boundRows), NamedAfterRow());

// What belongs to the form

/// The beginnings of the snapshot's names of what does not belong to the form.
const std::vector<std::string> outsideTheForm = {"mainWindow.",
                                                 "mainWindowToolbar.",
                                                 "preferencesMenuItem.",
                                                 "popoverScriptObject.",
                                                 "agentNameTipButton.",
                                                 "agentTargetTipButton.",
                                                 "agentActionTipButton.",
                                                 "agentScheduleTipButton.",
                                                 "advancedDrawerTipButton.",
                                                 "showWelcomeCheckbox.",
                                                 "showWelcomeWindowCheckbox.",
                                                 "autoCopyScriptCheckbox.",
                                                 "warnSuccessfulExitCheckbox.",
                                                 "globalGlobbingCheckbox.",
                                                 "globalPriorityCheckbox.",
                                                 "actionScriptTextView.",
                                                 "copyCommandButton.",
                                                 "autoCopyScriptsCheckbox2."};

bool isOutside(const std::string& property) {
    for (const auto& control : outsideTheForm)
        if (property.starts_with(control))
            return true;
    return false;
}

TEST(RestoredForm, TakesEveryPropertyOfTheFormAndNoOther) {
    for (const bool flag : {false, true}) {
        const FormModel kept = nonDefaultForm(flag);
        const FormModel model = [flag] {
            FormModel other;
            other.mainWindow.visible = !flag;
            other.preferencesMenuItem.enabled = !flag;
            other.actionScriptTextView.string = "launchctl load";
            return other;
        }();
        FormModel restored = model;
        restoreForm(restored, kept);
        const auto was = snapshot(model), wanted = snapshot(kept), is = snapshot(restored);
        int inside = 0;
        for (const auto& [property, value] : is) {
            EXPECT_EQ(value, (isOutside(property) ? was : wanted).at(property)) << property;
            inside += !isOutside(property);
        }
        EXPECT_GT(inside, 80);
    }
}

struct SameRow {
    std::string_view name;
    std::function<void(FormModel&)> change;
    bool isSame;
};

class SameForm : public testing::TestWithParam<SameRow> {};

TEST_P(SameForm, ComparesWhatBelongsToTheForm) {
    for (const bool flag : {false, true}) {
        const FormModel one = nonDefaultForm(flag);
        FormModel other = one;
        GetParam().change(other);
        EXPECT_EQ(sameForm(one, other), GetParam().isSame);
        EXPECT_EQ(sameForm(other, one), GetParam().isSame);
    }
}

const SameRow sameRows[] = {
    {"Nothing", [](FormModel&) {}, true},
    {"Name", [](FormModel& form) { form.agentNameTextField.stringValue += "x"; }, false},
    {"Script", [](FormModel& form) { form.scriptPopOverScriptField.stringValue += "x"; }, false},
    {"WatchPath", [](FormModel& form) { form.agentWatchPathImageWell.toolTip += "x"; }, false},
    {"ErrorMarker",
     [](FormModel& form) { form.nameErrorImageWell.hidden = !form.nameErrorImageWell.hidden; },
     false},
    {"UnreadableTime", [](FormModel& form) { form.agentScheduleDatePicker.unreadableText = "7x"; },
     false},
    {"DrawerOpen", [](FormModel& form) { form.advancedDrawer.open = !form.advancedDrawer.open; },
     false},
    {"NiceLevel", [](FormModel& form) { form.niceLevelSlider.value += 1; }, false},
    {"Hour", [](FormModel& form) { form.agentScheduleDatePicker.dateValue.hour = 3; }, false},
    {"Minute", [](FormModel& form) { form.agentScheduleDatePicker.dateValue.minute = 3; }, false},
    {"Second", [](FormModel& form) { form.agentScheduleDatePicker.dateValue.second = 3; }, true},
    {"Day", [](FormModel& form) { form.agentScheduleDatePicker.dateValue.day = 3; }, true},
    {"Window", [](FormModel& form) { form.mainWindow.visible = !form.mainWindow.visible; }, true},
    {"Tips",
     [](FormModel& form) {
         form.advancedDrawerTipButton.hidden = !form.advancedDrawerTipButton.hidden;
     },
     true},
    {"PopOver",
     [](FormModel& form) { form.popoverScriptObject.shown = !form.popoverScriptObject.shown; },
     true},
    {"Command", [](FormModel& form) { form.actionScriptTextView.string += "x"; }, true},
};

INSTANTIATE_TEST_SUITE_P(Table, SameForm, testing::ValuesIn(sameRows), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
