// The window lays out only the beginning of a long text, and loses nothing of it.
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/long_text.h"
#include "widgets/controls/pop_up_button.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace frimbolate::test {
namespace {

constexpr std::size_t million = 1'000'000;

class LongTexts : public WindowTest {
  protected:
    /// A line for each widget whose shown or accessible text exceeds the limit.
    std::string laidOutTooLong() {
        std::string found;
        const auto check = [&](const QWidget* widget, const char* what, qsizetype length,
                               qsizetype most) {
            if (length > most)
                found += widget->objectName().toStdString() + " " + what + "\n";
        };
        for (const auto* widget : window.findChildren<QWidget*>()) {
            check(widget, "tool tip", widget->toolTip().size(), longestLabel);
            check(widget, "description", widget->accessibleDescription().size(), longestLabel);
            if (const auto* label = qobject_cast<const QLabel*>(widget))
                check(label, "label", label->text().size(), longestLabel);
            if (const auto* field = qobject_cast<const QLineEdit*>(widget))
                check(field, "field", field->displayText().size(), longestLine + 1);
            if (const auto* button = qobject_cast<const PopUpButton*>(widget))
                check(button, "title", button->shownTitle().size(), longestLabel);
        }
        return found;
    }
};

struct LongTextRow {
    std::string_view name;
    std::function<std::string&(FormModel&)> text;
};

class EveryText : public LongTexts, public testing::WithParamInterface<LongTextRow> {};

TEST_P(EveryText, IsLaidOutInPartAndKeptWhole) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const std::string whole = "/first" + std::string(million, 'x') + "last";
    show([&](FormModel& model) {
        model.agentTargetButton.selectedItem = TargetType::File;
        model.agentActionButton.selectedItem = AgentAction::PathModified;
        GetParam().text(model) = whole;
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(laidOutTooLong(), "");
    EXPECT_TRUE(GetParam().text(form()) == whole);
    window.mirror();
    EXPECT_TRUE(GetParam().text(form()) == whole);
}

template <auto member>
std::string& memberText(FormModel& model) {
    if constexpr (requires { (model.*member).stringValue; })
        return (model.*member).stringValue;
    else
        return (model.*member).toolTip;
}

const LongTextRow longTexts[] = {
    {"Name", memberText<&FormModel::agentNameTextField>},
    {"Target", memberText<&FormModel::agentTargetImageWell>},
    {"WatchedPath", memberText<&FormModel::agentWatchPathImageWell>},
    {"Interval", memberText<&FormModel::agentIntervalField>},
    {"DayOfMonth", memberText<&FormModel::onMonthTextField>},
    {"NiceLevel", memberText<&FormModel::niceLevelTextField>},
    {"StandardInput", memberText<&FormModel::standardInPathField>},
    {"StandardOutput", memberText<&FormModel::standardOutPathField>},
    {"StandardError", memberText<&FormModel::standardErrorPathField>},
    {"WorkingFolder", memberText<&FormModel::workingDirectoryField>},
    {"RootFolder", memberText<&FormModel::rootDirectoryField>},
    {"QueueFolder", memberText<&FormModel::queueDirectoryField>},
    {"AdditionalPath", memberText<&FormModel::alsoRunPathChangeImageWell>},
};

INSTANTIATE_TEST_SUITE_P(Table, EveryText, testing::ValuesIn(longTexts), NamedAfterRow());

class LongField : public LongTexts {
  protected:
    LongField() { field = find<QLineEdit>("standardOutPathField"); }
    void fill(const std::string& path) {
        show([&](FormModel& model) { model.standardOutPathField.stringValue = path; });
    }
    const std::string& held() { return form().standardOutPathField.stringValue; }
    /// Compares outside the assertion, so that a failure does not print a million characters.
    bool holds(const std::string& text) { return held() == text; }

    QLineEdit* field;
    const std::string whole = "/a" + std::string(million, 'x') + "z";
};

TEST_F(LongField, ShowsAnyRealPathWhole) {
    const std::string path = "/" + std::string(4095, 'p');
    fill(path);
    EXPECT_EQ(field->text().toStdString(), path);
}

TEST_F(LongField, AnEditChangesOnlyTheEditedPart) {
    fill(whole);
    field->setCursorPosition(1);
    QTest::keyClicks(field, "new");
    EXPECT_TRUE(holds("/new" + whole.substr(1)));
    EXPECT_EQ(field->cursorPosition(), 4) << "the caret stays where it was typed";
    field->end(false);
    QTest::keyClicks(field, "!");
    EXPECT_TRUE(holds("/new" + whole.substr(1) + "!"));
    QTest::keySequence(field, QKeySequence::Undo);
    QTest::keySequence(field, QKeySequence::Undo);
    EXPECT_TRUE(holds(whole));
}

TEST_F(LongField, ATextThatIsCutAndPastedAgainIsWhole) {
    fill(whole);
    QTest::keySequence(field, QKeySequence::SelectAll);
    QTest::keySequence(field, QKeySequence::Cut);
    EXPECT_EQ(held(), "");
    QTest::keySequence(field, QKeySequence::Paste);
    EXPECT_TRUE(holds(whole));
}

TEST_F(LongField, ATextTypedOverItReplacesAllOfIt) {
    fill(whole);
    field->selectAll();
    QTest::keyClicks(field, "/tmp/log");
    EXPECT_EQ(held(), "/tmp/log");
    EXPECT_EQ(field->text(), "/tmp/log");
}

TEST_F(LongField, ALongPastedTextIsKeptWhole) {
    field->insert(QString::fromStdString(whole));
    EXPECT_TRUE(holds(whole));
    EXPECT_EQ(laidOutTooLong(), "");
}

} // namespace
} // namespace frimbolate::test
