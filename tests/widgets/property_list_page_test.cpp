// The page with the property list of the form.
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"
#include "widgets/pages/property_list_view.h"
#include "widgets/style/property_list_colours.h"
#include "widgets/style/tokens.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

namespace frimbolate::test {
namespace {

class PropertyListPageTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        show([](FormModel& form) {
            form.agentNameTextField.stringValue = "Backup";
            form.agentTargetButton.selectedItem = TargetType::Script;
            form.scriptPopOverScriptField.stringValue = "cd ~\necho \"<&>\"\n";
            form.agentActionButton.selectedItem = AgentAction::OnSchedule;
        });
        find<QAction>("showPropertyList")->trigger();
    }
    PropertyListView* view() { return find<PropertyListView>("propertyList"); }
    std::string shownText() { return view()->toPlainText().toStdString(); }
    ElidedLabel* fault() { return find<ElidedLabel>("propertyListFault"); }
    std::string fileName() {
        return find<ElidedLabel>("propertyListFileName")->text().toStdString();
    }
};

TEST_F(PropertyListPageTest, ShowsWhatASaveWrites) {
    const std::string shown = shownText();
    const std::string path = std::string(agents) + "/com.frimbolate.Backup.plist";
    EXPECT_EQ(fileName(), "com.frimbolate.Backup.plist");
    find<QAction>("validateAgentConfig")->trigger();
    platform.saveAs(path);
    platform.press("Skip");
    ASSERT_TRUE(platform.files.contents.contains(path));
    EXPECT_EQ(shown, xmlPropertyList(*platform.files.contents[path]));
}

TEST_F(PropertyListPageTest, FollowsTheFormWhileItIsShown) {
    show([](FormModel& form) { form.niceLevelTextField.stringValue = "7"; });
    show([](FormModel& form) { form.niceLevelSlider.value = 7; });
    EXPECT_NE(shownText().find("<integer>7</integer>"), std::string::npos);
    find<QAction>("showForm")->trigger();
    const std::string before = shownText();
    show([](FormModel& form) { form.agentNameTextField.stringValue = "Other"; });
    EXPECT_EQ(shownText(), before) << "a hidden page costs nothing";
    find<QAction>("showPropertyList")->trigger();
    EXPECT_NE(shownText().find("com.frimbolate.Other<"), std::string::npos);
    EXPECT_EQ(fileName(), "com.frimbolate.Other.plist");
}

TEST_F(PropertyListPageTest, SaysWhatIsMissingInTheWordsOfTheStatusLine) {
    EXPECT_FALSE(fault()->isVisible());
    show([](FormModel& form) { form.agentNameTextField.stringValue = ""; });
    EXPECT_TRUE(fault()->isVisible());
    EXPECT_EQ(fault()->text(), "Still needs a name.");
    EXPECT_EQ(fault()->text(), find<ElidedLabel>("summary")->text());
    EXPECT_EQ(view()->accessibleDescription(), "Still needs a name.");
    EXPECT_EQ(fileName(), "com.frimbolate.<name>.plist");
    EXPECT_NE(shownText().find("<key>ProgramArguments</key>"), std::string::npos);
    show([](FormModel& form) { form.agentNameTextField.stringValue = "a"; });
    EXPECT_FALSE(fault()->isVisible());
    EXPECT_EQ(view()->accessibleDescription(), "");
}

TEST_F(PropertyListPageTest, SaysWhyNothingCanBeWritten) {
    platform.files.contentIsUnwritable = true;
    window.mirror();
    EXPECT_EQ(shownText(), "");
    EXPECT_EQ(fault()->text(), "This content cannot be written");
    EXPECT_FALSE(find("copyPropertyList")->isEnabled());
    const std::string before = platform.pasteboard;
    delegate.copyPropertyList();
    EXPECT_EQ(platform.pasteboard, before);
}

TEST_F(PropertyListPageTest, CopiesTheWholeFile) {
    show([](FormModel& form) {
        form.scriptPopOverScriptField.stringValue = "echo " + std::string(9000, 'x');
    });
    EXPECT_EQ(shownText().find(std::string(9000, 'x')), std::string::npos) << "shortened";
    QTest::mouseClick(find("copyPropertyList"), Qt::LeftButton);
    EXPECT_NE(platform.pasteboard.find(std::string(9000, 'x')), std::string::npos);
    EXPECT_EQ(readPropertyList(platform.pasteboard).kind(), "dictionary");
    EXPECT_EQ(find("copyPropertyList")->toolTip(), "Copied");
    show([](FormModel& form) { form.agentNameTextField.stringValue = "b"; });
    EXPECT_EQ(find("copyPropertyList")->toolTip(), "Copy the property list");
}

TEST_F(PropertyListPageTest, CannotBeChangedButSelectedAndCopied) {
    const std::string before = shownText();
    view()->setFocus();
    QTest::keyClicks(view(), "x");
    EXPECT_EQ(shownText(), before);
    find<QAction>("selectAll")->trigger();
    EXPECT_EQ(view()->textCursor().selectedText().size(), qsizetype(before.size()));
}

TEST_F(PropertyListPageTest, AChangeKeepsTheSelectionAndTheScrollPosition) {
    show([](FormModel& form) {
        form.scriptPopOverScriptField.stringValue = std::string(60, '\n') + "end";
    });
    QTextCursor cursor = view()->document()->find("end");
    ASSERT_TRUE(cursor.hasSelection());
    view()->setTextCursor(cursor);
    const int scrolled = view()->verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    show([](FormModel& form) { form.agentNameTextField.stringValue = "Backuq"; });
    EXPECT_EQ(view()->textCursor().selectedText(), "end");
    EXPECT_EQ(view()->verticalScrollBar()->value(), scrolled);
}

