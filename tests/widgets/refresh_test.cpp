// The cost of one update of the window: the model is read and validated once, whatever is shown.
#include "core/agent_plist.h"
#include "core/validation.h"
#include "tests/widgets/call_counts.h"
#include "tests/widgets/window_test.h"

#include <QAction>
#include <QCoreApplication>

namespace frimbolate::test {

namespace {

class RefreshTest : public WindowTest {
  protected:
    /// Everything that one update can show: every row faulty, the drawer open, an unreadable time,
    /// a command.
    void spoil() {
        show([](FormModel& model) {
            model.agentNameTextField.stringValue = "a b";
            model.agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
            model.onMonthTextField.stringValue = "32";
            model.nameErrorImageWell.hidden = model.targetErrorImageWell.hidden = false;
            model.actionErrorImageWell.hidden = model.scheduleErrorImageWell.hidden = false;
            model.agentScheduleDatePicker.unreadableText = "7x";
            model.actionScriptTextView.string = "launchctl unload '/Users/ada/a.plist'";
            model.advancedDrawer.open = true;
        });
    }

    /// A complete form, so that no fault cuts the presentation short.
    void complete(int scheduleType) {
        show([=](FormModel& model) {
            model.agentNameTextField.stringValue = "Backup";
            model.agentTargetButton.selectedItem = TargetType::File;
            model.agentTargetImageWell.toolTip = "/bin/true";
            model.agentActionButton.selectedItem = AgentAction::OnSchedule;
            model.agentScheduleTypeButton.selectedItem = scheduleType;
            model.onMonthTextField.stringValue = "31";
            model.agentIntervalField.stringValue = "90";
        });
    }

    /// \param agentPlists one is built for the findings, which are those of the file
    void expectOneValidation(int agentPlists = 1) {
        // Calls from later events, such as painting, count as well.
        QCoreApplication::processEvents();
        EXPECT_EQ(callCounts.validations, 1);
        EXPECT_EQ(callCounts.records, 1);
        EXPECT_EQ(callCounts.agentPlists, agentPlists);
    }
};

/// Checks the counters themselves: counters that never count would pass the tests below.
TEST_F(RefreshTest, CountsEveryCall) {
    callCounts = {};
    const auto record = agentForm(form());
    EXPECT_EQ(validate(record), validate(record));
    EXPECT_FALSE(buildAgentPlist(record, "com.frimbolate.a").empty());
    EXPECT_EQ(callCounts.records, 1);
    EXPECT_EQ(callCounts.validations, 2);
    EXPECT_EQ(callCounts.agentPlists, 1);
}

TEST_F(RefreshTest, ValidatesAFaultyFormOnce) {
    spoil();
    callCounts = {};
    window.mirror();
    expectOneValidation();
}

TEST_F(RefreshTest, ValidatesACompleteFormOnce) {
    for (const int type : {ScheduleType::EveryDay, ScheduleType::OnceAMonth, ScheduleType::AtLoad,
                           ScheduleType::OnInterval}) {
        complete(type);
        callCounts = {};
        window.mirror();
        expectOneValidation();
    }
}

TEST_F(RefreshTest, BuildsTheShownPropertyListOnceAndOnlyWhileItIsShown) {
    complete(ScheduleType::EveryDay);
    find<QAction>("showPropertyList")->trigger();
    callCounts = {};
    window.mirror();
    expectOneValidation(2);
    find<QAction>("showForm")->trigger();
    callCounts = {};
    window.mirror();
    expectOneValidation();
}

TEST_F(RefreshTest, ValidatesOnceForATypedCharacter) {
    complete(ScheduleType::OnInterval);
    callCounts = {};
    QTest::keyClick(find("agentNameTextField"), Qt::Key_X);
    EXPECT_EQ(form().agentNameTextField.stringValue, "Backupx");
    expectOneValidation();
}

} // namespace

} // namespace frimbolate::test
