// The position, size and closing of the script pop-over.
#include "tests/widgets/window_test.h"

#include <QScreen>

namespace frimbolate::test {
namespace {

class ScriptPopOverTest : public WindowTest {
  protected:
    QWidget* popOver() { return find("popoverScriptObject"); }
    void open() {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        show([](FormModel& model) {
            model.showPopOverScriptButton.hidden = false;
            model.popoverScriptObject.shown = true;
        });
        ASSERT_TRUE(QTest::qWaitFor([this] { return popOver()->isVisible(); }));
    }
};

TEST_F(ScriptPopOverTest, ClosingTheWindowClosesItPermanently) {
    open();
    window.close();
    window.mirror();
    EXPECT_FALSE(form().popoverScriptObject.shown);
    EXPECT_FALSE(popOver()->isVisible());

    delegate.applicationShouldHandleReopen();
    window.mirror();
    QCoreApplication::processEvents();
    ASSERT_TRUE(window.isVisible());
    EXPECT_FALSE(popOver()->isVisible());
}

TEST_F(ScriptPopOverTest, NearTheEdgeOfTheScreenItOpensOnTheOtherSideOfItsButton) {
    const QRect free = window.screen()->availableGeometry();
    for (const QPoint& corner :
         {QPoint(60, 60), QPoint(free.right() - 690, 60),
          QPoint(free.right() - 690, free.bottom() - 480), QPoint(60, free.bottom() - 480)}) {
        window.move(corner);
        open();
        const QRect place = popOver()->geometry();
        const QWidget* button = find("showPopOverScriptButton");
        const QRect anchor(button->mapToGlobal(QPoint(0, 0)), button->size());
        EXPECT_TRUE(free.contains(place)) << corner.x() << ',' << corner.y();
        EXPECT_FALSE(place.intersects(anchor)) << corner.x() << ',' << corner.y();
        EXPECT_EQ(place.right() < anchor.left(), corner.x() > 60) << "left only at the right edge";
        constexpr int nearTip = 7;
        const QPoint tip(corner.x() > 60 ? anchor.left() - nearTip : anchor.right() + nearTip,
                         anchor.center().y() + 1);
        EXPECT_TRUE(popOver()->mask().contains(popOver()->mapFromGlobal(tip)));
        EXPECT_FALSE(popOver()->mask().contains(popOver()->mapFromGlobal(tip + QPoint(0, 5))));
        show([](FormModel& model) { model.popoverScriptObject.shown = false; });
        ASSERT_TRUE(QTest::qWaitFor([this] { return !popOver()->isVisible(); }));
    }
}

TEST_F(ScriptPopOverTest, ItsContentDoesNotCoverTheArrow) {
    const QRect free = window.screen()->availableGeometry();
    for (const bool isAtTheRight : {false, true}) {
        window.move(isAtTheRight ? free.right() - 690 : 60, 60);
        open();
        QCoreApplication::processEvents();
        const QWidget* script = find("scriptPopOverScriptField");
        const int left = script->geometry().left();
        const int right = popOver()->width() - 1 - script->geometry().right();
        EXPECT_EQ(left - right, isAtTheRight ? -9 : 9);
        show([](FormModel& model) { model.popoverScriptObject.shown = false; });
        ASSERT_TRUE(QTest::qWaitFor([this] { return !popOver()->isVisible(); }));
    }
}

TEST_F(ScriptPopOverTest, TheUserCanEnlargeItBesideItsButton) {
    for (const int x : {60, 2100}) {
        window.move(x, 60);
        open();
        const QSize small = popOver()->size();
        QTest::mouseClick(find("largerScript"), Qt::LeftButton);
        EXPECT_GT(popOver()->width(), small.width() + 200);
        EXPECT_GT(popOver()->height(), small.height() + 150);
        EXPECT_TRUE(window.screen()->availableGeometry().contains(popOver()->geometry()));
        const QWidget* button = find("showPopOverScriptButton");
        const QRect anchor(button->mapToGlobal(QPoint(0, 0)), button->size());
        EXPECT_FALSE(popOver()->geometry().intersects(anchor));
        EXPECT_EQ(popOver()->focusWidget(), find("scriptPopOverScriptField"));
        QTest::mouseClick(find("largerScript"), Qt::LeftButton);
        EXPECT_EQ(popOver()->size(), small);
        show([](FormModel& model) { model.popoverScriptObject.shown = false; });
        ASSERT_TRUE(QTest::qWaitFor([this] { return !popOver()->isVisible(); }));
    }
}

TEST_F(ScriptPopOverTest, TabStaysInTheScriptAndEscapeCloses) {
    open();
    QWidget* script = find("scriptPopOverScriptField");
    QTest::keyClick(script, Qt::Key_Tab);
    EXPECT_EQ(form().scriptPopOverScriptField.stringValue, "\t");
    const char* const order[] = {"largerScript", "scriptPopOverLanguageButton",
                                 "scriptPopOverScriptField"};
    QTest::keyClick(script, Qt::Key_Tab, Qt::ControlModifier);
    for (const char* name : order) {
        EXPECT_EQ(popOver()->focusWidget()->objectName(), name);
        QTest::keyClick(popOver()->focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(script, Qt::Key_Escape);
    EXPECT_FALSE(popOver()->isVisible());
    EXPECT_FALSE(form().popoverScriptObject.shown);
}

} // namespace
} // namespace frimbolate::test