TEST_F(PropertyListPageTest, ShowsThirteenWholeLinesAndElevenAboveAFault) {
    show([](FormModel& form) {
        form.scriptPopOverScriptField.stringValue = std::string(60, '\n') + "end";
    });
    EXPECT_EQ(view()->viewport()->height(), 13 * 18);
    const auto* layout = view()->document()->documentLayout();
    const auto top = [&](int line) {
        return layout->blockBoundingRect(view()->document()->findBlockByNumber(line)).top();
    };
    for (int line = 4; line < 60; ++line) // below the header, which wraps
        ASSERT_EQ(top(line) - top(line - 1), 18) << line;
    show([](FormModel& form) { form.agentNameTextField.stringValue = ""; });
    EXPECT_EQ(view()->viewport()->height(), 11 * 18);
}

// The texts that change

struct ChangeRow {
    const char* name;
    const char* before;
    const char* after;
};

const ChangeRow changes[] = {
    {"Nothing", "a\nb", "a\nb"},
    {"FromEmpty", "", "a\nb\n"},
    {"ToEmpty", "a\nb\n", ""},
    {"InTheMiddle", "a\nbb\nc", "a\nxyz\nc"},
    {"Repeated", "aaa", "aaaaa"},
    {"RepeatedAway", "abab", "ab"},
    {"AtTheEnd", "a\nb", "a\nb\n\nc"},
    {"HalfAPair", "\U0001F600 a", "\U0001F601 a"},
    {"HalfAPairAtTheEnd", "a \U0001F600", "a \U0001FA00"},
};

using PropertyListChangeTest = testing::TestWithParam<ChangeRow>;

TEST_P(PropertyListChangeTest, ShowsTheNewText) {
    PropertyListView view;
    view.setText(QString::fromUtf8(GetParam().before));
    const bool differs = std::string(GetParam().before) != GetParam().after;
    EXPECT_EQ(view.setText(QString::fromUtf8(GetParam().after)), differs);
    EXPECT_EQ(view.toPlainText().toStdString(), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Rows, PropertyListChangeTest, testing::ValuesIn(changes), NamedAfterRow());

// The colours

struct ColourRow {
    const char* name;
    const char* line;
    const char* colours; ///< a letter per character: m(arkup), k(ey), t(ext), n(umber)
};

const ColourRow colourRows[] = {
    {"Header", "<?xml?>", "mmmmmmm"},
    {"Dictionary", "\t<dict>", "mmmmmmm"},
    {"KeyOfADictionary", "<key>Nice</key>", "mmmmmkkkkmmmmmm"},
    {"StringOfAKey", "<string>a b</string>", "mmmmmmmmtttmmmmmmmmm"},
    {"Entity", "<string>&lt;</string>", "mmmmmmmmttttmmmmmmmmm"},
    {"Integer", "<integer>-5</integer>", "mmmmmmmmmnnmmmmmmmmmm"},
    {"Real", "<real>1</real>", "mmmmmmnmmmmmmm"},
    {"True", "<true/>", "nnnnnnn"},
    {"False", "\t<false/>", "mnnnnnnnn"},
    {"Empty", "<string></string>", "mmmmmmmmmmmmmmmmm"},
};

/// The colour of each character of a block, as letters.
std::string colours(const QTextBlock& block) {
    const auto& t = style::tokens(false);
    std::string letters(static_cast<std::size_t>(block.text().size()), '?');
    for (const auto& range : block.layout()->formats()) {
        const QColor colour = range.format.foreground().color();
        const char letter = colour == t.secondaryText ? 'm'
                            : colour == t.accent      ? 'k'
                            : colour == t.text        ? 't'
                            : colour == t.warnText    ? 'n'
                                                      : '?';
        for (int i = 0; i < range.length; ++i)
            letters[static_cast<std::size_t>(range.start + i)] = letter;
    }
    return letters;
}

using PropertyListColourTest = testing::TestWithParam<ColourRow>;

TEST_P(PropertyListColourTest, ColoursALine) {
    QTextDocument document;
    document.setPlainText(GetParam().line);
    style::PropertyListHighlighter highlighter(&document, style::palette(false));
    highlighter.rehighlight();
    EXPECT_EQ(colours(document.firstBlock()), GetParam().colours);
}

INSTANTIATE_TEST_SUITE_P(Rows, PropertyListColourTest, testing::ValuesIn(colourRows),
                         NamedAfterRow());

TEST(PropertyListColours, ATextOfSeveralLinesIsOneText) {
    QTextDocument document;
    document.setPlainText("<string>a\n\nb</string>\n<true/>");
    style::PropertyListHighlighter highlighter(&document, style::palette(false));
    highlighter.rehighlight();
    EXPECT_EQ(colours(document.findBlockByNumber(0)), "mmmmmmmmt");
    EXPECT_EQ(colours(document.findBlockByNumber(2)), "tmmmmmmmmm");
    EXPECT_EQ(colours(document.findBlockByNumber(3)), "nnnnnnn");
}

TEST(PropertyListColours, FollowThePalette) {
    QTextDocument document;
    document.setPlainText("<key>a</key>");
    style::PropertyListHighlighter highlighter(&document, style::palette(false));
    highlighter.setPalette(style::palette(true));
    const auto format = document.firstBlock().layout()->formats().value(1);
    EXPECT_EQ(format.format.foreground().color(), style::tokens(true).accent);
}

} // namespace
} // namespace frimbolate::test
