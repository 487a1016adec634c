#include "widgets/controls/script_editor.h"

#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/long_text.h"
#include "widgets/style/tokens.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QTextBlock>
#include <QVBoxLayout>

namespace frimbolate::test {
namespace {

constexpr qsizetype millionCharacters = 1'000'000;

class ScriptEditorTest : public testing::Test {
  protected:
    ScriptEditorTest() {
        auto* column = new QVBoxLayout(&window);
        for (QWidget* part : QList<QWidget*>{&before, &editor, &after})
            column->addWidget(part);
        window.resize(300, 240);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        editor.setFocus();
    }
    ~ScriptEditorTest() override {
        for (QWidget* part : QList<QWidget*>{&before, &editor, &after})
            part->setParent(nullptr);
    }

    qsizetype longestBlock() const {
        qsizetype longest = 0;
        for (QTextBlock block = editor.document()->begin(); block.isValid(); block = block.next())
            longest = std::max<qsizetype>(longest, block.text().size());
        return longest;
    }
    /// Compares outside the assertion, so that a failure does not print a million characters.
    bool holds(const QString& text) const { return editor.wholeText() == text; }
    void press(QKeySequence::StandardKey key) { QTest::keySequence(&editor, key); }
    void moveTo(int position) {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(position);
        editor.setTextCursor(cursor);
    }

