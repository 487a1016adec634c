#include "tests/style/stage.h"

#include "core/pop_up_items.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>

#include <algorithm>

namespace frimbolate::test {

namespace {

constexpr const char* script = "/Users/maya/Scripts/backup_photos.sh";

void chooseAction(Stage& stage, int action) {
    stage.form().agentActionButton.selectedItem = action;
    stage.delegate.chooseAgentAction();
}

void filled(Stage& stage) {
    stage.name();
    stage.scriptTarget();
    chooseAction(stage, AgentAction::OnSchedule);
    stage.schedule("Every Monday");
    stage.form().agentScheduleDatePicker.dateValue.hour = 7;
    stage.form().agentScheduleDatePicker.dateValue.minute = 30;
}

void withoutTips(Stage& stage) {
    filled(stage);
    stage.delegate.showHideTips();
}

void faulty(Stage& stage) {
    stage.form().agentNameTextField.stringValue = "two words";
    chooseAction(stage, AgentAction::OnSchedule);
    stage.schedule("On Interval");
    stage.form().agentIntervalField.stringValue = "often";
    stage.delegate.validateAgentConfig();
}

void faultAlert(Stage& stage) {
    faulty(stage);
    stage.showAlert();
}

void drawer(Stage& stage) {
    filled(stage);
    stage.openDrawer();
    FormModel& form = stage.form();
    form.niceLevelSlider.value = 5;
    stage.delegate.niceLevelSliderValueChanged();
    form.standardOutPathField.stringValue = "/Users/maya/Library/Logs/backup.log";
    form.workingDirectoryField.stringValue = "/Users/maya/Pictures";
    form.alsoRunAtLoadCheckbox.state = CheckState::On;
    form.alsoRunPathChangeCheckbox.state = CheckState::On;
    stage.delegate.chooseAdditionalWathPath();
    stage.platform.choose("/Users/maya/Pictures");
}

/// Where the drawer has no place beside the form.
void narrowDrawer(Stage& stage) {
    const auto screens = QGuiApplication::screens();
    const auto* narrowest = *std::ranges::min_element(
        screens, {}, [](const QScreen* screen) { return screen->geometry().width(); });
    stage.window.move(narrowest->availableGeometry().topLeft());
    drawer(stage);
}

void typedScript(Stage& stage) {
    filled(stage);
    stage.form().agentTargetButton.selectedItem = TargetType::Script;
    stage.delegate.chooseAgentTarget();
    stage.form().scriptPopOverScriptField.stringValue =
        "#!/bin/sh\nset -eu\nrsync -a --delete ~/Pictures/ /Volumes/Photos/\n";
    stage.delegate.createNewScript();
}

/// Where the pop-over has no room at the right, made larger, with a line that is wrapped and one
/// too long to be laid out.
void largerScript(Stage& stage) {
    const QRect screen = stage.window.screen()->availableGeometry();
    stage.window.move(screen.right() - stage.window.frameGeometry().width() - 10,
                      screen.top() + 40);
    typedScript(stage);
    stage.form().scriptPopOverScriptField.stringValue =
        "#!/bin/sh\nif true; then\n\trsync -a --delete ~/Pictures/ /Volumes/Photos/ --exclude "
        "'*.tmp' --exclude .cache --itemize-changes\nfi\necho " +
        std::string(5000, 'x') + " | base64 -d\n";
    stage.window.mirror();
    QCoreApplication::processEvents();
    stage.find<QAbstractButton>("largerScript")->click();
}

void welcome(Stage& stage) {
    stage.platform.defaults.contents.erase("ShowWelcomeWindow");
    stage.delegate.showWelcomeWindow();
}

void command(Stage& stage) {
    filled(stage);
    stage.delegate.loadLaunchAgent();
    stage.platform.choose(std::string(Stage::agents) + "/com.frimbolate.backup_photos.plist");
}

void copiedCommand(Stage& stage) {
    command(stage);
    stage.delegate.copyCommand();
}

void unsafeCommand(Stage& stage) {
    filled(stage);
    stage.delegate.unloadLaunchAgent();
    stage.platform.choose(std::string(Stage::agents) +
                          "/com.frimbolate.backup\u0085of_photos';touch pwned;'.plist");
}

void unsafeCopiedCommand(Stage& stage) {
    unsafeCommand(stage);
    stage.delegate.copyCommand();
}

void application(Stage& stage) {
    filled(stage);
    stage.delegate.evaluateScriptExtension("/Applications/Mail.app/Contents/MacOS/Mail");
}

void preferences(Stage& stage) {
    filled(stage);
    stage.delegate.openPreferencesWindow();
}

void created(Stage& stage) {
    filled(stage);
    stage.delegate.validateAgentConfig();
    stage.platform.saveAs(std::string(Stage::agents) + "/com.frimbolate.backup_photos.plist");
    stage.showAlert();
}

void discard(Stage& stage) {
    filled(stage);
    stage.delegate.editLaunchAgent();
    stage.showAlert();
}

void loadedAgent(Stage& stage) {
    filled(stage);
    stage.delegate.deleteLaunchAgent();
    stage.showAlert();
}

void tip(Stage& stage) {
    filled(stage);
    stage.delegate.showTip("agentActionTipButton");
    stage.showAlert();
}

void advancedTip(Stage& stage) {
    drawer(stage);
    stage.delegate.showTip("advancedDrawerTipButton");
    stage.showAlert();
}

void longPath(Stage& stage) {
    stage.delegate.deleteLaunchAgentContinue();
    stage.platform.choose(std::string(Stage::agents) + "/com.frimbolate." + std::string(67, 'm') +
                          "_of_a_name_without_any_blank.plist");
    stage.showAlert();
}

void monthly(Stage& stage) {
    filled(stage);
    stage.schedule("Once a Month");
    stage.form().onMonthTextField.stringValue = "31";
}

void unreadableTime(Stage& stage) {
    monthly(stage);
    stage.form().agentScheduleDatePicker.unreadableText = "25:00";
}

void interval(Stage& stage) {
    filled(stage);
    stage.schedule("On Interval");
    stage.form().agentIntervalField.stringValue = "90";
    stage.form().agentIntervalTypeButton.selectedItem = 1;
}

void onLogin(Stage& stage) {
    filled(stage);
    stage.schedule("On Login/Load");
}

void keptAlive(Stage& stage) {
    filled(stage);
    chooseAction(stage, AgentAction::KeepRunning);
    stage.openDrawer();
}

void pathModified(Stage& stage) {
    filled(stage);
    chooseAction(stage, AgentAction::PathModified);
    stage.platform.choose("/Users/maya/Pictures");
}

void volumeMounted(Stage& stage) {
    filled(stage);
    chooseAction(stage, AgentAction::VolumeMounted);
}

void popUpOpen(Stage& stage) {
    filled(stage);
    stage.window.mirror();
    stage.find<QComboBox>("agentScheduleTypeButton")->showPopup();
}

void menuOpen(Stage& stage) {
    filled(stage);
    QMenuBar* bar = stage.window.menuBar();
    bar->setActiveAction(bar->actions().at(3)); // "Agent"
}

void about(Stage& stage) { stage.find<QAction>("about")->trigger(); }

void press(Stage& stage, const char* name) {
    auto* button = stage.find<QAbstractButton>(name);
    // What it shows on a panel waits until the panel itself is on the screen.
    if (QTest::qWaitForWindowExposed(button->window()))
        button->click();
}

void openPanel(Stage& stage) {
    stage.delegate.chooseApplicationOrScript();
    OpenPanel panel = stage.platform.shownOpenPanel();
    panel.directory = "/";
    panel.suggestedName = "etc"; // so that a row is lit
    stage.panels.open(panel, [](const auto&) {});
}

void refusingPanel(Stage& stage) {
    openPanel(stage);
    stage.find<QLineEdit>("fileNameEdit")->setText(QString(100, 'm') + ".sh");
    press(stage, "promptButton");
}

void grantPanel(Stage& stage) {
    stage.platform.defaults.contents.erase("Bookmark");
    stage.delegate.showWelcomeWindow();
    OpenPanel panel = stage.platform.shownOpenPanel();
    panel.directory = "/";
    stage.panels.open(panel, [](const auto&) {});
}

void newFolder(Stage& stage) {
    grantPanel(stage);
    press(stage, "newFolder");
}

void savePanel(Stage& stage) {
    filled(stage);
    stage.delegate.validateAgentConfig();
    SavePanel panel = stage.platform.shownSavePanel();
    panel.directory = "/";
    stage.panels.save(panel, [](const auto&) {});
}

void replaceAlert(Stage& stage) {
    savePanel(stage);
    stage.find<QLineEdit>("fileNameEdit")->setText("/etc/passwd");
    press(stage, "promptButton");
}

constexpr Face rows[] = {
    {"empty", [](Stage&) {}},
    {"weekly", filled},
    {"without_tips", withoutTips},
    {"faulty", faulty},
    {"fault_alert", faultAlert},
    {"drawer", drawer},
    {"narrow_drawer", narrowDrawer},
    {"typed_script", typedScript},
    {"larger_script", largerScript},
    {"welcome", welcome},
    {"command", command},
    {"copied_command", copiedCommand},
    {"unsafe_command", unsafeCommand},
    {"unsafe_copied_command", unsafeCopiedCommand},
    {"application", application},
    {"preferences", preferences},
    {"created", created},
    {"discard", discard},
    {"loaded_agent", loadedAgent},
    {"tip", tip},
    {"advanced_tip", advancedTip},
    {"long_path", longPath},
    {"monthly", monthly},
    {"unreadable_time", unreadableTime},
    {"interval", interval},
    {"on_login", onLogin},
    {"kept_alive", keptAlive},
    {"path_modified", pathModified},
    {"volume_mounted", volumeMounted},
    {"pop_up_open", popUpOpen},
    {"menu_open", menuOpen},
    {"about", about},
    {"open_panel", openPanel},
    {"refusing_panel", refusingPanel},
    {"grant_panel", grantPanel},
    {"new_folder", newFolder},
    {"save_panel", savePanel},
    {"replace_alert", replaceAlert},
};

} // namespace

Stage::Stage() { start(); }

Stage::~Stage() { platform.abandonQuestions(); }

void Stage::showAlert() { alerts.show(platform.shownAlert(), {}); }

void Stage::name() { form().agentNameTextField.stringValue = "backup_photos"; }

void Stage::scriptTarget() {
    form().agentTargetButton.selectedItem = TargetType::File;
    delegate.chooseAgentTarget();
    delegate.chooseApplicationOrScript();
    platform.choose(script);
}

void Stage::schedule(const char* title) {
    form().agentScheduleTypeButton.selectedItem = itemWithTitle(agentScheduleTypeItems(), title);
    delegate.chooseAgentSchedule();
}

void Stage::openDrawer() { delegate.openAdvancedDrawer(); }

std::span<const Face> faces() { return rows; }

} // namespace frimbolate::test
