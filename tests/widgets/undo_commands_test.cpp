// Undo and Redo in the window: a field undoes its own typing first, then the form goes back.
#include "tests/widgets/window_test.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>

namespace frimbolate::test {
namespace {

class UndoCommandsTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QAction* undo() { return find<QAction>("undo"); }
    QAction* redo() { return find<QAction>("redo"); }
    QLineEdit* name() { return find<QLineEdit>("agentNameTextField"); }

    /// Sends the key to the focused control, as the user does.
    static void press(QKeySequence::StandardKey key) {
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(key));
    }
    /// "title" or "title (disabled)"
    static std::string state(const QAction* action) {
        return action->text().toStdString() + (action->isEnabled() ? "" : " (disabled)");
    }
    void focus(QWidget* widget) {
        widget->setFocus();
        ASSERT_TRUE(widget->hasFocus());
    }
    void fillAndEmpty(const char* agentName) {
        show([agentName](FormModel& model) {
            model.agentNameTextField.stringValue = agentName;
            model.scriptPopOverScriptField.stringValue = "ls";
        });
        find<QAction>("createNewAgent")->trigger();
    }
};

TEST_F(UndoCommandsTest, SayWhatTheyWouldDo) {
    EXPECT_EQ(state(undo()), "&Undo (disabled)");
    EXPECT_EQ(state(redo()), "&Redo (disabled)");
    fillAndEmpty("Backup");
    EXPECT_EQ(state(undo()), "&Undo New");
    EXPECT_EQ(state(redo()), "&Redo (disabled)");
    undo()->trigger();
    EXPECT_EQ(state(undo()), "&Undo (disabled)");
    EXPECT_EQ(state(redo()), "&Redo New");
    redo()->trigger();
    EXPECT_EQ(state(undo()), "&Undo New");
    EXPECT_EQ(state(redo()), "&Redo (disabled)");
    EXPECT_EQ(undo()->shortcut(), QKeySequence(QKeySequence::Undo));
    EXPECT_EQ(redo()->shortcut(), QKeySequence(QKeySequence::Redo));
}

TEST_F(UndoCommandsTest, TheKeysBringTheFormBackAndForth) {
    fillAndEmpty("Backup");
    ASSERT_EQ(QApplication::focusWidget(), name());
    EXPECT_EQ(name()->text(), "");
    press(QKeySequence::Undo);
    EXPECT_EQ(name()->text(), "Backup");
    EXPECT_EQ(find<QPlainTextEdit>("scriptPopOverScriptField")->toPlainText(), "ls");
    press(QKeySequence::Redo);
    EXPECT_EQ(name()->text(), "");
    EXPECT_EQ(form().scriptPopOverScriptField.stringValue, "");
    EXPECT_TRUE(platform.journal.count("alert") == 0 && !platform.isAsking());
}

TEST_F(UndoCommandsTest, AFieldUndoesItsOwnTypingFirst) {
    fillAndEmpty("Backup");
    focus(name());
    QTest::keyClicks(name(), "typed");
    EXPECT_EQ(state(undo()), "&Undo");
    press(QKeySequence::Undo);
    EXPECT_EQ(name()->text(), "");
    EXPECT_EQ(form().agentNameTextField.stringValue, "");
    EXPECT_EQ(state(undo()), "&Undo New");
    EXPECT_EQ(state(redo()), "&Redo");
    press(QKeySequence::Redo);
    EXPECT_EQ(name()->text(), "typed");
    press(QKeySequence::Undo);
    press(QKeySequence::Undo);
    EXPECT_EQ(name()->text(), "Backup");
    EXPECT_EQ(state(redo()), "&Redo New");
}

TEST_F(UndoCommandsTest, TheMenuGoesToTheFieldThatHasTheKeyboard) {
    fillAndEmpty("Backup");
    focus(name());
    QTest::keyClicks(name(), "typed");
    focus(find("agentActionButton"));
    EXPECT_EQ(state(undo()), "&Undo New");
    focus(name());
    EXPECT_EQ(state(undo()), "&Undo");
    window.menuBar()->setFocus(Qt::MenuBarFocusReason); // as Alt does
    EXPECT_EQ(state(undo()), "&Undo");
    undo()->trigger();
    EXPECT_EQ(name()->text(), "");
    EXPECT_EQ(state(undo()), "&Undo New");
}

