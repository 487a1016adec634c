// A press on the well of the additional watch path chooses it anew.
#include "tests/widgets/window_test.h"
#include "widgets/controls/image_well_button.h"

#include <QCheckBox>

namespace frimbolate::test {
namespace {

class AdditionalWellTest : public WindowTest {
  protected:
    /// With the drawer open and a path chosen.
    void SetUp() override {
        WindowTest::SetUp();
        show([](FormModel& model) {
            model.advancedDrawer.open = true;
            model.alsoRunPathChangeCheckbox.state = CheckState::On;
            model.alsoRunPathChangeImageWell = {Image::iconForFile("/etc"), "/etc"};
        });
    }

    ImageWellButton* well() { return find<ImageWellButton>("alsoRunPathChangeImageWell"); }

    /// Presses the well as the mouse does.
    void press() { QTest::mouseClick(well(), Qt::LeftButton); }
};

TEST_F(AdditionalWellTest, APressAsksOnceForAPath) {
    press();
    EXPECT_EQ(platform.journal.lines(),
              std::vector<std::string>{"open panel: Please choose folder:"});
    EXPECT_EQ(platform.shownOpenPanel().directory, "/Applications");
    EXPECT_EQ(form().alsoRunPathChangeImageWell.toolTip, "/etc") << "until one is chosen";
    platform.abandonQuestions();
}

TEST_F(AdditionalWellTest, WhatIsChosenTakesThePlaceOfThePath) {
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
