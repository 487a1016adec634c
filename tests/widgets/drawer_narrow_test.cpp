// The drawer on screens where it fits beside the form, and where it slides over the form.
#include "tests/widgets/window_test.h"
#include "widgets/drawer/drawer_panel.h"
#include "widgets/style/tokens.h"

#include <QAction>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>

namespace frimbolate::test {
namespace {

class DrawerOnScreens : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    static QRect available(const QString& screenName) {
        for (const QScreen* screen : QGuiApplication::screens())
            if (screen->name() == screenName)
                return screen->availableGeometry();
        ADD_FAILURE() << "no screen " << screenName.toStdString();
        return {};
    }
    /// Moves the window's frame to this offset from the corner of the screen.
    void moveTo(const QString& screenName, int x, int y) {
        window.move(available(screenName).topLeft() + QPoint(x, y));
        QCoreApplication::processEvents();
        ASSERT_EQ(window.screen()->name(), screenName);
    }
    void toggle() {
        find<QAction>("advancedToolbarItem")->toggle();
        QCoreApplication::processEvents();
    }
    /// The drawer's rectangle, in pixels of the content below the toolbar.
    QRect drawer() { return find("advancedDrawer")->geometry(); }
    QPoint place() const { return window.frameGeometry().topLeft(); }

    void expectClosed() {
        EXPECT_FALSE(form().advancedDrawer.open);
        EXPECT_EQ(form().advancedToolbarItem.action, ToolbarItem::Action::openAdvancedDrawer);
        EXPECT_FALSE(find<QAction>("advancedToolbarItem")->isChecked());
        EXPECT_FALSE(find("advancedDrawer")->isVisible());
    }
};

TEST_F(DrawerOnScreens, NarrowItLiesOverTheFormAndTheWindowKeepsItsSize) {
    moveTo("narrow", 172, 60);
    const QPoint before = place();
    toggle();
    EXPECT_EQ(window.size(), QSize(680, 472));
    EXPECT_EQ(place(), before);
    EXPECT_EQ(drawer(), QRect(280, 0, 400, 380));
    EXPECT_EQ(find("advancedDrawer")->mapTo(&window, QPoint(0, 0)), QPoint(280, 92));
    const QWidget* drawn = window.centralWidget()->childAt(300, 20);
    EXPECT_TRUE(drawn == find("advancedDrawer") || find("advancedDrawer")->isAncestorOf(drawn));
    EXPECT_FALSE(find("form")->visibleRegion().isEmpty());
    toggle();
    expectClosed();
    EXPECT_EQ(window.size(), QSize(680, 472));
}

TEST_F(DrawerOnScreens, NarrowItCastsAShadowOnAnEnabledForm) {
    moveTo("narrow", 172, 60);
    const auto pixel = [this](int x) {
        return window.centralWidget()->grab().toImage().pixelColor(x, 6);
    };
    const QColor plain = pixel(270);
    toggle();
    EXPECT_EQ(pixel(279 - 24), plain);
    EXPECT_LT(pixel(279).lightness(), pixel(268).lightness());
    EXPECT_LT(pixel(268).lightness(), plain.lightness());
    EXPECT_EQ(pixel(290), style::tokens(false).sunken);
    const QWidget* under = window.centralWidget()->childAt(270, 6);
    EXPECT_TRUE(under == find("form") || find("form")->isAncestorOf(under)) << "no scrim";
    toggle();
    EXPECT_EQ(pixel(279), plain);
}

TEST_F(DrawerOnScreens, NarrowTheFocusedControlIsNeverCovered) {
    moveTo("narrow", 172, 60);
    QWidget* name = find("agentNameTextField");
    name->setFocus();
    toggle();
    EXPECT_EQ(window.focusWidget(), find("priorityLevelButton"));
    find("standardInPathField")->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(form().advancedDrawer.open);
    find("advancedToolbarItem")->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(form().advancedDrawer.open) << "the toolbar is not covered";
    find("agentActionButton")->setFocus();
    QCoreApplication::processEvents();
    expectClosed();
    EXPECT_EQ(window.focusWidget(), find("agentActionButton"));
}

TEST_F(DrawerOnScreens, NarrowEscapeAndTheToolbarCloseItAndRestoreTheFocus) {
    moveTo("narrow", 172, 60);
    const std::function<void()> ways[] = {
        [this] { QTest::keyClick(window.focusWidget(), Qt::Key_Escape); }, [this] { toggle(); }};
    for (const auto& close : ways) {
        find("agentActionButton")->setFocus();
        toggle();
        ASSERT_TRUE(form().advancedDrawer.open);
        close();
        QCoreApplication::processEvents();
        expectClosed();
        EXPECT_EQ(window.focusWidget(), find("agentActionButton"));
    }
}

TEST_F(DrawerOnScreens, NarrowTheWindowMovesOntoTheScreenAndBack) {
    moveTo("narrow", 500, 300);
    const QPoint before = place();
    toggle();
    EXPECT_TRUE(available("narrow").contains(window.frameGeometry()));
    toggle();
    EXPECT_EQ(place(), before);
}

TEST_F(DrawerOnScreens, WideItLiesBesideTheFormAndTheFocusStays) {
    moveTo("wide", 100, 60);
    find("agentNameTextField")->setFocus();
    toggle();
    EXPECT_EQ(window.size(), QSize(1080, 472));
    EXPECT_EQ(drawer(), QRect(680, 0, 400, 380));
    EXPECT_EQ(window.focusWidget(), find("agentNameTextField"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(form().advancedDrawer.open);
}

TEST_F(DrawerOnScreens, WideTheWindowMovesBackToItsPosition) {
    const int farRight = available("wide").width() - 700;
    moveTo("wide", farRight, 60);
    const QPoint before = place();
    for (int i = 0; i < 3; ++i) {
        toggle();
        EXPECT_TRUE(available("wide").contains(window.frameGeometry()));
        EXPECT_NE(place(), before);
        toggle();
        EXPECT_EQ(place(), before);
        EXPECT_EQ(window.size(), QSize(680, 472));
    }
}

TEST_F(DrawerOnScreens, WideAReversedSlideKeepsTheWindowsFirstPosition) {
    qunsetenv("FRIMBOLATE_REDUCED_MOTION");
    moveTo("wide", available("wide").width() - 700, 60);
    const QPoint before = place();
    for (int i = 0; i < 4; ++i)
        toggle();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.width() == 680; }));
    EXPECT_EQ(place(), before);
}

