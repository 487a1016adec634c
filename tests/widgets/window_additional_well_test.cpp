// A click on the well of the additional watch path asks for another path.
#include "tests/widgets/window_test.h"
#include "widgets/controls/image_well_button.h"

#include <QCheckBox>

namespace frimbolate::test {
namespace {

class AdditionalWellTest : public WindowTest {
  protected:
    /// Opens the drawer and chooses a path.
    void SetUp() override {
        WindowTest::SetUp();
        show([](FormModel& model) {
            model.advancedDrawer.open = true;
            model.alsoRunPathChangeCheckbox.state = CheckState::On;
            model.alsoRunPathChangeImageWell = {Image::iconForFile("/etc"), "/etc"};
        });
    }

    ImageWellButton* well() { return find<ImageWellButton>("alsoRunPathChangeImageWell"); }

    /// Clicks the well with the mouse.
    void press() { QTest::mouseClick(well(), Qt::LeftButton); }
};

TEST_F(AdditionalWellTest, AClickAsksOnceForAPath) {
    press();
    EXPECT_EQ(platform.journal.lines(),
              std::vector<std::string>{"open panel: Please choose folder:"});
    EXPECT_EQ(platform.shownOpenPanel().directory, "/Applications");
    EXPECT_EQ(form().alsoRunPathChangeImageWell.toolTip, "/etc") << "until one is chosen";
    platform.abandonQuestions();
}

TEST_F(AdditionalWellTest, AChoiceReplacesThePath) {
    press();
    platform.choose("/Users/maya/Pictures");
    window.mirror();
    EXPECT_EQ(form().alsoRunPathChangeImageWell.toolTip, "/Users/maya/Pictures");
    EXPECT_EQ(form().alsoRunPathChangeCheckbox.state, CheckState::On);
    EXPECT_EQ(well()->toolTip(), "/Users/maya/Pictures");
    EXPECT_EQ(well()->image(), Image::iconForFile("/Users/maya/Pictures"));
}

TEST_F(AdditionalWellTest, ACancelledPanelTurnsTheBoxOff) {
    press();
    platform.cancelPanel();
    window.mirror();
    EXPECT_EQ(form().alsoRunPathChangeImageWell.toolTip, "");
    EXPECT_FALSE(find<QCheckBox>("alsoRunPathChangeCheckbox")->isChecked());
}

TEST_F(AdditionalWellTest, EachPressOfTheSpaceBarAsks) {
    for (int times = 0; times < 2; ++times) {
        QTest::keyClick(well(), Qt::Key_Space);
        platform.choose("/Users/maya/Pictures");
    }
    EXPECT_EQ(platform.journal.count("open panel"), 2u);
}

} // namespace
} // namespace frimbolate::test
