// Input in a control changes the model and sends the control's one action.
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/style/tokens.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCursor>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSlider>
#include <QToolButton>
#include <QWheelEvent>

#include <functional>

namespace frimbolate::test {
namespace {

void choose(QComboBox* button, int item) {
    button->setCurrentIndex(item);
    emit button->activated(item);
}

/// The journal entry of an action that asks for a file.
constexpr const char* targetPanel = "Please choose an application, script, or workflow (.app, .sh, "
                                    ".py, .rb, .pl, .scpt, .workflow):";

TEST_F(WindowTest, TypedTextsReachTheModel) {
    const std::pair<const char*, TextField FormModel::*> rows[] = {
        {"agentNameTextField", &FormModel::agentNameTextField},
        {"agentIntervalField", &FormModel::agentIntervalField},
        {"onMonthTextField", &FormModel::onMonthTextField},
        {"standardInPathField", &FormModel::standardInPathField},
        {"standardOutPathField", &FormModel::standardOutPathField},
        {"standardErrorPathField", &FormModel::standardErrorPathField},
        {"workingDirectoryField", &FormModel::workingDirectoryField},
        {"rootDirectoryField", &FormModel::rootDirectoryField},
        {"queueDirectoryField", &FormModel::queueDirectoryField}};
    for (const auto& [name, member] : rows) {
        QTest::keyClicks(find(name), "12");
        EXPECT_EQ((form().*member).stringValue, "12") << name;
        find<QLineEdit>(name)->setText("set by an assistive tool");
        EXPECT_EQ((form().*member).stringValue, "set by an assistive tool") << name;
    }
    EXPECT_TRUE(platform.journal.lines().empty());
}

TEST_F(WindowTest, ATypedScriptReachesTheModelAsItWasTyped) {
    auto* field = find<QPlainTextEdit>("scriptPopOverScriptField");
    field->insertPlainText(QString::fromUtf8("echo\u00a0a\nexit 1"));
    EXPECT_EQ(form().scriptPopOverScriptField.stringValue, "echo\u00a0a\nexit 1");
}

TEST_F(WindowTest, PopUpsWithoutAnActionReachTheModel) {
    const std::tuple<const char*, PopUp FormModel::*, int> rows[] = {
        {"agentIntervalTypeButton", &FormModel::agentIntervalTypeButton, IntervalUnit::Hours},
        {"priorityLevelButton", &FormModel::priorityLevelButton, PriorityLevel::Low},
        {"globalGlobbingCheckbox", &FormModel::globalGlobbingCheckbox, 0},
        {"globalPriorityCheckbox", &FormModel::globalPriorityCheckbox, 1}};
    for (const auto& [name, member, item] : rows) {
        ASSERT_NE((form().*member).selectedItem, item) << name;
        choose(find<QComboBox>(name), item);
        EXPECT_EQ((form().*member).selectedItem, item) << name;
    }
}

TEST_F(WindowTest, CheckBoxesReachTheModel) {
    const std::pair<const char*, CheckBox FormModel::*> rows[] = {
        {"enableGlobbingCheckbox", &FormModel::enableGlobbingCheckbox},
        {"alsoRunAtLoadCheckbox", &FormModel::alsoRunAtLoadCheckbox},
        {"alsoRunVolumeCheckbox", &FormModel::alsoRunVolumeCheckbox},
        {"allowSuccessfulExitCheckbox", &FormModel::allowSuccessfulExitCheckbox},
        {"showWelcomeWindowCheckbox", &FormModel::showWelcomeWindowCheckbox},
        {"autoCopyScriptCheckbox", &FormModel::autoCopyScriptCheckbox},
        {"warnSuccessfulExitCheckbox", &FormModel::warnSuccessfulExitCheckbox},
        {"showWelcomeCheckbox", &FormModel::showWelcomeCheckbox},
        {"autoCopyScriptsCheckbox2", &FormModel::autoCopyScriptsCheckbox2}};
    for (const auto& [name, member] : rows) {
        show([member = member](FormModel& model) { model.*member = {CheckState::Off, true}; });
        find<QCheckBox>(name)->click();
        EXPECT_EQ((form().*member).state, CheckState::On) << name;
        find<QCheckBox>(name)->toggle(); // as assistive tools do
        EXPECT_EQ((form().*member).state, CheckState::Off) << name;
        show([member = member](FormModel& model) { (model.*member).state = CheckState::Mixed; });
        find<QCheckBox>(name)->click();
        EXPECT_EQ((form().*member).state, CheckState::On) << name;
    }
}

TEST_F(WindowTest, TheSliderSendsItsAction) {
    find<QSlider>("niceLevelSlider")->setValue(-20);
    EXPECT_EQ(form().niceLevelSlider.value, -20);
    EXPECT_EQ(find<QLineEdit>("niceLevelTextField")->text(), "-20");
}

TEST_F(WindowTest, TheActionPopUpSendsItsAction) {
    choose(find<QComboBox>("agentActionButton"), AgentAction::VolumeMounted);
    EXPECT_EQ(form().agentWatchPathImageWell.toolTip, "/Volumes");
    EXPECT_FALSE(find("agentScheduleTypeButton")->isEnabled());
    EXPECT_EQ(find<QComboBox>("agentScheduleTypeButton")->currentIndex(), -1);
    EXPECT_EQ(find("agentScheduleTypeButton")->width(), 311);
}

TEST_F(WindowTest, TheSchedulePopUpSendsItsAction) {
    choose(find<QComboBox>("agentScheduleTypeButton"), ScheduleType::OnceAMonth);
    EXPECT_FALSE(find("onMonthTextBox")->isHidden());
    EXPECT_EQ(find("agentScheduleDatePicker")->maximumWidth(), 90);
}

TEST_F(WindowTest, ChoosingAFileAsTargetAsksForOne) {
    choose(find<QComboBox>("agentTargetButton"), TargetType::File);
    EXPECT_EQ(platform.shownOpenPanel().message, targetPanel);
    platform.choose("/Users/maya/backup.sh");
    window.mirror();
    EXPECT_EQ(find("agentTargetImageWell")->toolTip(), "/Users/maya/backup.sh");
}

TEST_F(WindowTest, ChoosingTheSameItemAgainAsksAgain) {
    for (int times = 0; times < 2; ++times) {
        choose(find<QComboBox>("agentTargetButton"), TargetType::File);
        platform.choose("/Users/maya/backup.sh");
    }
    EXPECT_EQ(platform.journal.count("open panel"), 2u);
    for (int times = 0; times < 2; ++times) {
        choose(find<QComboBox>("agentActionButton"), AgentAction::PathModified);
        platform.choose("/Users/maya/Pictures");
    }
    EXPECT_EQ(platform.journal.count("open panel"), 4u);
}

TEST_F(WindowTest, ChoosingANewScriptShowsItsPopOver) {
    choose(find<QComboBox>("agentTargetButton"), TargetType::Script);
    EXPECT_TRUE(form().popoverScriptObject.shown);
    EXPECT_FALSE(find("showPopOverScriptButton")->isHidden());
    choose(find<QComboBox>("agentTargetButton"), TargetType::None);
    EXPECT_FALSE(form().popoverScriptObject.shown);
    EXPECT_TRUE(find("showPopOverScriptButton")->isHidden());
}

TEST_F(WindowTest, ThePathBoxSendsItsAction) {
    find<QCheckBox>("alsoRunPathChangeCheckbox")->click();
    platform.cancelPanel();
    window.mirror();
    EXPECT_FALSE(find<QCheckBox>("alsoRunPathChangeCheckbox")->isChecked());
    find<QCheckBox>("alsoRunPathChangeCheckbox")->click();
    platform.choose("/Users/maya/Pictures");
    window.mirror();
    EXPECT_EQ(find("alsoRunPathChangeImageWell")->toolTip(), "/Users/maya/Pictures");
}

TEST_F(WindowTest, TheTargetWellAsksForAFile) {
    find<QToolButton>("agentTargetImageWell")->click();
    EXPECT_EQ(form().agentTargetButton.selectedItem, TargetType::File);
    EXPECT_EQ(platform.shownOpenPanel().message, targetPanel);
    platform.cancelPanel();
}

TEST_F(WindowTest, TheTargetWellOfAScriptShowsTheScript) {
    choose(find<QComboBox>("agentTargetButton"), TargetType::Script);
    show([](FormModel& model) { model.popoverScriptObject.shown = false; });
    find<QToolButton>("agentTargetImageWell")->click();
    EXPECT_TRUE(form().popoverScriptObject.shown);
    EXPECT_FALSE(platform.isAsking());
}

TEST_F(WindowTest, TheWatchPathWellAsksAgainOnlyForAPath) {
    choose(find<QComboBox>("agentActionButton"), AgentAction::VolumeMounted);
    find<QToolButton>("agentWatchPathImageWell")->click();
    EXPECT_FALSE(platform.isAsking());
    choose(find<QComboBox>("agentActionButton"), AgentAction::PathModified);
    platform.choose("/Users/maya/Pictures");
    window.mirror();
    find<QToolButton>("agentWatchPathImageWell")->click();
    EXPECT_EQ(platform.shownOpenPanel().message, "Please choose folder:");
    platform.cancelPanel();
}

TEST_F(WindowTest, TipButtonsShowTheirTips) {
    const std::pair<const char*, const char*> rows[] = {
        {"agentNameTipButton", "What's in a name?"},
        {"agentTargetTipButton",
         "Frimbolate helps you automate the launching of applications and scripts."},
        {"agentActionTipButton", "The right tool for the job."},
        {"agentScheduleTipButton", "Timing is everything."},
        {"advancedDrawerTipButton", "Advanced features for complex jobs."}};
    for (const auto& [name, title] : rows) {
        find<QToolButton>(name)->click();
        EXPECT_EQ(platform.shownAlert().messageText, title) << name;
        platform.press("Ok");
    }
}

TEST_F(WindowTest, CommandsSendTheirActions) {
    const std::pair<const char*, const char*> asking[] = {
        {"loadLaunchAgent", "Please choose a launch agent to load:"},
        {"unloadLaunchAgent", "Please choose a launch agent to unload:"}};
    for (const auto& [name, message] : asking) {
        find<QAction>(name)->trigger();
        EXPECT_EQ(platform.shownOpenPanel().message, message) << name;
        platform.cancelPanel();
    }
    for (const char* name :
         {"editLaunchAgent", "deleteLaunchAgent", "onOffLaunchAgent", "validateAgentConfig"}) {
        find<QAction>(name)->trigger();
        EXPECT_TRUE(platform.isAsking()) << name;
        platform.abandonQuestions();
    }
    QTest::keyClicks(find("agentNameTextField"), "backup");
    find<QAction>("createNewAgent")->trigger();
    EXPECT_EQ(find<QLineEdit>("agentNameTextField")->text(), "");
    const bool hidden = form().agentNameTipButton.hidden;
    find<QAction>("showHideTips")->trigger();
    EXPECT_EQ(form().agentNameTipButton.hidden, !hidden);
    EXPECT_EQ(find<QAction>("showHideTips")->isChecked(), hidden);
    for (const bool open : {true, false}) {
        find<QAction>("advancedToolbarItem")->trigger();
        EXPECT_EQ(form().advancedDrawer.open, open);
    }
}

TEST_F(WindowTest, EditCommandsActOnTheFocusedField) {
    window.activateWindow();
    auto* field = find<QLineEdit>("agentNameTextField");
    field->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([field] { return field->hasFocus(); }));
    QTest::keyClicks(field, "backup");
    find<QAction>("selectAll")->trigger();
    EXPECT_EQ(field->selectedText(), "backup");
    find<QAction>("cut")->trigger();
    EXPECT_EQ(form().agentNameTextField.stringValue, "");
    find<QAction>("paste")->trigger();
    EXPECT_EQ(form().agentNameTextField.stringValue, "backup");
    find<QAction>("undo")->trigger();
    EXPECT_EQ(form().agentNameTextField.stringValue, "");
    find<QAction>("redo")->trigger();
    EXPECT_EQ(form().agentNameTextField.stringValue, "backup");
}

TEST_F(WindowTest, EditCommandsLeaveAFieldThatCannotBeEdited) {
    window.activateWindow();
    show([](FormModel& model) { model.advancedDrawer.open = true; });
    auto* field = find<QLineEdit>("niceLevelTextField");
    field->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([field] { return field->hasFocus(); }));
    QGuiApplication::clipboard()->setText("7");
    for (const char* command : {"selectAll", "paste", "cut"}) {
        find<QAction>(command)->trigger();
        EXPECT_EQ(field->text(), "0") << command;
        EXPECT_EQ(form().niceLevelTextField.stringValue, "0") << command;
    }
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "7");
    find<QAction>("copy")->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "0");
}