TEST_F(DrawerOnScreens, WideItSlidesBehindTheFormAlsoAfterItLayOverIt) {
    moveTo("narrow", 172, 60);
    toggle();
    toggle();
    moveTo("wide", 100, 60);
    qunsetenv("FRIMBOLATE_REDUCED_MOTION");
    toggle();
    ASSERT_LT(drawer().x(), 600);
    const QWidget* drawn = window.centralWidget()->childAt(640, 6);
    EXPECT_TRUE(drawn == find("form") || find("form")->isAncestorOf(drawn));
    EXPECT_TRUE(QTest::qWaitFor([this] { return drawer().x() == 680; }));
}

TEST_F(DrawerOnScreens, WideTheWindowStaysWhereTheUserMovedIt) {
    moveTo("wide", available("wide").width() - 700, 60);
    toggle();
    moveTo("wide", 200, 100);
    const QPoint chosen = place();
    toggle();
    EXPECT_EQ(place(), chosen);
}

TEST_F(DrawerOnScreens, ItFollowsTheWindowToAnotherScreen) {
    moveTo("wide", 100, 60);
    toggle();
    moveTo("narrow", 10, 60);
    EXPECT_EQ(window.size(), QSize(680, 472));
    EXPECT_EQ(drawer(), QRect(280, 0, 400, 380));
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    expectClosed();
    toggle();
    moveTo("wide", 100, 60);
    EXPECT_EQ(window.size(), QSize(1080, 472));
    EXPECT_EQ(drawer(), QRect(680, 0, 400, 380));
}

TEST_F(DrawerOnScreens, NarrowItSlidesInFromTheWindowsEdge) {
    qunsetenv("FRIMBOLATE_REDUCED_MOTION");
    moveTo("narrow", 172, 60);
    toggle();
    EXPECT_GT(drawer().x(), 280);
    EXPECT_LE(drawer().x(), 680);
    EXPECT_TRUE(QTest::qWaitFor([this] { return drawer().x() == 280; }));
    toggle();
    EXPECT_TRUE(find("advancedDrawer")->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !find("advancedDrawer")->isVisible(); }));
    EXPECT_EQ(drawer().x(), 680);
}

} // namespace
} // namespace frimbolate::test
