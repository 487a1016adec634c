#include "tests/widgets/sheet_fixture.h"

#include "widgets/accessibility.h"
#include "widgets/controls/wrapped_text.h"
#include "widgets/sheets/qt_alerts.h"
#include "widgets/style/tokens.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QScrollBar>

namespace frimbolate {
namespace {

using testing::ElementsAre;

class AlertSheetTest : public SheetFixture {
  protected:
    /// Shows the alert and records its outcome in the journal.
    AlertDialog* show(const Alert& alert) {
        alerts.show(alert, [this](AlertOutcome outcome) {
            journal.push_back(std::to_string(outcome.answer) + "/" +
                              std::to_string(outcome.suppressionState));
        });
        return shown<AlertDialog>("sheetAlert");
    }
    static QString text(QDialog* dialog, const char* name) {
        return dialog->findChild<WrappedText*>(name)->text();
    }

    QtAlerts alerts{queue, window};
};

struct AnswerRow {
    const char* name;
    std::vector<std::string> buttons;
    const char* click; ///< title of the clicked button
    const char* outcome;
};

class AlertAnswers : public AlertSheetTest, public testing::WithParamInterface<AnswerRow> {};

TEST_P(AlertAnswers, AreCountedFromTheFirstButton) {
    QDialog* dialog = show({"Message", "Text", GetParam().buttons});
    ASSERT_NE(dialog, nullptr);
    click(dialog, GetParam().click);
    ASSERT_TRUE(journalReaches(2));
    settle();
    EXPECT_THAT(journal, ElementsAre(GetParam().outcome, "afterwards"));
    EXPECT_EQ(shown("sheetAlert"), nullptr);
}

const AnswerRow answerRows[] = {
    {"OnlyButton", {"Ok"}, "Ok", "1000/0"},
    {"FirstOfTwo", {"Continue", "Cancel"}, "Continue", "1000/0"},
    {"SecondOfTwo", {"Continue", "Cancel"}, "Cancel", "1001/0"},
};
INSTANTIATE_TEST_SUITE_P(Table, AlertAnswers, testing::ValuesIn(answerRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(AlertSheetTest, HasItsFirstButtonAsDefault) {
    QDialog* dialog = show({"Message", "Text", {"Continue", "Cancel"}});
    EXPECT_TRUE(button(dialog, "Continue")->isDefault());
    EXPECT_FALSE(button(dialog, "Cancel")->isDefault());
    EXPECT_EQ(dialog->focusWidget(), button(dialog, "Continue"));
    QTest::keyClick(dialog, Qt::Key_Return);
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), "1000/0");
}

TEST_F(AlertSheetTest, PutsTheDefaultInTheCorner) {
    QDialog* dialog = show({"Message", "Text", {"One", "Two"}});
    const auto left = [&](const char* title) {
        return button(dialog, title)->mapTo(dialog, QPoint()).x();
    };
    EXPECT_LT(left("Two"), left("One"));
}

TEST_F(AlertSheetTest, ShowsItsTextsUnchanged) {
    QDialog* dialog = show({"A <b>bold</b> & plain title", "First\n\n<i>Second</i>"});
    EXPECT_EQ(text(dialog, "messageText"), "A <b>bold</b> & plain title");
    EXPECT_EQ(text(dialog, "informativeText"), "First\n\n<i>Second</i>");
    for (const char* name : {"messageText", "informativeText"}) {
        const auto* shown = dialog->findChild<WrappedText*>(name);
        EXPECT_EQ(shown->toPlainText(), shown->text());
        EXPECT_TRUE(shown->textInteractionFlags() & Qt::TextSelectableByMouse);
        EXPECT_FALSE(shown->textInteractionFlags() & Qt::TextEditable);
    }
}

TEST_F(AlertSheetTest, HasNoEmptyLineAboveItsButtons) {
    EXPECT_EQ(text(show({"Message", "One\n\nTwo\n"}), "informativeText"), "One\n\nTwo");
}

TEST_F(AlertSheetTest, OffersSuppressionOnlyIfRequested) {
    QDialog* plain = show({"Message", "Text"});
    EXPECT_EQ(plain->findChild<QCheckBox*>("suppressionButton"), nullptr);
}

TEST_F(AlertSheetTest, ReportsWhetherItIsSuppressed) {
    QDialog* dialog = show({"Message", "Text", {"Continue", "Cancel"}, true});
    auto* box = dialog->findChild<QCheckBox*>("suppressionButton");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "Do not show this message again");
    EXPECT_FALSE(box->isChecked());
    box->click();
    click(dialog, "Continue");
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), "1000/1");
}

