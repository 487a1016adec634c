// Every control has its outlet's name, the expected class and an accessible name.
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "ui/actions.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QToolBar>

namespace frimbolate::test {
namespace {

struct Outlet {
    const char* name;
    const char* className; ///< a base class of the control
};

constexpr Outlet outlets[] = {
    {"mainWindowToolbar", "QToolBar"},
    {"agentNameTextField", "QLineEdit"},
    {"agentTargetButton", "QComboBox"},
    {"agentTargetImageWell", "QToolButton"},
    {"showPopOverScriptButton", "QToolButton"},
    {"agentActionButton", "QComboBox"},
    {"agentWatchPathImageWell", "QToolButton"},
    {"agentScheduleTypeButton", "QComboBox"},
    {"agentScheduleDatePicker", "QAbstractSpinBox"},
    {"agentIntervalField", "QLineEdit"},
    {"agentIntervalTypeButton", "QComboBox"},
    {"onMonthTextBox", "QWidget"},
    {"onMonthTextField", "QLineEdit"},
    {"nameErrorImageWell", "QLabel"},
    {"targetErrorImageWell", "QLabel"},
    {"actionErrorImageWell", "QLabel"},
    {"scheduleErrorImageWell", "QLabel"},
    {"popoverScriptObject", "QWidget"},
    {"scriptPopOverScriptField", "QPlainTextEdit"},
    {"scriptPopOverLanguageButton", "QComboBox"},
    {"advancedDrawer", "QWidget"},
    {"priorityLevelButton", "QComboBox"},
    {"niceLevelSlider", "QSlider"},
    {"niceLevelTextField", "QLineEdit"},
    {"standardInPathField", "QLineEdit"},
    {"standardOutPathField", "QLineEdit"},
    {"standardErrorPathField", "QLineEdit"},
    {"workingDirectoryField", "QLineEdit"},
    {"rootDirectoryField", "QLineEdit"},
    {"queueDirectoryField", "QLineEdit"},
    {"enableGlobbingCheckbox", "QCheckBox"},
    {"alsoRunAtLoadCheckbox", "QCheckBox"},
    {"alsoRunVolumeCheckbox", "QCheckBox"},
    {"alsoRunPathChangeCheckbox", "QCheckBox"},
    {"alsoRunPathChangeImageWell", "QToolButton"},
    {"allowSuccessfulExitCheckbox", "QCheckBox"},
    {"agentNameTipButton", "QToolButton"},
    {"agentTargetTipButton", "QToolButton"},
    {"agentActionTipButton", "QToolButton"},
    {"agentScheduleTipButton", "QToolButton"},
    {"advancedDrawerTipButton", "QToolButton"},
    {"welcomeWindow", "QDialog"},
    {"showWelcomeCheckbox", "QCheckBox"},
    {"closeWelcomeWindow", "QPushButton"},
    {"preferencesWindow", "QDialog"},
    {"showWelcomeWindowCheckbox", "QCheckBox"},
    {"autoCopyScriptCheckbox", "QCheckBox"},
    {"warnSuccessfulExitCheckbox", "QCheckBox"},
    {"globalGlobbingCheckbox", "QComboBox"},
    {"globalPriorityCheckbox", "QComboBox"},
    {"savePreferences", "QPushButton"},
    {"closeWithoutSavingPrefs", "QPushButton"},
    {"resetPreferences", "QPushButton"},
    {"executeScriptWindow", "QDialog"},
    {"actionScriptTextView", "QPlainTextEdit"},
    {"autoCopyScriptsCheckbox2", "QCheckBox"},
    {"launchTerminalButton", "QPushButton"},
    {"closeExecuteScriptWindow", "QPushButton"},
};

TEST_F(WindowTest, EveryOutletExistsUnderItsName) {
    EXPECT_EQ(window.objectName(), "mainWindow");
    for (const Outlet& outlet : outlets) {
        const QWidget* widget = nullptr;
        ASSERT_NO_THROW(widget = find(outlet.name)) << outlet.name;
        EXPECT_TRUE(widget->inherits(outlet.className)) << outlet.name;
    }
}

TEST_F(WindowTest, NoTwoWidgetsOfAKindShareAName) {
    for (const Outlet& outlet : outlets)
        EXPECT_EQ(window.findChildren<QWidget*>(outlet.name).size(), 1) << outlet.name;
}

TEST_F(WindowTest, EveryCommandIsAnActionUnderItsNameWithItsShortcut) {
    for (const Action& row : actions()) {
        const auto* action = find<QAction>(std::string(row.name));
        EXPECT_EQ(action->shortcut(),
                  QKeySequence(QString::fromUtf8(row.shortcut.data()), QKeySequence::PortableText))
            << row.name;
        const bool isInToolbar =
            find<QToolBar>("mainWindowToolbar")->actions().contains(const_cast<QAction*>(action));
        EXPECT_EQ(isInToolbar, !row.toolTitle.empty()) << row.name;
    }
}

TEST_F(WindowTest, NoTwoCommandsShareAShortcut) {
    QList<QKeySequence> taken;
    for (const auto* action : window.findChildren<QAction*>()) {
        if (action->shortcut().isEmpty())
            continue;
        EXPECT_FALSE(taken.contains(action->shortcut()))
            << action->shortcut().toString().toStdString();
        taken.append(action->shortcut());
    }
    EXPECT_GE(taken.size(), 17); // ten commands, quit, close, and the editing ones
}

TEST_F(WindowTest, EveryInteractiveWidgetHasAnAccessibleName) {
    int seen = 0;
    for (const auto* widget : window.findChildren<QWidget*>()) {
        const bool isOurs =
            !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
        const bool isInteractive = qobject_cast<const QAbstractButton*>(widget) ||
                                   qobject_cast<const QComboBox*>(widget) ||
                                   qobject_cast<const QLineEdit*>(widget) ||
                                   qobject_cast<const QAbstractSpinBox*>(widget) ||
                                   qobject_cast<const QPlainTextEdit*>(widget) ||
                                   qobject_cast<const QAbstractSlider*>(widget);
        if (!isOurs || !isInteractive)
            continue;
        ++seen;
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
    EXPECT_GE(seen, 50);
}

TEST_F(WindowTest, NoTwoMnemonicsOfTheFormAreTheSame) {
    QStringList taken;
    const auto take = [&taken](const QString& text) {
        const qsizetype at = text.indexOf('&');
        if (at < 0)
            return;
        const QString letter = text.mid(at + 1, 1).toLower();
        EXPECT_FALSE(taken.contains(letter)) << text.toStdString();
        taken.append(letter);
    };
    for (const auto* action : window.menuBar()->actions())
        take(action->text());
    for (const char* part : {"form", "advancedDrawer"}) {
        for (const auto* label : find(part)->findChildren<QLabel*>())
            if (label->buddy())
                take(label->text());
        for (const auto* button : find(part)->findChildren<QAbstractButton*>())
            take(button->text());
    }
    EXPECT_EQ(taken.size(), 6 + 4 + 8 + 5); // menus, rows, drawer captions, check boxes
}

TEST_F(WindowTest, ALabelHasItsControlAsBuddy) {
    const std::pair<const char*, const char*> rows[] = {
        {"Name", "agentNameTextField"},          {"What to launch", "agentTargetButton"},
        {"When to launch", "agentActionButton"}, {"Schedule", "agentScheduleTypeButton"},
        {"Priority", "priorityLevelButton"},     {"Queue folder", "queueDirectoryField"}};
    for (const auto& [words, control] : rows) {
        const auto labels = window.findChildren<QLabel*>();
        const auto found = std::ranges::find_if(labels, [words = words](const QLabel* label) {
            return label->text().remove('&') == words;
        });
        ASSERT_NE(found, labels.end()) << words;
        EXPECT_EQ((*found)->buddy(), find(control)) << words;
    }
}

TEST_F(WindowTest, ImageWellsExposeTheirPath) {
    const std::pair<const char*, ImageWell FormModel::*> wells[] = {
        {"agentTargetImageWell", &FormModel::agentTargetImageWell},
        {"agentWatchPathImageWell", &FormModel::agentWatchPathImageWell},
        {"alsoRunPathChangeImageWell", &FormModel::alsoRunPathChangeImageWell}};
    for (const auto& [name, member] : wells) {
        show([member = member](FormModel& model) {
            model.*member = {Image::iconForFile("/Users/maya/backup.sh"), "/Users/maya/backup.sh"};
        });
        EXPECT_EQ(find(name)->toolTip(), "/Users/maya/backup.sh") << name;
        EXPECT_EQ(find(name)->accessibleDescription(), "/Users/maya/backup.sh") << name;
        show([member = member](FormModel& model) { (model.*member).clear(); });
        EXPECT_NE(find(name)->toolTip(), "/Users/maya/backup.sh") << name;
        EXPECT_EQ(find(name)->accessibleDescription(), "Nothing chosen") << name;
    }
}

TEST_F(WindowTest, TabFollowsTheReadingOrder) {
    show([](FormModel& model) {
        model.agentWatchPathImageWell = {Image::iconForFile("/Users/maya"), "/Users/maya"};
        model.agentActionButton.selectedItem = AgentAction::PathModified;
        model.showPopOverScriptButton.hidden = false;
        model.agentIntervalField.hidden = model.agentIntervalTypeButton.hidden = false;
        model.onMonthTextBox.hidden = false;
        model.advancedDrawer.open = true;
        model.alsoRunPathChangeImageWell = {Image::iconForFile("/Users/maya"), "/Users/maya"};
        model.allowSuccessfulExitCheckbox.enabled = true;
        for (Button* tip :
             {&model.agentNameTipButton, &model.agentTargetTipButton, &model.agentActionTipButton,
              &model.agentScheduleTipButton, &model.advancedDrawerTipButton})
            tip->hidden = false;
    });
    const QStringList expected = {"agentNameTextField",        "agentNameTipButton",
                                  "agentTargetButton",         "agentTargetImageWell",
                                  "showPopOverScriptButton",   "agentTargetTipButton",
                                  "agentActionButton",         "agentWatchPathImageWell",
                                  "agentActionTipButton",      "agentScheduleTypeButton",
                                  "onMonthTextField",          "agentScheduleDatePicker",
                                  "agentIntervalField",        "agentIntervalTypeButton",
                                  "agentScheduleTipButton",    "advancedDrawerTipButton",
                                  "priorityLevelButton",       "niceLevelSlider",
                                  "standardInPathField",       "standardOutPathField",
                                  "standardErrorPathField",    "workingDirectoryField",
                                  "rootDirectoryField",        "queueDirectoryField",
                                  "enableGlobbingCheckbox",    "allowSuccessfulExitCheckbox",
                                  "alsoRunAtLoadCheckbox",     "alsoRunVolumeCheckbox",
                                  "alsoRunPathChangeCheckbox", "alsoRunPathChangeImageWell"};
    QStringList met;
    const QWidget* const first = find("agentNameTextField");
    const QWidget* at = first;
    do {
        if (at->isVisibleTo(&window) && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) &&
            expected.contains(at->objectName()))
            met.append(at->objectName());
        at = at->nextInFocusChain();
    } while (at != first);
    EXPECT_EQ(met.join('\n').toStdString(), expected.join('\n').toStdString());
}

} // namespace
} // namespace frimbolate::test
