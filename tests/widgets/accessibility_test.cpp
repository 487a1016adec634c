// Names, descriptions, roles and actions that the window exposes to assistive tools.
#include "tests/widgets/window_test.h"
#include "widgets/sheets/qt_alerts.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace frimbolate::test {
namespace {

QAccessibleInterface* access(QObject* object) {
    return QAccessible::queryAccessibleInterface(object);
}

using WindowAccessTest = WindowTest;

TEST_F(WindowAccessTest, ThePopOverIsAChildOfTheWindow) {
    QAccessibleInterface* whole = access(&window);
    QAccessibleInterface* part = access(find("popoverScriptObject"));
    ASSERT_TRUE(whole && part);
    EXPECT_EQ(whole->role(), QAccessible::Window);
    EXPECT_EQ(part->role(), QAccessible::Dialog);
    EXPECT_EQ(part->text(QAccessible::Name), "Script");
    EXPECT_EQ(part->parent(), whole);
    int listed = 0;
    for (int i = 0; i < whole->childCount(); ++i) {
        ASSERT_NE(whole->child(i), nullptr) << i;
        EXPECT_EQ(whole->indexOfChild(whole->child(i)), i);
        listed += whole->child(i) == part;
    }
    EXPECT_EQ(listed, 1);
    EXPECT_EQ(whole->child(whole->childCount()), nullptr);
    EXPECT_TRUE(part->state().invisible);

    show([](FormModel& model) { model.popoverScriptObject.shown = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return find("popoverScriptObject")->isVisible(); }));
    EXPECT_FALSE(part->state().invisible);
    const QPoint middle = part->rect().center();
    EXPECT_EQ(whole->childAt(middle.x(), middle.y()), part);
}

TEST_F(WindowAccessTest, AnAlertHasTheAlertRole) {
    QtAlerts alerts(queue, window);
    alerts.show({"It is broken", "It cannot be mended", {"Ok"}}, {});
    QAccessibleInterface* alert = access(queue.current());
    EXPECT_EQ(alert->role(), QAccessible::AlertMessage);
    EXPECT_EQ(alert->text(QAccessible::Name), "It is broken");
    EXPECT_EQ(alert->text(QAccessible::Description), "It cannot be mended");
    queue.current()->reject();
}

TEST_F(WindowAccessTest, EveryPopUpHasALabel) {
    int seen = 0;
    for (auto* button : window.findChildren<QComboBox*>()) {
        const auto labels = access(button)->relations(QAccessible::Label);
        ASSERT_EQ(labels.size(), 1) << button->objectName().toStdString();
        EXPECT_EQ(labels.first().first->text(QAccessible::Name), button->accessibleName());
        ++seen;
    }
    EXPECT_EQ(seen, 8);
}

// Assistive tools choose an item by selecting it in the list.

void selectByTool(QComboBox* button, int row) {
    QAccessibleInterface* list = access(button->view());
    list->child(row)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

TEST_F(WindowAccessTest, AnItemSelectedByAnAssistiveToolIsChosen) {
    auto* target = find<QComboBox>("agentTargetButton");
    selectByTool(target, TargetType::File);
    ASSERT_TRUE(QTest::qWaitFor([&] { return platform.isAsking(); }));
    EXPECT_EQ(form().agentTargetButton.selectedItem, TargetType::File);
    platform.choose("/Users/maya/backup.sh");

    auto* schedule = find<QComboBox>("agentScheduleTypeButton");
    window.show();
    schedule->showPopup();
    selectByTool(schedule, ScheduleType::OnInterval);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return form().agentScheduleTypeButton.selectedItem == ScheduleType::OnInterval; }));
    EXPECT_FALSE(schedule->view()->isVisible());
    EXPECT_FALSE(form().agentIntervalField.hidden) << "its action was sent";
}

TEST_F(WindowAccessTest, TheListFollowsAModelThatRevertsTheChoice) {
    auto* action = find<QComboBox>("agentActionButton");
    for (int times = 0; times < 2; ++times) {
        selectByTool(action, AgentAction::PathModified);
        ASSERT_TRUE(QTest::qWaitFor([&] { return platform.isAsking(); }));
        platform.cancelPanel();
        window.mirror();
        EXPECT_EQ(action->currentIndex(), AgentAction::None);
        EXPECT_TRUE(access(action->view())->child(AgentAction::None)->state().selected);
    }
}

