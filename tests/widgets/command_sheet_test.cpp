// What the command sheet shows about its command, and what it copies.
#include "core/command_warning.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"
#include "widgets/sheets/sheet_dialog.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QToolButton>

#include <algorithm>

namespace frimbolate::test {
namespace {

constexpr const char* plainAgent = "/Users/maya/Library/LaunchAgents/com.frimbolate.a.plist";
constexpr const char* foreign = "/Users/maya/com.frimbolate.a';touch pwned;'.plist";
/// Characters that the toolkit would replace, and an apostrophe.
constexpr const char* odd = "/a b\u00a0c\u2028d\u2029e\rf\r\ng\nh\u0085i\tj'k\u00a0.plist";

class CommandSheetViewTest : public WindowTest {
  protected:
    void showCommandFor(const std::string& path) {
        if (sheet()->isVisible()) {
            delegate.closeExecuteScriptWindow();
            QCoreApplication::processEvents();
        }
        delegate.loadLaunchAgent();
        platform.choose(path);
        window.mirror();
        ASSERT_TRUE(QTest::qWaitFor([this] { return sheet()->isVisible(); }));
    }
    SheetDialog* sheet() { return find<SheetDialog>("executeScriptWindow"); }
    QLabel* warning() { return find<QLabel>("commandWarning"); }
    QPlainTextEdit* command() { return find<QPlainTextEdit>("actionScriptTextView"); }
    QToolButton* copyButton() { return find<QToolButton>("copyCommandButton"); }
    void pressCopy() { QTest::mouseClick(copyButton(), Qt::LeftButton); }
    std::string state() {
        auto* label = find<QLabel>("commandState");
        return label->isVisible() ? label->text().toStdString() : "(hidden)";
    }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

TEST_F(CommandSheetViewTest, WarnsOfACommandThatDoesMoreThanItShows) {
    for (const char* path : {foreign, odd, "/a\x7f"}) {
        showCommandFor(path);
        const auto expected = QString::fromStdString(commandWarning(path));
        ASSERT_FALSE(expected.isEmpty());
        EXPECT_TRUE(warning()->isVisible());
        EXPECT_EQ(warning()->text(), expected);
        EXPECT_LT(warning()->geometry().bottom(), command()->geometry().top());
        auto* told = QAccessible::queryAccessibleInterface(warning());
        EXPECT_EQ(told->role(), QAccessible::AlertMessage);
        EXPECT_EQ(told->text(QAccessible::Name), expected);
        EXPECT_TRUE(sheet()->accessibleDescription().contains(expected));
        EXPECT_EQ(command()->accessibleDescription(), expected);
        EXPECT_EQ(form().actionScriptTextView.string, std::string("launchctl load '") + path + "'");
    }
    EXPECT_EQ(sheet()->findChildren<QLabel*>("commandWarning").size(), 1);
}

TEST_F(CommandSheetViewTest, DoesNotWarnOfAPlainCommand) {
    showCommandFor(foreign);
    ASSERT_TRUE(warning()->isVisible());
    showCommandFor(plainAgent);
    EXPECT_FALSE(warning()->isVisible());
    EXPECT_EQ(command()->accessibleDescription().toStdString(), state());
}

TEST_F(CommandSheetViewTest, ItsWarningHasTheColourOfFaults) {
    const auto strongest = [](const QWidget* label) {
        const QImage picture = const_cast<QWidget*>(label)->grab().toImage();
        int reddest = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 32; x < picture.width(); ++x) { // right of the sign
                const QColor colour = picture.pixelColor(x, y);
                reddest = std::max(reddest, colour.red() - colour.blue());
            }
        return reddest;
    };
    showCommandFor(foreign);
    EXPECT_GT(strongest(warning()), 80); // 0x8A4B00 on white; plain text has none
    EXPECT_LT(strongest(find("commandAgent")), 20);
}

TEST_F(CommandSheetViewTest, CopiesExactlyWhatTheModelHolds) {
    for (const char* path : {plainAgent, odd, foreign}) {
        showCommandFor(path);
        pressCopy();
        EXPECT_EQ(platform.pasteboard, std::string("launchctl load '") + path + "'");
    }
}

TEST_F(CommandSheetViewTest, ASelectionIsCopiedExactlyToo) {
    showCommandFor(odd);
    const std::string whole = form().actionScriptTextView.string;
    command()->setFocus();
    command()->selectAll();
    QTest::keyClick(command(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), whole);

    const std::string part = "\u2028d\u2029e\rf\r\ng";
    const auto all = QString::fromStdString(whole);
    QTextCursor cursor = command()->textCursor();
    const auto start = static_cast<int>(all.indexOf(QString::fromStdString(part)));
    cursor.setPosition(start);
    cursor.setPosition(start + 8, QTextCursor::KeepAnchor); // CR LF is one position
    command()->setTextCursor(cursor);
    command()->copy();
    EXPECT_EQ(clipboard(), part);
    window.mirror();
    EXPECT_EQ(command()->textCursor().selectionStart(), start) << "an update keeps the selection";
    EXPECT_TRUE(command()->textCursor().hasSelection());
}

TEST_F(CommandSheetViewTest, SaysWhetherTheCommandWasCopied) {
    constexpr auto asks = "Copy this command and paste it into Terminal.";
    constexpr auto copied = "Copied. Paste it into Terminal.";
    showCommandFor(plainAgent);
    EXPECT_EQ(state(), asks);
    find<QCheckBox>("autoCopyScriptsCheckbox2")->click();
    EXPECT_EQ(state(), asks) << "the box is for the next command";
    find<QCheckBox>("autoCopyScriptsCheckbox2")->click();
    pressCopy();
    EXPECT_EQ(state(), copied);
    showCommandFor("/b.plist");
    EXPECT_EQ(state(), asks) << "a new command was not copied yet";
    find<QCheckBox>("autoCopyScriptsCheckbox2")->click();
    showCommandFor("/c.plist");
    EXPECT_EQ(state(), copied);
    EXPECT_EQ(platform.pasteboard, "launchctl load '/c.plist'");
    EXPECT_EQ(command()->accessibleDescription(), copied);
}

TEST_F(CommandSheetViewTest, DoesNotSuggestPastingAnUnsafeCommand) {
    showCommandFor(foreign);
    EXPECT_EQ(state(), "(hidden)");
    pressCopy();
    EXPECT_EQ(state(), "Copied.");
    showCommandFor(plainAgent);
    EXPECT_EQ(state(), "Copy this command and paste it into Terminal.");
}

TEST_F(CommandSheetViewTest, TheCopyButtonConfirmsTheCopy) {
    showCommandFor(plainAgent);
    const auto picture = [this] { return copyButton()->icon().pixmap(20, 20).toImage(); };
    const QImage before = picture();
    EXPECT_EQ(copyButton()->toolTip(), "Copy the command");
    EXPECT_EQ(copyButton()->accessibleDescription(), "");
    pressCopy();
    EXPECT_NE(picture(), before);
    EXPECT_EQ(copyButton()->toolTip(), "Copied");
    EXPECT_EQ(copyButton()->accessibleDescription(), "Copied");
    EXPECT_EQ(copyButton()->accessibleName(), "Copy the command") << "it copies once more";
    showCommandFor("/b.plist");
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(copyButton()->accessibleDescription(), "");
}

TEST_F(CommandSheetViewTest, NamesTheAgent) {
    showCommandFor(plainAgent);
    const auto* agent = find<ElidedLabel>("commandAgent");
    EXPECT_TRUE(agent->isVisible());
    EXPECT_EQ(agent->text(), "com.frimbolate.a.plist");
    EXPECT_TRUE(sheet()->accessibleDescription().startsWith("com.frimbolate.a.plist. "));
    showCommandFor(foreign);
    EXPECT_EQ(agent->text(), "com.frimbolate.a';touch pwned;'.plist");
}

TEST_F(CommandSheetViewTest, StaysInsideTheFormWithAnyText) {
    const std::string length = std::string(500, 'x') + ".plist";
    for (const auto& path : {"/a" + length, "/a'" + length, "/a'\n" + length}) {
        showCommandFor(path);
        for (int times = 0; times < 2; ++times) {
            QCoreApplication::processEvents();
            EXPECT_LE(sheet()->panelRect().height(), 348) << path;
            EXPECT_GE(command()->height(), 64) << path;
            EXPECT_GE(warning()->height(), warning()->heightForWidth(warning()->width())) << path;
            pressCopy();
        }
    }
}

} // namespace
} // namespace frimbolate::test
