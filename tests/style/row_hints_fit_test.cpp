// The hints of the rows can be read whole; a long one is drawn in a shorter wording.
#include "tests/style/window_fixture.h"
#include "tests/support/rows.h"
#include "widgets/controls/elided_label.h"

#include <QTest>

#include <cmath>

namespace frimbolate::test {
namespace {

struct HintRow {
    std::string_view name;
    const char* label;
    void (*setUp)(FormModel& form);
    bool isShortened; ///< at each scale and with each clock
};

class RowHintsFit : public testing::TestWithParam<HintRow> {};

void keepRunning(FormModel& form, bool allowSuccessfulExit) {
    form.agentActionButton.selectedItem = AgentAction::KeepRunning;
    form.allowSuccessfulExitCheckbox.state = allowSuccessfulExit ? CheckState::On : CheckState::Off;
}

void monthly(FormModel& form, const char* day) {
    form.agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
    form.onMonthTextField.stringValue = day;
}

TEST_P(RowHintsFit, TheirLine) {
    WindowFixture fixture;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&fixture.window));
    GetParam().setUp(fixture.form());
    fixture.form().agentScheduleDatePicker.dateValue.hour = 22; // among the widest
    fixture.form().agentScheduleDatePicker.dateValue.minute = 44;
    fixture.window.mirror();
    QCoreApplication::sendPostedEvents();
    const auto* hint = fixture.find<ElidedLabel>(GetParam().label);
    const QString drawn = hint->drawnText();
    EXPECT_LE(std::ceil(QFontMetricsF(hint->font()).horizontalAdvance(drawn)), hint->width())
        << drawn.toStdString();
    EXPECT_EQ(drawn != hint->text(), GetParam().isShortened) << drawn.toStdString();
    EXPECT_EQ(hint->toolTip(), hint->text());
}

const HintRow hintRows[] = {
    {"Python", "targetHint",
     [](FormModel& form) {
         form.agentTargetButton.selectedItem = TargetType::File;
         form.agentTargetImageWell.toolTip = "/Users/maya/tool.py";
     },
     true},
    {"Finding", "targetHint",
     [](FormModel& form) {
         form.agentTargetButton.selectedItem = TargetType::File;
         form.agentTargetImageWell.toolTip =
             "/Users/maya/Library/Application Scripts/holidays/$USER/back up photos.sh";
     },
     true},
    {"KeptRunning", "actionHint", [](FormModel& form) { keepRunning(form, false); }, false},
    {"KeptRunningUntilItSucceeds", "actionHint", [](FormModel& form) { keepRunning(form, true); },
     true},
    {"Weekly", "scheduleHint",
     [](FormModel& form) {
         form.agentScheduleTypeButton.selectedItem = ScheduleType::EveryWednesday;
     },
     false},
    {"The28th", "scheduleHint", [](FormModel& form) { monthly(form, "28"); }, false},
    {"The30th", "scheduleHint", [](FormModel& form) { monthly(form, "30"); }, true},
    {"LongInterval", "scheduleHint",
     [](FormModel& form) {
         form.agentScheduleTypeButton.selectedItem = ScheduleType::OnInterval;
         form.agentIntervalField.stringValue = "2147483647";
     },
     false},
};

INSTANTIATE_TEST_SUITE_P(Table, RowHintsFit, testing::ValuesIn(hintRows), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
