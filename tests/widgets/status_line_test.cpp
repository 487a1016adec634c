// The next run in the status line, beside the sentence.
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"

#include <QCoreApplication>
#include <QTimer>

namespace frimbolate::test {
namespace {

using namespace std::chrono;

class StatusLineTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        window.setWallClock([this] { return WallClock(now); });
    }

    /// A complete form that is run daily at a time.
    void schedule(int hour, const char* path = "/bin/true") {
        show([=](FormModel& model) {
            model.agentNameTextField.stringValue = "Backup";
            model.agentTargetButton.selectedItem = TargetType::File;
            model.agentTargetImageWell.toolTip = path;
            model.agentActionButton.selectedItem = AgentAction::OnSchedule;
            model.agentScheduleTypeButton.selectedItem = ScheduleType::EveryDay;
            model.agentScheduleDatePicker.set({.hour = hour, .minute = 5});
        });
    }

    std::string shown() {
        const auto* label = find<ElidedLabel>("nextRun");
        return label->isVisible() ? label->text().toStdString() : "hidden";
    }

    LocalMinute now = LocalMinute(local_days(2026y / November / 21) + hours(6));
};

TEST_F(StatusLineTest, ShowsTheNextRunOfACompleteForm) {
    EXPECT_EQ(shown(), "hidden");
    schedule(7);
    EXPECT_EQ(shown().rfind("Next: Saturday 21 November, 07:05", 0), 0U) << shown();
    EXPECT_EQ(find<ElidedLabel>("summary")->text().toStdString().rfind("Runs true every day", 0),
              0U);
    show([](FormModel& model) { model.agentNameTextField.stringValue.clear(); });
    EXPECT_EQ(shown(), "hidden");
}

TEST_F(StatusLineTest, ShowsNoNextRunWhereNoneCanBeKnown) {
    schedule(7);
    show([](FormModel& model) {
        model.agentActionButton.selectedItem = AgentAction::PathModified;
        model.agentWatchPathImageWell.toolTip = "/a";
    });
    EXPECT_EQ(shown(), "hidden");
}

TEST_F(StatusLineTest, ElidesTheSentenceButNeverTheNextRun) {
    schedule(7, "/bin/a_program_with_a_name_that_takes_most_of_the_status_line_for_itself");
    QCoreApplication::processEvents();
    const auto* next = find<ElidedLabel>("nextRun");
    const auto* sentence = find<ElidedLabel>("summary");
    EXPECT_GE(next->width(), next->fontMetrics().horizontalAdvance(next->text()));
    EXPECT_LT(sentence->width(), sentence->fontMetrics().horizontalAdvance(sentence->text()));
    EXPECT_GT(next->geometry().left(), sentence->geometry().right());
    EXPECT_EQ(sentence->toolTip(), sentence->text());
}

TEST_F(StatusLineTest, FollowsTheTime) {
    schedule(7);
    now += hours(2);
    auto* timer = find<QTimer>("nextRunTimer");
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->intervalAsDuration(), minutes(1));
    ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
    EXPECT_EQ(shown().rfind("Next: Sunday 22 November, ", 0), 0U) << shown();
}

} // namespace
} // namespace frimbolate::test
