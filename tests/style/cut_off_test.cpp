// No state of the window has clipped content; cutOff() finds clipped content.
#include "tests/style/cut_off.h"
#include "tests/style/window_fixture.h"
#include "widgets/controls/time_field.h"
#include "widgets/controls/wrapped_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace frimbolate::test {

void PrintTo(const UiState& state, std::ostream* out) { *out << state.name; }

namespace {

class UiStateTest : public testing::TestWithParam<UiState> {};

TEST_P(UiStateTest, ShowsEverythingWhole) {
    WindowFixture fixture;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&fixture.window));
    GetParam().setUp(fixture);
    fixture.window.mirror();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(cutOff(fixture.window).join("\n").toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Look, UiStateTest, testing::ValuesIn(uiStates().begin(), uiStates().end()),
                         [](const auto& state) { return std::string(state.param.name); });

TEST(TimesOfDay, FitWhereTheyStand) {
    WindowFixture fixture;
    auto* time = fixture.find<TimeField>("agentScheduleDatePicker");
    for (const char* schedule : {"Every Day", "Once a Month"}) {
        fixture.schedule(schedule);
        for (int minutes = 0; minutes < 24 * 60; ++minutes) {
            fixture.form().agentScheduleDatePicker.dateValue.hour = minutes / 60;
            fixture.form().agentScheduleDatePicker.dateValue.minute = minutes % 60;
            fixture.window.mirror();
            QCoreApplication::sendPostedEvents();
            EXPECT_EQ(cutOff(*time).join("\n").toStdString(), "") << minutes << schedule;
        }
    }
}

/// A window with one control that has too little space.
class CutOffTest : public testing::Test {
  protected:
    template <typename Control>
    bool isFound(Control* control, int width, int height) {
        control->setParent(&window);
        control->setGeometry(4, 4, width, height);
        window.resize(600, 400);
        window.show();
        return !cutOff(window).isEmpty();
    }
    QWidget window;
};

TEST_F(CutOffTest, FindsALabel) { EXPECT_TRUE(isFound(new QLabel("A long label"), 20, 20)); }

TEST_F(CutOffTest, FindsALabelThatWraps) {
    auto* label = new QLabel("A label of so many words that it takes several lines");
    label->setWordWrap(true);
    EXPECT_TRUE(isFound(label, 100, 20));
}

TEST_F(CutOffTest, FindsATextThatWraps) {
    const QString words = "A text of so many words that it takes several lines";
    EXPECT_TRUE(isFound(new WrappedText(words), 100, 20));
}

TEST_F(CutOffTest, FindsAButton) { EXPECT_TRUE(isFound(new QPushButton("A long title"), 30, 32)); }

TEST_F(CutOffTest, FindsACheckBox) { EXPECT_TRUE(isFound(new QCheckBox("A long title"), 30, 32)); }

TEST_F(CutOffTest, FindsAnItemOfAPopUp) {
    auto* box = new QComboBox;
    box->addItems({"short", "an item that is much longer"});
    EXPECT_TRUE(isFound(box, 90, 32));
}

TEST_F(CutOffTest, FindsATime) { EXPECT_TRUE(isFound(new TimeField, 36, 32)); }

TEST_F(CutOffTest, FindsAPlaceholder) {
    auto* field = new QLineEdit;
    field->setPlaceholderText("For example, a long name");
    EXPECT_TRUE(isFound(field, 40, 32));
}

TEST_F(CutOffTest, FindsAControlBeyondTheEdge) {
    EXPECT_TRUE(isFound(new QPushButton("Out"), 700, 32));
}

TEST_F(CutOffTest, FindsNothingWhereThereIsRoom) {
    EXPECT_FALSE(isFound(new QPushButton("Save"), 200, 32));
    EXPECT_FALSE(isFound(new QLabel("A long label"), 200, 32));
    EXPECT_FALSE(isFound(new WrappedText("A text that wraps"), 100, 60));
}

} // namespace
} // namespace frimbolate::test
