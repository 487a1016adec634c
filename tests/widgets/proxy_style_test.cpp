#include "widgets/style/fonts.h"
#include "widgets/style/style.h"
#include "widgets/style/tokens.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

#include <gmock/gmock.h>

namespace frimbolate::style {
namespace {

const Tokens& t() { return tokens(false); }

QColor pixel(QWidget& widget, QPoint where) { return widget.grab().toImage().pixelColor(where); }

/// The middle of the left edge, where the border is a straight line.
QColor border(QWidget& widget) { return pixel(widget, {0, widget.height() / 2}); }

template <typename Widget>
void focus(Widget& widget) {
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget.hasFocus(); }));
}

template <typename Widget>
class Field : public testing::Test {
  protected:
    Field() { widget.resize(120, 32); }
    Widget widget;
};
using Fields = testing::Types<QLineEdit, QComboBox, QSpinBox>;
TYPED_TEST_SUITE(Field, Fields);

TYPED_TEST(Field, ShowsItsStateAsItsBorder) {
    EXPECT_EQ(border(this->widget), t().controlBorder);
    setFaulty(&this->widget, true);
    EXPECT_EQ(border(this->widget), t().faultyBorder);
    setFaulty(&this->widget, false);
    EXPECT_EQ(border(this->widget), t().controlBorder);
    this->widget.setEnabled(false);
    EXPECT_EQ(border(this->widget), t().hairline);
}

TYPED_TEST(Field, ShowsTheFocusInsideItsOwnRectangle) {
    const QSize before = this->widget.sizeHint();
    focus(this->widget);
    EXPECT_EQ(border(this->widget), t().accent);
    EXPECT_EQ(pixel(this->widget, {1, 16}), t().accent);
    EXPECT_NE(pixel(this->widget, {3, 16}), t().accent);
    EXPECT_EQ(this->widget.sizeHint(), before);
}

TEST(Style, TheDefaultButtonHasTheAccent) {
    QPushButton plain("Cancel");
    QPushButton first("Ok");
    first.setDefault(true);
    for (QPushButton* button : {&plain, &first}) {
        button->resize(88, 32);
        button->ensurePolished();
    }
    EXPECT_EQ(pixel(plain, {20, 6}), t().button);
    EXPECT_EQ(pixel(first, {20, 6}), t().accent);
    first.setEnabled(false);
    EXPECT_NE(pixel(first, {20, 6}), t().accent);
}

TEST(Style, ACheckedBoxHasTheAccent) {
    QCheckBox box("Agent loads");
    box.resize(120, 24);
    EXPECT_EQ(pixel(box, {2, 12}), t().field);
    box.setChecked(true);
    EXPECT_EQ(pixel(box, {2, 12}), t().accent);
}

TEST(Style, ASliderIsFilledFromZero) {
    QSlider slider(Qt::Horizontal);
    slider.setRange(-20, 20);
    slider.resize(216, 24); // the handle's centre ranges from 8 to 208; zero is at 108
    slider.setValue(10);
    EXPECT_EQ(pixel(slider, {130, 12}), t().accent);
    EXPECT_EQ(pixel(slider, {80, 12}), t().controlBorder);
    slider.setValue(-10);
    EXPECT_EQ(pixel(slider, {130, 12}), t().controlBorder);
    EXPECT_EQ(pixel(slider, {80, 12}), t().accent);
}

class Fonts : public testing::Test {
  protected:
    ~Fonts() override { setDesktopFont(usual(9)); }
    static QFont usual(double points) {
        QFont result = QApplication::font();
        result.setPointSizeF(points);
        return result;
    }
};

TEST(Style, MnemonicsAreUnderlinedWhileAltIsHeld) {
    QCheckBox box("&Option");
    box.resize(box.sizeHint());
    box.show();
    const auto picture = [&box] { return box.grab().toImage(); };
    const QImage plain = picture();
    QTest::keyPress(&box, Qt::Key_Alt);
    EXPECT_NE(picture(), plain);
    QTest::keyRelease(&box, Qt::Key_Alt);
    EXPECT_EQ(picture(), plain);
}

TEST_F(Fonts, HaveTheirBaseSizesOnADefaultDesktop) {
    setDesktopFont(usual(9));
    EXPECT_EQ(font(FontRole::control).pixelSize(), 13);
    EXPECT_EQ(font(FontRole::hint).pixelSize(), 12);
    EXPECT_EQ(font(FontRole::toolbar).pixelSize(), 11);
    EXPECT_EQ(font(FontRole::sheetTitle).pixelSize(), 15);
    EXPECT_EQ(font(FontRole::welcomeTitle).pixelSize(), 22);
    EXPECT_EQ(scaled(32), 32);
}

TEST_F(Fonts, GrowWithTheDesktopsFont) {
    setDesktopFont(usual(9 * 1.2));
    EXPECT_NEAR(fontScale(), 1.2, 0.05);
    EXPECT_THAT(font(FontRole::control).pixelSize(), testing::AnyOf(15, 16));
    EXPECT_THAT(font(FontRole::welcomeTitle).pixelSize(), testing::AnyOf(26, 27));
}

TEST_F(Fonts, AreNeverSmallerThanTheirBaseSizes) {
    setDesktopFont(usual(6));
    EXPECT_EQ(font(FontRole::control).pixelSize(), 13);
}

TEST_F(Fonts, DifferInWeight) {
    EXPECT_EQ(font(FontRole::control).weight(), QFont::Normal);
    EXPECT_EQ(font(FontRole::rowLabel).weight(), QFont::Medium);
    EXPECT_EQ(font(FontRole::defaultButton).weight(), QFont::DemiBold);
    EXPECT_EQ(font(FontRole::control).hintingPreference(), QFont::PreferNoHinting);
}

} // namespace
} // namespace frimbolate::style
