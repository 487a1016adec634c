// The schedule row of an active window, in either clock format, driven by key and mouse events.
#pragma once

#include "core/time_of_day.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/time_field.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QWheelEvent>

#include <string>

namespace frimbolate::test {

/// Sets the toolkit's default locale during its lifetime. Needs no installed system locale.
class ChosenLocale {
  public:
    explicit ChosenLocale(const char* name) { QLocale::setDefault(QLocale(name)); }
    ~ChosenLocale() { QLocale::setDefault(QLocale::system()); }
    ChosenLocale(const ChosenLocale&) = delete;
    ChosenLocale& operator=(const ChosenLocale&) = delete;
};

/// ChosenLocale is the first base, because the locale must be set before the window is created.
class TimeFieldFixture : private ChosenLocale, public WindowTest {
  protected:
    explicit TimeFieldFixture(ClockFormat clock)
        : ChosenLocale(clock == ClockFormat::TwelveHours ? "en_US" : "de_DE"), clock_(clock) {}

    void SetUp() override {
        WindowTest::SetUp(); // the form shows 09:41
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    TimeField* field() { return find<TimeField>("agentScheduleDatePicker"); }
    QLineEdit* line() { return field()->findChild<QLineEdit*>(); }
    QString shown(int hour, int minute) const {
        return QString::fromStdString(formatTimeOfDay({hour, minute}, clock_));
    }
    static std::string dailyHint(const QString& time) {
        return "Every day at " + time.toStdString() + "; made up once if missed while asleep";
    }
    QString hint() { return find<ElidedLabel>("scheduleHint")->text(); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        QTest::keyClick(focused, key, modifiers);
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    /// A press and release sent to the native window, as the window system sends them.
    void click(QWidget* widget, const QPoint& place) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget->mapTo(&window, place));
    }

    void enterByTab() {
        find("agentScheduleTypeButton")->setFocus();
        press(Qt::Key_Tab);
        ASSERT_TRUE(field()->hasFocus());
    }
    void enterByClick() {
        find("agentNameTextField")->setFocus();
        click(line(), positionBefore(1));
        ASSERT_TRUE(field()->hasFocus());
    }
    /// The point before the character of that index, in the line edit's coordinates.
    QPoint positionBefore(int position) {
        const QFontMetrics metrics(line()->font());
        const int x = metrics.horizontalAdvance(line()->text().left(position));
        return {2 + x, line()->height() / 2};
    }
    /// Enters the field and sets the cursor before the character of that index.
    void enterAt(int position) {
        enterByClick();
        click(line(), positionBefore(position));
        ASSERT_EQ(line()->cursorPosition(), position);
    }
    void turnWheel(int steps) {
        const QPointF place(5, 5);
        QWheelEvent turn(place, field()->mapToGlobal(place), {}, {0, 120 * steps}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(field(), &turn);
    }

    /// Fails unless field, model and hint show that time without a warning.
    void expectTime(int hour, int minute) {
        EXPECT_EQ(line()->text().toStdString(), shown(hour, minute).toStdString());
        expectModel(hour, minute);
        EXPECT_EQ(hint().toStdString(), dailyHint(shown(hour, minute)));
        EXPECT_FALSE(find<ElidedLabel>("scheduleHint")->isWarning());
        EXPECT_EQ(field()->accessibleDescription().toStdString(), "");
    }
    void expectModel(int hour, int minute) {
        const LocalDateTime& date = form().agentScheduleDatePicker.dateValue;
        EXPECT_EQ(date.hour, hour);
        EXPECT_EQ(date.minute, minute);
        EXPECT_EQ(date.day, platform.time.day);
        EXPECT_EQ(date.second, platform.time.second);
    }
    /// Fails unless the row warns of that text and keeps 9:41.
    void expectRejected(const std::string& typed) {
        EXPECT_EQ(line()->text().toStdString(), shown(9, 41).toStdString());
        expectModel(9, 41);
        const std::string words = "\u201c" + typed +
                                  "\u201d is not a time of day; the field keeps " +
                                  shown(9, 41).toStdString();
        EXPECT_EQ(hint().toStdString(), words);
        EXPECT_TRUE(find<ElidedLabel>("scheduleHint")->isWarning());
        EXPECT_EQ(field()->accessibleDescription().toStdString(), words);
    }

    ClockFormat clock_;
};

} // namespace frimbolate::test