TEST_F(WindowAccessTest, AnAssistiveToolTogglesThroughTheToolbar) {
    auto* advanced = find<QToolButton>("advancedToolbarItem");
    for (const bool open : {true, false}) {
        access(advanced)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(form().advancedDrawer.open, open);
        EXPECT_EQ(advanced->isChecked(), open);
    }
    find<QAction>("advancedToolbarItem")->trigger();
    EXPECT_TRUE(form().advancedDrawer.open);
    EXPECT_TRUE(advanced->isChecked());
    QTest::mouseClick(advanced, Qt::LeftButton);
    EXPECT_FALSE(form().advancedDrawer.open);
    EXPECT_FALSE(advanced->isChecked());
}

TEST_F(WindowAccessTest, AnAssistiveToolCannotChooseADisabledItem) {
    show([](FormModel& model) {
        model.agentScheduleTypeButton.disabledItems = {ScheduleType::OnInterval};
    });
    auto* schedule = find<QComboBox>("agentScheduleTypeButton");
    selectByTool(schedule, ScheduleType::OnInterval);
    show([](FormModel& model) { model.agentTargetButton.enabled = false; });
    selectByTool(find<QComboBox>("agentTargetButton"), TargetType::Script);
    // The next selected item is enabled.
    selectByTool(find<QComboBox>("priorityLevelButton"), PriorityLevel::Low);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return form().priorityLevelButton.selectedItem == PriorityLevel::Low; }));
    EXPECT_EQ(form().agentScheduleTypeButton.selectedItem, ScheduleType::EveryDay);
    EXPECT_EQ(form().agentTargetButton.selectedItem, TargetType::None);
}

TEST_F(WindowAccessTest, OnlyOneControlReportsTheFocus) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    find<QAction>("createNewAgent")->trigger();
    QStringList focused;
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (QAccessible::queryAccessibleInterface(widget)->state().focused)
            focused.append(widget->objectName());
    EXPECT_EQ(focused.join(", ").toStdString(), "agentNameTextField");
}

TEST_F(WindowAccessTest, MovingThroughTheListChoosesNothing) {
    auto* action = find<QComboBox>("agentActionButton");
    window.show();
    action->showPopup();
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(action->view(), Qt::Key_Down);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(form().agentActionButton.selectedItem, AgentAction::None);
    EXPECT_TRUE(action->view()->isVisible());
    QTest::keyClick(action->view(), Qt::Key_Escape);
    QCoreApplication::processEvents(); // the selection is handled by a queued call
    EXPECT_EQ(form().agentActionButton.selectedItem, AgentAction::None);
    EXPECT_FALSE(platform.isAsking());
}

TEST_F(WindowAccessTest, AHighlightedItemCanBeChosenByAnAssistiveToolLater) {
    auto* action = find<QComboBox>("agentActionButton");
    window.show();
    action->showPopup();
    QTest::keyClick(action->view(), Qt::Key_Down);
    const int lit = action->view()->currentIndex().row();
    ASSERT_NE(lit, AgentAction::None);
    QTest::keyClick(action->view(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return access(action->view())->child(AgentAction::None)->state().selected; }));
    EXPECT_EQ(form().agentActionButton.selectedItem, AgentAction::None);
    selectByTool(action, lit);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form().agentActionButton.selectedItem == lit; }));
}

// Descriptions

TEST_F(WindowAccessTest, AControlIsDescribedByItsHint) {
    show([](FormModel& model) {
        model.agentScheduleTypeButton.selectedItem = ScheduleType::OnInterval;
        model.agentIntervalField.hidden = model.agentIntervalTypeButton.hidden = false;
        model.agentActionButton.selectedItem = AgentAction::OnSchedule;
    });
    platform.journal.clear();
    find<QAction>("validateAgentConfig")->trigger();
    platform.press("Ok");
    const std::pair<const char*, const char*> rows[] = {
        {"agentNameTextField", "nameHint"},     {"agentTargetButton", "targetHint"},
        {"agentActionButton", "actionHint"},    {"agentScheduleTypeButton", "scheduleHint"},
        {"agentIntervalField", "scheduleHint"}, {"onMonthTextField", "scheduleHint"}};
    for (const auto& [control, hint] : rows)
        EXPECT_EQ(find(control)->accessibleDescription(), find<QLabel>(hint)->text()) << control;
    const QString fault = find("agentIntervalField")->accessibleDescription();
    find<QLineEdit>("agentIntervalField")->setText("5");
    EXPECT_NE(find("agentIntervalField")->accessibleDescription(), fault);
    EXPECT_EQ(find("agentIntervalField")->accessibleDescription(),
              find<QLabel>("scheduleHint")->text());
}

} // namespace
} // namespace frimbolate::test
