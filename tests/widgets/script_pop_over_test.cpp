// The script pop-over beside its window.
#include "tests/widgets/window_test.h"

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

TEST_F(ScriptPopOverTest, ClosingTheWindowClosesItForGood) {
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

} // namespace
} // namespace frimbolate::test