TEST_F(AlertSheetTest, BlocksTheWindowAndLiesUnderTheToolbar) {
    AlertDialog* dialog = show({"Message", "Text"});
    EXPECT_EQ(QApplication::activeModalWidget(), dialog);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    const QRect panel = dialog->panelRect().translated(window.mapFromGlobal(dialog->pos()));
    EXPECT_EQ(panel.top(), sheetArea(window).top());
    EXPECT_EQ(panel.width(), 440);
    EXPECT_NEAR(panel.center().x(), window.rect().center().x(), 1);
    EXPECT_TRUE(window.findChild<QWidget*>("sheetScrim")->isVisible());
}

TEST_F(AlertSheetTest, FollowsTheWindow) {
    AlertDialog* dialog = show({"Message", "Text"});
    const QPoint before = window.mapFromGlobal(dialog->pos());
    window.move(window.pos() + QPoint(120, 40));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.mapFromGlobal(dialog->pos()) == before; }));
}

std::string words(int number) {
    std::string result;
    while (number-- > 0)
        result += "word ";
    return result;
}

TEST_F(AlertSheetTest, ShowsATextOfUsualLengthWhole) {
    AlertDialog* dialog = show({"Message", words(100), {"Continue", "Cancel"}, true});
    EXPECT_LE(dialog->panelRect().height(), 348);
    const auto* shown = dialog->findChild<WrappedText*>("informativeText");
    EXPECT_EQ(shown->verticalScrollBar()->maximum(), 0);
    EXPECT_GE(shown->height(), shown->heightForWidth(shown->width()));
}

struct LongRow {
    const char* name;
    Alert alert;
    const char* scrolls; ///< object name of the text that scrolls
};

class LongAlert : public AlertSheetTest, public testing::WithParamInterface<LongRow> {};