    QWidget window;
    QLineEdit before, after;
    ScriptEditor editor;
    const QString longLine = "a" + QString(millionCharacters, u'x') + "z";
    const QString script = "#!/bin/sh\n" + longLine + "\nexit 0\n" + longLine;
};

TEST_F(ScriptEditorTest, KeepsAnyTextAsItWasSet) {
    const QString texts[] = {"",
                             "a",
                             "\n",
                             "a\nb\n",
                             QString::fromUtf8("é\u00a0☃\t"),
                             QString(QChar::ObjectReplacementCharacter) + "a",
                             longLine,
                             longLine + QString(QChar::ObjectReplacementCharacter) + "\n\n",
                             script,
                             QString(longestLine, u'x'),
                             QString(longestLine - 1, u'x') + QString::fromUcs4(U"\U0001F600", 1) +
                                 "y"};
    for (const QString& text : texts) {
        editor.setWholeText(text);
        EXPECT_TRUE(holds(text)) << text.left(40).toStdString();
        EXPECT_LE(longestBlock(), longestLine + 2);
    }
}

TEST_F(ScriptEditorTest, NormalisesLineBreaks) {
    editor.setWholeText("a\r\nb\rc\nd");
    EXPECT_EQ(editor.wholeText(), "a\nb\nc\nd");
}

TEST_F(ScriptEditorTest, LaysOutNoMoreThanTheBeginningOfALongLine) {
    editor.setWholeText(script);
    EXPECT_EQ(editor.blockCount(), 4);
    EXPECT_EQ(longestBlock(), longestLine + 1);
    EXPECT_FALSE(editor.document()->isUndoAvailable());
}

TEST_F(ScriptEditorTest, AnEditChangesOnlyTheEditedPart) {
    editor.setWholeText(script);
    moveTo(2);
    QTest::keyClicks(&editor, "new");
    EXPECT_TRUE(holds("#!new" + script.sliced(2)));
    editor.moveCursor(QTextCursor::End);
    QTest::keyClicks(&editor, "!");
    EXPECT_TRUE(holds("#!new" + script.sliced(2) + "!"));
}

TEST_F(ScriptEditorTest, AFoldedPartIsDeletedAndRestoredAsOneCharacter) {
    editor.setWholeText(longLine);
    editor.moveCursor(QTextCursor::End);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    EXPECT_TRUE(holds(longLine.first(longestLine)));
    press(QKeySequence::Undo);
    EXPECT_TRUE(holds(longLine));
}

TEST_F(ScriptEditorTest, CopiesAndMovesTheWholeText) {
    editor.setWholeText(script);
    press(QKeySequence::SelectAll);
    press(QKeySequence::Copy);
    EXPECT_TRUE(QGuiApplication::clipboard()->text() == script);
    press(QKeySequence::Cut);
    EXPECT_EQ(editor.wholeText(), "");
    press(QKeySequence::Paste);
    EXPECT_TRUE(holds(script));
    EXPECT_EQ(longestBlock(), longestLine + 1);
    press(QKeySequence::Undo);
    EXPECT_EQ(editor.wholeText(), "");
}

TEST_F(ScriptEditorTest, CopiesASelection) {
    editor.setWholeText("one\u00a0two\nthree");
    QTextCursor cursor = editor.textCursor();
    cursor.setPosition(2);
    cursor.setPosition(9, QTextCursor::KeepAnchor);
    editor.setTextCursor(cursor);
    press(QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "e\u00a0two\nt");
}

TEST_F(ScriptEditorTest, ALongPasteReplacesTheSelection) {
    editor.setWholeText("keep this");
    QTextCursor cursor = editor.textCursor();
    cursor.setPosition(5);
    cursor.setPosition(9, QTextCursor::KeepAnchor);
    editor.setTextCursor(cursor);
    QGuiApplication::clipboard()->setText(longLine + "\r\nend");
    press(QKeySequence::Paste);
    EXPECT_TRUE(holds("keep " + longLine + "\nend"));
    QTest::keyClicks(&editor, "!");
    EXPECT_TRUE(editor.wholeText().endsWith("end!")) << "the caret is after it";
}

TEST_F(ScriptEditorTest, TabInsertsATabOfFourColumns) {
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_EQ(editor.wholeText(), "\t");
    EXPECT_TRUE(editor.hasFocus());
    for (const int size : {12, 20}) {
        QFont font = editor.font();
        font.setPixelSize(size);
        editor.setFont(font);
        EXPECT_DOUBLE_EQ(editor.tabStopDistance(), 4 * QFontMetricsF(font).horizontalAdvance(u' '));
    }
}

TEST_F(ScriptEditorTest, ControlTabAndShiftTabLeaveIt) {
    QTest::keyClick(&editor, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(after.hasFocus());
    editor.setFocus();
    QTest::keyClick(&editor, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    editor.setFocus();
    QTest::keyClick(&editor, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    EXPECT_EQ(editor.wholeText(), "");
    EXPECT_TRUE(editor.accessibleDescription().contains("Ctrl+Tab"));
}

TEST_F(ScriptEditorTest, AWrappedLineHasAMarkInTheMargin) {
    // The pixel rows of the margin in which something is drawn.
    const auto marks = [this] {
        const QImage image = editor.viewport()->grab().toImage();
        const int margin = static_cast<int>(editor.document()->documentMargin());
        const QRgb ground = image.pixel(image.width() - 1, image.height() - 1);
        int count = 0;
        bool wasMarked = false;
        for (int y = 0; y < image.height(); ++y) {
            bool isMarked = false;
            for (int x = image.width() - margin; x < image.width(); ++x)
                isMarked |= image.pixel(x, y) != ground;
            count += isMarked && !wasMarked;
            wasMarked = isMarked;
        }
        return count;
    };
    editor.document()->setDocumentMargin(8);
    editor.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    editor.setWholeText("short\nlines\n\nonly");
    EXPECT_EQ(marks(), 0);
    const QString words("many words that do not fit into the width of one line of the field, so ");
    editor.setWholeText("short\n" + words + words + "\nend");
    QCoreApplication::processEvents();
    const int lines = editor.document()->findBlockByNumber(1).layout()->lineCount();
    ASSERT_GT(lines, 2);
    EXPECT_EQ(marks(), lines - 1);
}

TEST_F(ScriptEditorTest, ABoxRepresentsTheRestOfALine) {
    editor.setWholeText(longLine);
    QCoreApplication::processEvents();
    editor.moveCursor(QTextCursor::End);
    QCoreApplication::processEvents();
    const QImage image = editor.viewport()->grab().toImage();
    const QRect caret = editor.cursorRect();
    EXPECT_EQ(image.pixelColor(caret.left() - 8, caret.top() + 2), style::tokens(false).hover);
}

using ScriptField = WindowTest;

TEST_F(ScriptField, AnEditedLongScriptReachesTheModelWhole) {
    const std::string script = "first\n" + std::string(1'000'000, 'x') + "\nlast";
    show([&](FormModel& model) { model.scriptPopOverScriptField.stringValue = script; });
    auto* editor = find<ScriptEditor>("scriptPopOverScriptField");
    EXPECT_TRUE(form().scriptPopOverScriptField.stringValue == script);
    editor->insertPlainText("a ");
    EXPECT_TRUE(form().scriptPopOverScriptField.stringValue == "a " + script);
    EXPECT_EQ(editor->textCursor().position(), 2) << "an update keeps the caret";
}

} // namespace
} // namespace frimbolate::test