TEST_F(WindowTest, EditCommandsFindNothingToEditInAList) {
    static int warnings;
    warnings = 0;
    window.activateWindow();
    find<QAction>("showAgents")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return find("agents")->hasFocus(); }));
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
    for (const char* command : {"cut", "copy", "paste", "selectAll"})
        find<QAction>(command)->trigger();
    qInstallMessageHandler(before);
    EXPECT_EQ(warnings, 0) << "the list has no such command";
}

TEST_F(WindowTest, APopUpIsNotHoveredAfterTheMouseLeftDuringItsList) {
    QWidget* button = find("agentActionButton");
    button->setAttribute(Qt::WA_UnderMouse); // the toolkit does not reset it when the list closes
    const auto background = [button] {
        return button->grab().toImage().pixelColor(button->width() - 40, 5);
    };
    QCursor::setPos(button->mapToGlobal(button->rect().center()));
    EXPECT_EQ(background(), style::tokens(false).hover);
    QCursor::setPos(window.mapToGlobal(QPoint(1, 1)));
    EXPECT_EQ(background(), style::tokens(false).button);
}

TEST_F(WindowTest, TheWheelAndArrowKeysChooseNothing) {
    auto* button = find<QComboBox>("agentActionButton");
    QWheelEvent turn({5, 5}, button->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(button, &turn);
    QTest::keyClick(button, Qt::Key_Down);
    EXPECT_EQ(form().agentActionButton.selectedItem, AgentAction::None);
    EXPECT_TRUE(button->view()->isVisible());
    button->hidePopup();
}

} // namespace
} // namespace frimbolate::test
