// The geometry of the window, the drawer and the columns of the card.
#include "tests/widgets/window_test.h"

#include <QAction>
#include <QScreen>
#include <QToolBar>

namespace frimbolate::test {
namespace {

class WindowGeometryTest : public WindowTest {
  protected:
    QRect inWindow(const char* name) {
        QWidget* widget = find(name);
        return {widget->mapTo(&window, QPoint(0, 0)), widget->size()};
    }
    void settle() { ASSERT_TRUE(QTest::qWaitForWindowExposed(&window)); }
    void setDrawerOpen(bool open) {
        show([open](FormModel& model) { model.advancedDrawer.open = open; });
    }
};

TEST_F(WindowGeometryTest, TheWindowCannotBeResized) {
    for (const bool open : {false, true, false}) {
        setDrawerOpen(open);
        const QSize size(open ? 1080 : 680, 472);
        EXPECT_EQ(window.size(), size);
        EXPECT_EQ(window.minimumSize(), size);
        EXPECT_EQ(window.maximumSize(), size);
    }
}

TEST_F(WindowGeometryTest, TheCardFollowsItsColumns) {
    settle();
    show([](FormModel& model) {
        model.showPopOverScriptButton.hidden = false;
        model.targetErrorImageWell.hidden = false;
        model.agentTargetTipButton.hidden = false;
    });
    QCoreApplication::processEvents();
    constexpr int card = 24, cardTop = 28 + 64 + 24, row = 72, line = 12;
    EXPECT_EQ(inWindow("mainWindowToolbar"), QRect(0, 28, 680, 64));
    EXPECT_EQ(inWindow("agentNameTextField"), QRect(card + 152, cardTop + line, 311, 32));
    EXPECT_EQ(inWindow("agentTargetButton"), QRect(card + 152, cardTop + row + line, 311, 32));
    EXPECT_EQ(inWindow("agentTargetImageWell"), QRect(card + 472, cardTop + row + line, 32, 32));
    EXPECT_EQ(inWindow("showPopOverScriptButton"), QRect(card + 512, cardTop + row + line, 32, 32));
    EXPECT_EQ(inWindow("targetErrorImageWell").left(), card + 560);
    EXPECT_EQ(inWindow("agentTargetTipButton").left(), card + 588);
    EXPECT_EQ(inWindow("agentActionButton"), QRect(card + 152, cardTop + 2 * row + line, 311, 32));
    EXPECT_EQ(inWindow("agentScheduleTypeButton"),
              QRect(card + 152, cardTop + 3 * row + line, 160, 32));
    EXPECT_EQ(inWindow("agentScheduleDatePicker"),
              QRect(card + 152 + 165, cardTop + 3 * row + line, 146, 32));
}

TEST_F(WindowGeometryTest, TheScheduleRowFillsItsColumn) {
    settle();
    show([](FormModel& model) {
        model.onMonthTextBox.hidden = false;
        model.agentScheduleDatePicker.width = 90;
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(inWindow("onMonthTextBox").width(), 51);
    EXPECT_EQ(inWindow("agentScheduleDatePicker").right() + 1, 24 + 152 + 311);
    show([](FormModel& model) {
        model.onMonthTextBox.hidden = model.agentScheduleDatePicker.hidden = true;
        model.agentIntervalField.hidden = model.agentIntervalTypeButton.hidden = false;
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(inWindow("agentIntervalField").width(), 52);
    EXPECT_EQ(inWindow("agentIntervalTypeButton").right() + 1, 24 + 152 + 311);
}

TEST_F(WindowGeometryTest, NothingMovesWhenAMarkerOrATipIsHidden) {
    settle();
    const QRect before = inWindow("agentNameTextField");
    for (const bool hidden : {false, true})
        show([hidden](FormModel& model) {
            model.nameErrorImageWell.hidden = hidden;
            model.agentNameTipButton.hidden = hidden;
            model.showPopOverScriptButton.hidden = hidden;
        });
    QCoreApplication::processEvents();
    EXPECT_EQ(inWindow("agentNameTextField"), before);
}

TEST_F(WindowGeometryTest, TheDrawerLiesRightOfTheForm) {
    setDrawerOpen(true);
    EXPECT_TRUE(find("advancedDrawer")->isVisible());
    EXPECT_EQ(inWindow("advancedDrawer"), QRect(680, 92, 400, 380));
    setDrawerOpen(false);
    EXPECT_FALSE(find("advancedDrawer")->isVisible());
}

TEST_F(WindowGeometryTest, EverythingInTheDrawerFitsIntoIt) {
    setDrawerOpen(true);
    const QWidget* drawer = find("advancedDrawer");
    int seen = 0;
    for (const auto* part : drawer->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        EXPECT_TRUE(drawer->rect().adjusted(0, 0, -16, -8).contains(part->geometry()))
            << part->objectName().toStdString();
        ++seen;
    }
    EXPECT_GE(seen, 26);
}

TEST_F(WindowGeometryTest, TheDrawerSlidesOutUnlessMotionIsReduced) {
    qunsetenv("FRIMBOLATE_REDUCED_MOTION");
    settle();
    setDrawerOpen(true);
    EXPECT_EQ(window.width(), 1080);
    EXPECT_TRUE(QTest::qWaitFor([this] { return find("advancedDrawer")->x() == 680; }));
    setDrawerOpen(false);
    EXPECT_TRUE(find("advancedDrawer")->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.width() == 680; }));
    EXPECT_FALSE(find("advancedDrawer")->isVisible());
}

TEST_F(WindowGeometryTest, ManyTogglesLeaveTheWindowOnTheScreen) {
    qunsetenv("FRIMBOLATE_REDUCED_MOTION");
    settle();
    const QRect free = window.screen()->availableGeometry();
    window.move(free.right() - 690, 40);
    for (int i = 1; i <= 21; ++i)
        setDrawerOpen(i % 2 == 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return find("advancedDrawer")->x() == 680; }));
    EXPECT_EQ(window.size(), QSize(1080, 472));
    if (free.width() >= 1100) {
        EXPECT_LE(window.frameGeometry().right(), free.right());
    } else {
        EXPECT_EQ(window.frameGeometry().left(), free.left());
    }
}

} // namespace
} // namespace frimbolate::test
