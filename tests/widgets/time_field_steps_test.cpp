// Arrow keys and the wheel step a time; the warning about an unreadable text and when it is
// cleared.
#include "tests/widgets/time_field_fixture.h"

namespace frimbolate::test {
namespace {

class In24Hours : public TimeFieldFixture {
  protected:
    In24Hours() : TimeFieldFixture(ClockFormat::TwentyFourHours) {}
};

class In12Hours : public TimeFieldFixture {
  protected:
    In12Hours() : TimeFieldFixture(ClockFormat::TwelveHours) {}
};

// Steps

TEST_F(In24Hours, ArrowsStepThePartUnderTheCursor) {
    enterAt(1);
    press(Qt::Key_Up);
    expectTime(10, 41);
    EXPECT_EQ(line()->selectedText(), "10");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    expectTime(8, 41);
    enterAt(5);
    press(Qt::Key_Down);
    expectTime(8, 40);
    EXPECT_EQ(line()->selectedText(), "40");
    press(Qt::Key_PageUp);
    expectTime(8, 50);
}

TEST_F(In24Hours, EachPartWrapsAround) {
    show([](FormModel& model) { model.agentScheduleDatePicker.dateValue.hour = 23; });
    show([](FormModel& model) { model.agentScheduleDatePicker.dateValue.minute = 59; });
    enterAt(0);
    press(Qt::Key_Up);
    expectTime(0, 59);
    enterAt(3);
    press(Qt::Key_Up);
    expectTime(0, 0);
    press(Qt::Key_Down);
    expectTime(0, 59);
}

TEST_F(In24Hours, WhileTheWholeIsSelectedTheHoursStepAndItStaysSelected) {
    enterByTab();
    press(Qt::Key_Up);
    expectTime(10, 41);
    EXPECT_EQ(line()->selectedText(), "10:41");
    type("0730");
    press(Qt::Key_Return);
    expectTime(7, 30);
}

TEST_F(In24Hours, APendingTextIsReadBeforeItSteps) {
    enterByTab();
    type("730");
    press(Qt::Key_Up);
    expectTime(8, 30);
    EXPECT_EQ(line()->selectedText(), "08:30");
}

TEST_F(In24Hours, AnUnreadableTextIsReportedInsteadOfAStep) {
    enterByTab();
    type("25:00");
    press(Qt::Key_Up);
    expectRejected("25:00");
    EXPECT_EQ(line()->selectedText(), "09:41");
    press(Qt::Key_Up);
    expectTime(10, 41);
}

TEST_F(In24Hours, TheWheelStepsOnlyWhileTheFieldHasTheFocus) {
    find("agentNameTextField")->setFocus();
    turnWheel(1);
    expectTime(9, 41);
    EXPECT_FALSE(field()->hasFocus());
    enterAt(4);
    turnWheel(1);
    expectTime(9, 42);
    turnWheel(-2);
    expectTime(9, 40);
}

TEST_F(In12Hours, ArrowsStepAmAndPm) {
    enterAt(7);
    press(Qt::Key_Up);
    expectTime(21, 41);
    EXPECT_EQ(line()->selectedText(), "PM");
    press(Qt::Key_Down);
    expectTime(9, 41);
    press(Qt::Key_PageUp);
    expectTime(21, 41);
    turnWheel(1);
    expectTime(9, 41);
}

TEST_F(In12Hours, HoursStepThroughNoonAndMidnight) {
    show([](FormModel& model) { model.agentScheduleDatePicker.dateValue.hour = 11; });
    enterAt(1);
    press(Qt::Key_Up);
    expectTime(12, 41);
    EXPECT_EQ(line()->text(), "12:41 PM");
    show([](FormModel& model) { model.agentScheduleDatePicker.dateValue.hour = 23; });
    enterAt(1);
    press(Qt::Key_Up);
    expectTime(0, 41);
    EXPECT_EQ(line()->text(), "12:41 AM");
}

// The warning about an unreadable text

TEST_F(In24Hours, TheNextKeyClearsTheWarning) {
    enterByTab();
    type("25:00");
    press(Qt::Key_Return);
    expectRejected("25:00");
    type("7");
    EXPECT_EQ(hint().toStdString(), dailyHint("09:41"));
    EXPECT_EQ(field()->accessibleDescription(), "");
}

TEST_F(In24Hours, ReturnOnTheKeptTimeClearsTheWarning) {
    enterByTab();
    type("25:00");
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    expectTime(9, 41);
}

TEST_F(In24Hours, LeavingTheFieldKeepsTheWarning) {
    enterByTab();
    type("25:00");
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    expectRejected("25:00");
    enterByTab();
    press(Qt::Key_Tab);
    expectRejected("25:00");
}

TEST_F(In24Hours, AResetAndHidingTheFieldClearTheWarning) {
    for (const bool reset : {true, false}) {
        enterByTab();
        type("25:00");
        press(Qt::Key_Tab);
        expectRejected("25:00");
        if (reset) {
            press(Qt::Key_N, Qt::ControlModifier);
            expectTime(9, 41);
            continue;
        }
        auto* schedule = find<QComboBox>("agentScheduleTypeButton");
        emit schedule->activated(ScheduleType::AtLoad);
        EXPECT_EQ(hint(), "When the agent is loaded, such as at login");
        emit schedule->activated(ScheduleType::EveryDay);
        expectTime(9, 41);
    }
}

TEST_F(In24Hours, AResetWhileATextIsPendingShowsTheTimeOfTheReset) {
    enterByTab();
    type("25:00");
    press(Qt::Key_N, Qt::ControlModifier);
    expectTime(9, 41);
    enterByTab();
    type("0730");
    press(Qt::Key_N, Qt::ControlModifier);
    expectTime(9, 41);
}

TEST_F(In24Hours, AnEmptyFieldIsReported) {
    enterByTab();
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    EXPECT_EQ(hint(), "No time was given; the field keeps 09:41");
    EXPECT_EQ(line()->text(), "09:41");
}

TEST_F(In24Hours, AFaultOfTheRowIsShownTogetherWithTheWarning) {
    show([](FormModel& model) {
        model.agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
        model.onMonthTextBox.hidden = false;
        model.scheduleErrorImageWell.hidden = false;
    });
    const std::string fault = hint().toStdString();
    ASSERT_TRUE(find<ElidedLabel>("scheduleHint")->isWarning());
    enterByClick();
    type("25:00");
    press(Qt::Key_Return);
    const std::string warning = "\u201c25:00\u201d is not a time of day; the field keeps 09:41";
    EXPECT_EQ(hint().toStdString(), fault + "; " + warning);
    EXPECT_EQ(field()->accessibleDescription().toStdString(), warning);
    EXPECT_NE(field()->property("faulty"), true); // the field holds a valid time
}

TEST_F(In12Hours, TheSummaryUsesTheSameClock) {
    show([](FormModel& model) {
        model.agentNameTextField.stringValue = "Backup";
        model.agentTargetButton.selectedItem = TargetType::Script;
        model.scriptPopOverScriptField.stringValue = "ls";
        model.agentActionButton.selectedItem = AgentAction::OnSchedule;
    });
    enterByTab();
    type("1930");
    press(Qt::Key_Return);
    EXPECT_EQ(find<ElidedLabel>("summary")->text(), "Runs a script every day at 07:30 PM.");
}

} // namespace
} // namespace frimbolate::test
