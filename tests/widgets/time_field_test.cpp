// Every typed time reaches the form, however the field is entered and left; an unreadable text is
// reported.
#include "tests/widgets/time_field_fixture.h"

#include <QMenuBar>

#include <functional>

namespace frimbolate::test {
namespace {

struct Typed {
    const char* text;
    int hour, minute; ///< -1 if the text is no time
};

constexpr Typed typed[] = {
    {"0730", 7, 30},    {"730", 7, 30},        {"7:30", 7, 30},   {"7.30", 7, 30},
    {"07 30", 7, 30},   {"7", 7, 0},           {"7pm", 19, 0},    {"0730a", 7, 30},
    {"7:30 am", 7, 30}, {"7:30 p.m.", 19, 30}, {"9:05 am", 9, 5}, {"12am", 0, 0},
    {"12pm", 12, 0},    {"1930", 19, 30},      {"0", 0, 0},       {"23:59", 23, 59},
    {"25:00", -1, -1},  {"abc", -1, -1},       {"13pm", -1, -1},  {"7:60", -1, -1},
    {"1260", -1, -1},   {"24:00", -1, -1},     {"7:3", -1, -1},
};

class TimeFieldTest : public TimeFieldFixture, public testing::WithParamInterface<ClockFormat> {
  protected:
    TimeFieldTest() : TimeFieldFixture(GetParam()) {}

