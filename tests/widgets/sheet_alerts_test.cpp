#include "tests/widgets/sheet_fixture.h"

#include "ui/widgets/sheet_alerts.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QScrollArea>

namespace frimbolate {
namespace {

using testing::ElementsAre;

class Alert : public SheetFixture {
  protected:
    /// Shows the alert and writes its outcome into the journal.
    AlertDialog* show(const SheetAlert& alert) {
        alerts.show(alert, [this](AlertOutcome outcome) {
            journal.push_back(std::to_string(outcome.answer) + "/" +
                              std::to_string(outcome.suppressionState));
        });
        return shown<AlertDialog>("sheetAlert");
    }
    static QString text(QDialog* dialog, const char* name) {
        return dialog->findChild<QLabel*>(name)->text();
    }

    SheetAlerts alerts{stack, window};
};

struct AnswerRow {
    const char* name;
    std::vector<std::string> buttons;
    const char* click; ///< a title
    const char* outcome;
};

class AlertAnswers : public Alert, public testing::WithParamInterface<AnswerRow> {};

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

TEST_F(Alert, HasItsFirstButtonAsDefault) {
    QDialog* dialog = show({"Message", "Text", {"Continue", "Cancel"}});
    EXPECT_TRUE(button(dialog, "Continue")->isDefault());
    EXPECT_FALSE(button(dialog, "Cancel")->isDefault());
    EXPECT_EQ(dialog->focusWidget(), button(dialog, "Continue"));
    QTest::keyClick(dialog, Qt::Key_Return);
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), "1000/0");
}

TEST_F(Alert, PutsTheDefaultInTheCorner) {
    QDialog* dialog = show({"Message", "Text", {"One", "Two"}});
    const auto left = [&](const char* title) {
        return button(dialog, title)->mapTo(dialog, QPoint()).x();
    };
    EXPECT_LT(left("Two"), left("One"));
}

TEST_F(Alert, ShowsItsTextsAsTheyAre) {
    QDialog* dialog = show({"A <b>bold</b> & plain title", "First\n\n<i>Second</i>"});
    EXPECT_EQ(text(dialog, "messageText"), "A <b>bold</b> & plain title");
    EXPECT_EQ(text(dialog, "informativeText"), "First\n\n<i>Second</i>");
    for (const char* name : {"messageText", "informativeText"}) {
        const auto* label = dialog->findChild<QLabel*>(name);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_TRUE(label->textInteractionFlags() & Qt::TextSelectableByMouse);
    }
}

TEST_F(Alert, HasNoEmptyLineAboveItsButtons) {
    EXPECT_EQ(text(show({"Message", "One\n\nTwo\n"}), "informativeText"), "One\n\nTwo");
}

TEST_F(Alert, OffersSuppressionOnlyWhereAsked) {
    QDialog* plain = show({"Message", "Text"});
    EXPECT_EQ(plain->findChild<QCheckBox*>("suppressionButton"), nullptr);
}

TEST_F(Alert, TellsWhetherItIsToBeSuppressed) {
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

TEST_F(Alert, BlocksTheWindowAndHangsUnderTheToolbar) {
    AlertDialog* dialog = show({"Message", "Text"});
    EXPECT_EQ(QApplication::activeModalWidget(), dialog);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    const QRect panel = dialog->panelRect().translated(window.mapFromGlobal(dialog->pos()));
    EXPECT_EQ(panel.top(), sheetArea(window).top());
    EXPECT_EQ(panel.width(), 440);
    EXPECT_NEAR(panel.center().x(), window.rect().center().x(), 1);
    EXPECT_TRUE(window.findChild<QWidget*>("sheetScrim")->isVisible());
}

TEST_F(Alert, FollowsTheWindow) {
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

TEST_F(Alert, OfUsualLengthShowsAllOfItsText) {
    AlertDialog* dialog = show({"Message", words(100), {"Continue", "Cancel"}, true});
    EXPECT_LE(dialog->panelRect().height(), 348);
    EXPECT_EQ(dialog->findChild<QScrollArea*>(), nullptr);
    const auto* label = dialog->findChild<QLabel*>("informativeText");
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
}

TEST_F(Alert, OfGreatLengthStaysInsideTheFormAndScrolls) {
    AlertDialog* dialog = show({"Message", words(1000)});
    EXPECT_LE(dialog->panelRect().height(), 348);
    auto* scroll = dialog->findChild<QScrollArea*>();
    ASSERT_NE(scroll, nullptr);
    EXPECT_GT(scroll->widget()->height(), scroll->viewport()->height());
    EXPECT_EQ(scroll->widget()->width(), scroll->viewport()->width());
}

TEST_F(Alert, IsToldToAssistiveTechnology) {
    QDialog* dialog = show({"Message", "Text"});
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(dialog);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name), "Message");
    EXPECT_EQ(interface->text(QAccessible::Description), "Text");
}

TEST_F(Alert, AskedForInOneBreathAreShownOneAfterTheOther) {
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

TEST_F(Alert, AskedForByACompletionWaitsForThoseBefore) {
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

TEST_F(Alert, CompletesOnlyWhenItHasLeftTheScreen) {
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

TEST_F(Alert, WithoutCompletionGoesAway) {
    alerts.show({"Message", "Text"});
    click(shown("sheetAlert"), "Ok");
    ASSERT_TRUE(journalReaches(1));
    EXPECT_EQ(shown("sheetAlert"), nullptr);
    EXPECT_FALSE(window.findChild<QWidget*>("sheetScrim")->isVisible());
}

} // namespace
} // namespace frimbolate
