// The switcher in the status line and the commands of the View menu.
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"
#include "widgets/pages/page_stack.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>

namespace frimbolate::test {
namespace {

class PageSwitcherTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    QRadioButton* segment(Page page) {
        return find<QRadioButton>(std::string(titleOf(page).name) + "Segment");
    }
    QAction* command(Page page) { return find<QAction>(titleOf(page).name); }
    void expectShown(Page page) {
        auto* pages = find<PageStack>("pages");
        EXPECT_EQ(pages->page(), page);
        for (int i = 0; i < pageCount; ++i) {
            const Page each = static_cast<Page>(i);
            EXPECT_EQ(pages->widget(i)->isVisible(), each == page) << i;
            EXPECT_EQ(command(each)->isChecked(), each == page) << i;
            EXPECT_EQ(segment(each)->isChecked(), each == page) << i;
            EXPECT_EQ(bool(segment(each)->focusPolicy() & Qt::TabFocus), each == page) << i;
        }
    }
    static constexpr Page last = static_cast<Page>(pageCount - 1);
};

TEST_F(PageSwitcherTest, OpensOnTheForm) {
    expectShown(Page::Form);
    EXPECT_EQ(window.focusWidget(), find("agentNameTextField"));
}

TEST_F(PageSwitcherTest, EveryCommandShowsItsPage) {
    for (const Page page : {Page::PropertyList, last, Page::Form}) {
        command(page)->trigger();
        expectShown(page);
        EXPECT_EQ(window.size(), QSize(680, 472));
    }
}

TEST_F(PageSwitcherTest, TheCommandsStandAboveTheOthersOfTheViewMenu) {
    const auto actions = find<QMenu>("viewMenu")->actions();
    for (int i = 0; i < pageCount; ++i) {
        EXPECT_EQ(actions[i], command(static_cast<Page>(i)));
        EXPECT_EQ(actions[i]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + i)));
    }
    EXPECT_TRUE(actions[pageCount]->isSeparator());
    EXPECT_EQ(actions[pageCount + 1], find<QAction>("showHideTips"));
}

TEST_F(PageSwitcherTest, NoTwoMnemonicsOfTheViewMenuAreTheSame) {
    QStringList letters;
    for (const QAction* action : find<QMenu>("viewMenu")->actions()) {
        if (action->isSeparator())
            continue;
        const qsizetype mark = action->text().indexOf('&');
        ASSERT_GE(mark, 0) << action->text().toStdString();
        const QString letter = action->text().mid(mark + 1, 1).toLower();
        EXPECT_FALSE(letters.contains(letter)) << action->text().toStdString();
        letters.append(letter);
    }
}

TEST_F(PageSwitcherTest, AClickShowsThePageOfItsSegment) {
    for (const Page page : {last, Page::PropertyList, Page::Form}) {
        QTest::mouseClick(segment(page), Qt::LeftButton, {}, QPoint(2, 2));
        expectShown(page);
    }
}

TEST_F(PageSwitcherTest, ArrowKeysChooseTheSegmentBesideAndKeepTheFocus) {
    segment(Page::Form)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    expectShown(Page::PropertyList);
    EXPECT_EQ(window.focusWidget(), segment(Page::PropertyList));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    expectShown(Page::Form);
    EXPECT_EQ(window.focusWidget(), segment(Page::Form));
}

TEST_F(PageSwitcherTest, EverySegmentHasANameAndATip) {
    const QStringList names = {"Form", "Property List", "Agents"};
    for (int i = 0; i < pageCount; ++i) {
        auto* shown = segment(static_cast<Page>(i));
        const auto* access = QAccessible::queryAccessibleInterface(shown);
        EXPECT_EQ(access->role(), QAccessible::RadioButton);
        EXPECT_EQ(access->text(QAccessible::Name), names[i]);
        EXPECT_TRUE(shown->toolTip().startsWith(names[i])) << shown->toolTip().toStdString();
        EXPECT_TRUE(shown->toolTip().contains(QString::number(i + 1)));
    }
}

TEST_F(PageSwitcherTest, ThePageHasTheFocusAfterItsCommandAndTheFormKeepsItsOwn) {
    find("agentScheduleTypeButton")->setFocus();
    command(Page::PropertyList)->trigger();
    EXPECT_EQ(window.focusWidget(), find("propertyList"));
    command(Page::Form)->trigger();
    EXPECT_EQ(window.focusWidget(), find("agentScheduleTypeButton"));
}

TEST_F(PageSwitcherTest, NewAndAFailedValidationShowTheForm) {
    command(Page::PropertyList)->trigger();
    find<QAction>("createNewAgent")->trigger();
    expectShown(Page::Form);
    EXPECT_EQ(window.focusWidget(), find("agentNameTextField"));

    command(Page::PropertyList)->trigger();
    find<QAction>("validateAgentConfig")->trigger();
    expectShown(Page::PropertyList);
    platform.press("Ok");
    window.mirror();
    expectShown(Page::Form);
    EXPECT_EQ(window.focusWidget(), find("agentNameTextField"));
}

TEST_F(PageSwitcherTest, AnOpenedScriptShowsTheForm) {
    command(Page::PropertyList)->trigger();
    show([](FormModel& form) { form.popoverScriptObject.shown = true; });
    expectShown(Page::Form);
    show([](FormModel& form) { form.popoverScriptObject.shown = false; });
}

} // namespace
} // namespace frimbolate::test