    /// Enters, types and leaves by the given steps, for every text of the table.
    void expectEachRead(const std::function<void(const char* text)>& steps) {
        for (const Typed& row : typed) {
            SCOPED_TRACE(row.text);
            show([](FormModel& model) {
                model.agentScheduleDatePicker.set({2026, 11, 21, 9, 41, 7});
            });
            steps(row.text);
            if (row.hour < 0)
                expectRejected(row.text);
            else
                expectTime(row.hour, row.minute);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Clocks, TimeFieldTest,
                         testing::Values(ClockFormat::TwentyFourHours, ClockFormat::TwelveHours),
                         [](const auto& clock) {
                             return clock.param == ClockFormat::TwelveHours ? "TwelveHours"
                                                                            : "TwentyFourHours";
                         });

// Every text of the table

TEST_P(TimeFieldTest, ATextEnteredByTabIsReadOnTab) {
    expectEachRead([this](const char* text) {
        enterByTab();
        type(text);
        press(Qt::Key_Tab);
        ASSERT_FALSE(field()->hasFocus());
    });
}

TEST_P(TimeFieldTest, ATextEnteredByClickIsReadOnReturn) {
    expectEachRead([this](const char* text) {
        enterByClick();
        type(text);
        press(Qt::Key_Return);
        ASSERT_TRUE(field()->hasFocus());
        EXPECT_EQ(line()->selectedText(), line()->text());
    });
}

TEST_P(TimeFieldTest, ATextEnteredBySelectAllIsReadOnSave) {
    expectEachRead([this](const char* text) {
        enterAt(1);
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
        press(Qt::Key_S, Qt::ControlModifier);
        platform.press("Ok"); // the form lacks a name
    });
}

TEST_P(TimeFieldTest, ATextEnteredByClickIsReadOnAClickElsewhere) {
    expectEachRead([this](const char* text) {
        enterByClick();
        type(text);
        click(find("agentNameTextField"), {20, 10});
        ASSERT_FALSE(field()->hasFocus());
    });
}

// Entering

TEST_P(TimeFieldTest, TabAndTheFirstClickSelectTheWholeTime) {
    enterByTab();
    EXPECT_EQ(line()->selectedText(), line()->text());
    enterByClick();
    EXPECT_EQ(line()->selectedText(), line()->text());
    find("agentScheduleTipButton")->setFocus();
    press(Qt::Key_Backtab);
    ASSERT_TRUE(field()->hasFocus());
    EXPECT_EQ(line()->selectedText(), line()->text());
}

TEST_P(TimeFieldTest, AFocusReceivedFromAMenuSelectsTheWholeTime) {
    for (const auto reason :
         {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason, Qt::MenuBarFocusReason}) {
        enterByClick();
        press(Qt::Key_Right); // nothing is selected any more
        find("agentNameTextField")->setFocus();
        field()->setFocus(reason);
        EXPECT_EQ(line()->selectedText(), line()->text());
        click(line(), positionBefore(4));
        EXPECT_EQ(line()->selectedText(), line()->text()) << "the first click";
        click(line(), positionBefore(4));
        EXPECT_EQ(line()->cursorPosition(), 4);
        EXPECT_EQ(line()->selectedText(), "");
    }
}

TEST_P(TimeFieldTest, ASecondClickPlacesTheCursor) {
    enterByClick();
    click(line(), positionBefore(4));
    EXPECT_EQ(line()->selectedText(), "");
    EXPECT_EQ(line()->cursorPosition(), 4);
    press(Qt::Key_Backspace);
    type("5");
    press(Qt::Key_Return);
    expectTime(9, 51);
}

TEST_P(TimeFieldTest, AFirstClickWithAMouseMoveSelectsTheWholeTime) {
    find("agentNameTextField")->setFocus();
    QWindow* handle = window.windowHandle();
    const auto at = [this](int position) {
        return line()->mapTo(&window, positionBefore(position));
    };
    QTest::mousePress(handle, Qt::LeftButton, {}, at(1));
    QTest::mouseMove(handle, at(3));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, at(3));
    EXPECT_EQ(line()->selectedText(), line()->text());
}

TEST_P(TimeFieldTest, AClickOnAStepperDoesNotCountAsTheFirstClick) {
    find("agentNameTextField")->setFocus();
    click(field(), {field()->width() - 8, 8});
    expectTime(10, 41);
    EXPECT_EQ(line()->selectedText(), line()->text());
    click(line(), positionBefore(4));
    EXPECT_EQ(line()->cursorPosition(), 4);
    click(field(), {field()->width() - 8, field()->height() - 8});
    expectTime(10, 40);
}

TEST_P(TimeFieldTest, AfterReturnOrACommandTheNextClickCountsAsTheFirst) {
    const std::pair<int, std::function<void()>> ways[] = {
        {30, [this] { press(Qt::Key_Return); }},
        {30, [this] { press(Qt::Key_T, Qt::ControlModifier); }},
        {45,
         [this] {
             show([](FormModel& model) {
                 model.agentScheduleDatePicker.set({2026, 11, 21, 7, 45, 7});
             });
         }},
    };
    enterByTab();
    press(Qt::Key_Return); // without a pending text
    click(line(), positionBefore(3));
    EXPECT_EQ(line()->selectedText(), line()->text());
    for (const auto& [minute, read] : ways) {
        type("0730");
        read();
        EXPECT_EQ(line()->selectedText(), shown(7, minute));
        click(line(), positionBefore(3));
        EXPECT_EQ(line()->selectedText(), shown(7, minute));
        click(line(), positionBefore(3));
        EXPECT_EQ(line()->selectedText(), "");
        press(Qt::Key_A, Qt::ControlModifier);
    }
}

// Leaving

TEST_P(TimeFieldTest, ATypedTextIsPendingUntilTheFieldIsLeft) {
    enterByTab();
    type("0730");
    EXPECT_EQ(line()->text(), "0730");
    expectModel(9, 41);
    show([](FormModel& model) { model.agentNameTextField.stringValue = "Backup"; });
    EXPECT_EQ(line()->text(), "0730");
}

TEST_P(TimeFieldTest, EveryCommandReadsAPendingTextFirst) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"shortcut", [this] { press(Qt::Key_T, Qt::ControlModifier); }},
        {"action", [this] { find<QAction>("advancedToolbarItem")->trigger(); }},
        {"toolbar",
         [this] {
             click(find("showHideTips"), {20, 20});
         }},
        {"closing", [this] { window.close(); }},
    };
    int minute = 10;
    for (const auto& [name, run] : ways) {
        SCOPED_TRACE(name);
        enterByTab();
        type(std::to_string(700 + ++minute).c_str());
        run();
        expectModel(7, minute);
    }
}