TEST_P(LongAlert, StaysInsideTheFormAndScrolls) {
    AlertDialog* dialog = show(GetParam().alert);
    EXPECT_LE(dialog->panelRect().height(), 348);
    auto* shown = dialog->findChild<WrappedText*>(GetParam().scrolls);
    EXPECT_GT(shown->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(shown->verticalScrollBar()->isVisible());
    shown->setFocus(Qt::TabFocusReason);
    QTest::keyClick(shown, Qt::Key_PageDown);
    EXPECT_GT(shown->verticalScrollBar()->value(), 0);
}

const LongRow longRows[] = {
    {"Text", {"Message", words(1000)}, "informativeText"},
    {"Message", {words(600), {}}, "messageText"},
    {"OneWord", {"Message", std::string(4096, 'x')}, "informativeText"},
};
INSTANTIATE_TEST_SUITE_P(Table, LongAlert, testing::ValuesIn(longRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(AlertSheetTest, BreaksAWordThatIsLongerThanItsLine) {
    const std::string name(67, 'm');
    AlertDialog* dialog = show({name, "/Users/maya/" + name, {"Delete", "Cancel"}});
    for (auto* shown : dialog->findChildren<WrappedText*>()) {
        QTextCursor end(shown->document());
        end.movePosition(QTextCursor::End);
        EXPECT_GT(shown->cursorRect(end).top(), 0) << "it takes more than one line";
        EXPECT_TRUE(shown->viewport()->rect().contains(shown->cursorRect(end)));
        EXPECT_LE(shown->document()->idealWidth(), shown->viewport()->width());
    }
}

TEST_F(AlertSheetTest, CopiesAndExposesItsTextsUnchanged) {
    installAccessibility();
    for (const char16_t* odd : {u"two\nlines", u"no\u00A0break", u"a\r\nb", u"a\u2028b\u2029c",
                                u"an\uFFFCobject", u"of\u200Bno\u00ADwidth", u"🚀 rocket"}) {
        const QString path = "/Users/maya/" + QString(60, 'x') + QString::fromUtf16(odd) + "/end";
        AlertDialog* dialog = show({"Message", path.toStdString(), {"Delete", "Cancel"}});
        auto* shown = dialog->findChild<WrappedText*>("informativeText");
        shown->selectAll();
        shown->copy();
        EXPECT_EQ(QGuiApplication::clipboard()->text(), path);
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(shown);
        EXPECT_EQ(access->role(), QAccessible::StaticText);
        EXPECT_EQ(access->text(QAccessible::Name), path);
        EXPECT_EQ(access->childCount(), 0);
        dialog->done(AlertAnswer::Second);
        settle();
    }
}

TEST_F(AlertSheetTest, CopiesThePartThatIsSelected) {
    AlertDialog* dialog = show({"Message", "/Users/maya/" + std::string(80, 'x') + "/a b.plist"});
    auto* shown = dialog->findChild<WrappedText*>("informativeText");
    QTextCursor part = shown->textCursor();
    part.setPosition(92);
    part.setPosition(97, QTextCursor::KeepAnchor);
    shown->setTextCursor(part);
    QTest::keyClick(shown, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "/a b.");
}

TEST_F(AlertSheetTest, FollowsTheDesktopsColours) {
    AlertDialog* dialog = show({"Message", "Text"});
    const auto* shown = dialog->findChild<WrappedText*>("informativeText");
    for (const bool isDark : {true, false}) {
        dialog->setPalette(style::palette(isDark));
        EXPECT_EQ(shown->palette().color(QPalette::Text), style::tokens(isDark).secondaryText);
    }
}

TEST_F(AlertSheetTest, IsExposedToAssistiveTools) {
    QDialog* dialog = show({"Message", "Text"});
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(dialog);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name), "Message");
    EXPECT_EQ(interface->text(QAccessible::Description), "Text");
}

TEST_F(AlertSheetTest, RequestedTogetherAreShownOneAfterTheOther) {
    show({"First", "Text"});
    show({"Second", "Text"});
    EXPECT_EQ(text(shown("sheetAlert"), "messageText"), "First");
    click(shown("sheetAlert"), "Ok");
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown("sheetAlert") != nullptr; }));
    EXPECT_EQ(text(shown("sheetAlert"), "messageText"), "Second");
    EXPECT_THAT(journal, ElementsAre("1000/0", "afterwards"));
    click(shown("sheetAlert"), "Ok");
    ASSERT_TRUE(journalReaches(4));
    settle();
    EXPECT_EQ(journal.size(), 4U);
}

TEST_F(AlertSheetTest, RequestedByACompletionWaitsForThoseQueuedBefore) {
    alerts.show({"First", "Text"}, [this](AlertOutcome) {
        journal.push_back("first");
        alerts.show({"Third", "Text"}, [this](AlertOutcome) { journal.push_back("third"); });
    });
    alerts.show({"Second", "Text"}, [this](AlertOutcome) { journal.push_back("second"); });
    for (const char* expected : {"First", "Second", "Third"}) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return shown("sheetAlert") != nullptr; }));
        EXPECT_EQ(text(shown("sheetAlert"), "messageText"), expected);
        click(shown("sheetAlert"), "Ok");
    }
    ASSERT_TRUE(journalReaches(6));
    EXPECT_THAT(journal,
                ElementsAre("first", "afterwards", "second", "afterwards", "third", "afterwards"));
}

TEST_F(AlertSheetTest, CompletesOnlyAfterItIsHidden) {
    bool wasGone = false;
    alerts.show({"Message", "Text"}, [&](AlertOutcome) {
        wasGone = shown("sheetAlert") == nullptr;
        journal.push_back("completed");
    });
    click(shown("sheetAlert"), "Ok");
    EXPECT_THAT(journal, ElementsAre());
    ASSERT_TRUE(journalReaches(1));
    EXPECT_TRUE(wasGone);
}

TEST_F(AlertSheetTest, WithoutCompletionIsClosed) {
    alerts.show({"Message", "Text"});
    click(shown("sheetAlert"), "Ok");
    ASSERT_TRUE(journalReaches(1));
    EXPECT_EQ(shown("sheetAlert"), nullptr);
    EXPECT_FALSE(window.findChild<QWidget*>("sheetScrim")->isVisible());
}

} // namespace
} // namespace frimbolate
