// The program's longest alerts can be read to the end, by keyboard too.
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/wrapped_text.h"
#include "widgets/sheets/qt_alerts.h"

#include <QPushButton>
#include <QScrollBar>

namespace frimbolate::test {
namespace {

struct LongestAlertsRow {
    const char* name;
    void (*ask)(AppDelegate& delegate);
    bool fits; ///< without scrolling, at the default font size
};

class LongestAlerts : public WindowTest, public testing::WithParamInterface<LongestAlertsRow> {
  protected:
    AlertDialog* shown() {
        GetParam().ask(delegate);
        alerts.show(platform.shownAlert(), {});
        platform.abandonQuestions();
        return qobject_cast<AlertDialog*>(queue.current());
    }

    QtAlerts alerts{queue, window};
};

TEST_P(LongestAlerts, CanBeReadToItsEnd) {
    AlertDialog* dialog = shown();
    ASSERT_NE(dialog, nullptr);
    EXPECT_LE(dialog->panelRect().height(), 348);
    EXPECT_LE(dialog->width(), 680) << "its shadow stays over the form";
    const auto* text = dialog->findChild<WrappedText*>("informativeText");
    ASSERT_NE(text, nullptr);
    const QScrollBar* bar = text->verticalScrollBar();
    EXPECT_EQ(text->height() >= text->heightForWidth(text->width()), GetParam().fits);
    EXPECT_EQ(bar->maximum() == 0, GetParam().fits);
    QWidget* button = dialog->focusWidget();
    ASSERT_TRUE(qobject_cast<QPushButton*>(button));
    if (GetParam().fits)
        return;
    const auto placeAfter = [&](Qt::Key key) {
        QTest::keyClick(button, key);
        EXPECT_EQ(dialog->focusWidget(), button) << "the button keeps the focus";
        return bar->value();
    };
    const int line = placeAfter(Qt::Key_Down);
    EXPECT_GT(line, 0);
    EXPECT_LT(line, bar->maximum());
    EXPECT_EQ(placeAfter(Qt::Key_Up), 0);
    EXPECT_GT(placeAfter(Qt::Key_PageDown), line);
    EXPECT_EQ(placeAfter(Qt::Key_End), bar->maximum());
    EXPECT_LT(placeAfter(Qt::Key_PageUp), bar->maximum());
    EXPECT_EQ(placeAfter(Qt::Key_Home), 0);
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
}

constexpr LongestAlertsRow longAlertRows[] = {
    {"NameTip", [](AppDelegate& delegate) { delegate.showTip("agentNameTipButton"); }, true},
    {"TargetTip", [](AppDelegate& delegate) { delegate.showTip("agentTargetTipButton"); }, false},
    {"ActionTip", [](AppDelegate& delegate) { delegate.showTip("agentActionTipButton"); }, false},
    {"ScheduleTip", [](AppDelegate& delegate) { delegate.showTip("agentScheduleTipButton"); },
     true},
    {"DrawerTip", [](AppDelegate& delegate) { delegate.showTip("advancedDrawerTipButton"); }, true},
    // The longest of all other alerts, with a suppression box.
    {"LoadedAgent", [](AppDelegate& delegate) { delegate.deleteLaunchAgent(); }, true},
    {"AllFaults",
     [](AppDelegate& delegate) {
         delegate.form().agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
         delegate.validateAgentConfig();
     },
     true},
};

INSTANTIATE_TEST_SUITE_P(Table, LongestAlerts, testing::ValuesIn(longAlertRows), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