TEST_P(TimeFieldTest, SavingWritesAPendingText) {
    show([](FormModel& model) {
        model.agentNameTextField.stringValue = "Backup";
        model.agentTargetButton.selectedItem = TargetType::Script;
        model.scriptPopOverScriptField.stringValue = "ls";
        model.agentActionButton.selectedItem = AgentAction::OnSchedule;
    });
    enterByClick();
    type("1930");
    press(Qt::Key_S, Qt::ControlModifier);
    const std::string file = std::string(agents) + "/com.frimbolate.Backup.plist";
    platform.saveAs(file);
    EXPECT_EQ(platform.files.contents.at(file)->at("StartCalendarInterval"),
              Value(Dictionary{{"Hour", 19}, {"Minute", 30}}));
    platform.press("Skip");
}

TEST_P(TimeFieldTest, SwitchingToAnotherProgramKeepsTheTypedText) {
    enterByTab();
    type("07");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isActiveWindow(); }));
    EXPECT_EQ(line()->text(), "07");
    expectModel(7, 0);
    QTest::keyClicks(field(), "3"); // a key event that was queued before the switch
    EXPECT_EQ(line()->text(), "073");
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return field()->hasFocus(); }));
    EXPECT_EQ(line()->selectedText(), "");
    type("0");
    press(Qt::Key_Return);
    expectTime(7, 30);
}

TEST_P(TimeFieldTest, SwitchingToAnotherProgramDoesNotRejectAnIncompleteTime) {
    enterByTab();
    type("07:");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isActiveWindow(); }));
    EXPECT_EQ(line()->text(), "07:");
    EXPECT_FALSE(find<ElidedLabel>("scheduleHint")->isWarning());
    expectModel(9, 41);
}

TEST_P(TimeFieldTest, MinimisingTheWindowReadsAPendingText) {
    for (const char* text : {"0730", "25:00"}) {
        enterByTab();
        type(text);
        window.showMinimized();
        EXPECT_TRUE(QTest::qWaitFor([this] { return line()->text() == shown(7, 30); }));
        expectModel(7, 30);
        window.showNormal();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    EXPECT_EQ(form().agentScheduleDatePicker.unreadableText, "25:00");
}

TEST_P(TimeFieldTest, AMenuKeepsAPendingText) {
    enterByTab();
    type("07:");
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5},
                            field()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(field(), &event);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr); // the event handler has returned
    EXPECT_EQ(line()->text(), "07:");
    QApplication::activePopupWidget()->close();
    window.menuBar()->setFocus(Qt::MenuBarFocusReason);
    EXPECT_EQ(line()->text(), "07:");
    field()->setFocus(Qt::MenuBarFocusReason);
    type("30");
    press(Qt::Key_Return);
    expectTime(7, 30);
}

TEST_P(TimeFieldTest, ATextSetByAnAssistiveToolIsReadAtOnce) {
    find("agentNameTextField")->setFocus();
    line()->setText("7.30");
    expectTime(7, 30);
    line()->setText("25:00");
    EXPECT_EQ(form().agentScheduleDatePicker.unreadableText, "25:00");
    expectModel(7, 30);
}

TEST(TimeFieldAlone, IsDestroyedWithTheFocusWithoutReadingItsText) {
    QWidget around;
    auto* field = new TimeField(&around);
    around.show();
    around.activateWindow();
    field->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([field] { return field->hasFocus(); }));
    QTest::keyClicks(field, "0730");
    bool isRead = false;
    QObject::connect(field, &TimeField::timeRead, [&isRead] { isRead = true; });
    delete field;
    EXPECT_FALSE(isRead);
}

} // namespace
} // namespace frimbolate::test