TEST_F(UndoCommandsTest, ACheckBoxHasNothingOfItsOwnToUndo) {
    show([](FormModel& model) { model.advancedDrawer.open = true; });
    fillAndEmpty("Backup");
    undo()->trigger();
    EXPECT_TRUE(form().advancedDrawer.open);
    focus(find("enableGlobbingCheckbox"));
    press(QKeySequence::Redo);
    EXPECT_EQ(name()->text(), "");
    EXPECT_FALSE(form().advancedDrawer.open);
    EXPECT_FALSE(find<QAction>("advancedToolbarItem")->isChecked());
}

TEST_F(UndoCommandsTest, ATypedTimeIsUndoneFirst) {
    fillAndEmpty("Backup");
    auto* time = find("agentScheduleDatePicker");
    focus(time);
    QTest::keyClick(time, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(time, "12");
    EXPECT_EQ(state(undo()), "&Undo");
    while (state(undo()) == "&Undo")
        press(QKeySequence::Undo);
    EXPECT_EQ(name()->text(), "");
    press(QKeySequence::Undo);
    EXPECT_EQ(name()->text(), "Backup");
}

TEST_F(UndoCommandsTest, BringBackErrorMarkersAndTheirHints) {
    find<QAction>("validateAgentConfig")->trigger();
    platform.press("Ok");
    window.mirror();
    EXPECT_TRUE(find("nameErrorImageWell")->isVisible());
    find<QAction>("createNewAgent")->trigger();
    EXPECT_FALSE(find("nameErrorImageWell")->isVisible());
    press(QKeySequence::Undo);
    EXPECT_TRUE(find("nameErrorImageWell")->isVisible());
}

TEST_F(UndoCommandsTest, BringBackWhatStoodBeforeACancelledPanel) {
    show([](FormModel& model) {
        model.agentTargetButton.selectedItem = TargetType::Script;
        model.scriptPopOverScriptField.stringValue = "ls";
    });
    auto* target = find<QComboBox>("agentTargetButton");
    focus(target);
    target->setCurrentIndex(TargetType::File);
    emit target->activated(TargetType::File);
    platform.cancelPanel();
    window.mirror();
    EXPECT_EQ(form().scriptPopOverScriptField.stringValue, "");
    EXPECT_EQ(state(undo()), "&Undo Choose Target");
    press(QKeySequence::Undo);
    EXPECT_EQ(target->currentIndex(), TargetType::Script);
    EXPECT_EQ(form().scriptPopOverScriptField.stringValue, "ls");
}

TEST_F(UndoCommandsTest, ThePopOverOfTheScriptUndoesItsTextAlone) {
    fillAndEmpty("Backup");
    show([](FormModel& model) {
        model.agentTargetButton.selectedItem = TargetType::Script;
        model.popoverScriptObject.shown = true;
    });
    auto* script = find<QPlainTextEdit>("scriptPopOverScriptField");
    script->setFocus();
    QTest::keyClicks(script, "ls");
    QTest::keySequence(script, QKeySequence(QKeySequence::Undo));
    EXPECT_EQ(script->toPlainText(), "");
    EXPECT_EQ(state(undo()), "&Undo (disabled)");
    QTest::keySequence(script, QKeySequence(QKeySequence::Undo));
    EXPECT_EQ(name()->text(), "");
    EXPECT_EQ(delegate.history().undoName(), "New");
    show([](FormModel& model) { model.popoverScriptObject.shown = false; });
}

TEST_F(UndoCommandsTest, DoNothingWhileASheetIsShown) {
    fillAndEmpty("Backup");
    find<QAction>("about")->trigger();
    ASSERT_NE(queue.current(), nullptr);
    QTest::keySequence(queue.current(), QKeySequence(QKeySequence::Undo));
    undo()->trigger();
    EXPECT_EQ(name()->text(), "");
    queue.current()->reject();
}

} // namespace
} // namespace frimbolate::test
