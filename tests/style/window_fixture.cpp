#include "tests/style/window_fixture.h"

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
#include <vector>

namespace frimbolate::test {

namespace {

constexpr const char* script = "/Users/maya/Scripts/backup_photos.sh";

void chooseAction(WindowFixture& fixture, int action) {
    fixture.form().agentActionButton.selectedItem = action;
    fixture.delegate.chooseAgentAction();
}

/// A sentence that takes all of its line, beside the next run.
void nextRun(WindowFixture& fixture) {
    using namespace std::chrono;
    const LocalMinute now(local_days(2026y / November / 21) + hours(9));
    fixture.window.setWallClock([now] { return WallClock(now); });
    filled(fixture);
    fixture.form().alsoRunPathChangeCheckbox.state = CheckState::On;
    fixture.form().alsoRunPathChangeImageWell.toolTip = "/Users/maya/Pictures/Holidays in spring";
}

void withoutTips(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.showHideTips();
}

void faulty(WindowFixture& fixture) {
    fixture.form().agentNameTextField.stringValue = "two words";
    chooseAction(fixture, AgentAction::OnSchedule);
    fixture.schedule("On Interval");
    fixture.form().agentIntervalField.stringValue = "often";
    fixture.delegate.validateAgentConfig();
}

void faultAlert(WindowFixture& fixture) {
    faulty(fixture);
    fixture.showAlert();
}

void drawer(WindowFixture& fixture) {
    filled(fixture);
    fixture.openDrawer();
    FormModel& form = fixture.form();
    form.niceLevelSlider.value = 5;
    fixture.delegate.niceLevelSliderValueChanged();
    form.standardOutPathField.stringValue = "/Users/maya/Library/Logs/backup.log";
    form.workingDirectoryField.stringValue = "/Users/maya/Pictures";
    form.alsoRunAtLoadCheckbox.state = CheckState::On;
    form.alsoRunPathChangeCheckbox.state = CheckState::On;
    fixture.delegate.chooseAdditionalWathPath();
    fixture.platform.choose("/Users/maya/Pictures");
}

/// On the narrowest screen, where the drawer does not fit beside the form.
void narrowDrawer(WindowFixture& fixture) {
    const auto screens = QGuiApplication::screens();
    const auto* narrowest = *std::ranges::min_element(
        screens, {}, [](const QScreen* screen) { return screen->geometry().width(); });
    fixture.window.move(narrowest->availableGeometry().topLeft());
    drawer(fixture);
}

void typedScript(WindowFixture& fixture) {
    filled(fixture);
    fixture.form().agentTargetButton.selectedItem = TargetType::Script;
    fixture.delegate.chooseAgentTarget();
    fixture.form().scriptPopOverScriptField.stringValue =
        "#!/bin/sh\nset -eu\nrsync -a --delete ~/Pictures/ /Volumes/Photos/\n";
    fixture.delegate.createNewScript();
}

/// The enlarged pop-over, without space at its right, with a wrapped line and a folded one.
void largerScript(WindowFixture& fixture) {
    const QRect screen = fixture.window.screen()->availableGeometry();
    fixture.window.move(screen.right() - fixture.window.frameGeometry().width() - 10,
                        screen.top() + 40);
    typedScript(fixture);
    fixture.form().scriptPopOverScriptField.stringValue =
        "#!/bin/sh\nif true; then\n\trsync -a --delete ~/Pictures/ /Volumes/Photos/ --exclude "
        "'*.tmp' --exclude .cache --itemize-changes\nfi\necho " +
        std::string(5000, 'x') + " | base64 -d\n";
    fixture.window.mirror();
    QCoreApplication::processEvents();
    fixture.find<QAbstractButton>("largerScript")->click();
}

void welcome(WindowFixture& fixture) {
    fixture.platform.defaults.contents.erase("ShowWelcomeWindow");
    fixture.delegate.showWelcomeWindow();
}

void command(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.loadLaunchAgent();
    fixture.platform.choose(std::string(WindowFixture::agents) +
                            "/com.frimbolate.backup_photos.plist");
}

void copiedCommand(WindowFixture& fixture) {
    command(fixture);
    fixture.delegate.copyCommand();
}

void unsafeCommand(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.unloadLaunchAgent();
    fixture.platform.choose(std::string(WindowFixture::agents) +
                            "/com.frimbolate.backup\u0085of_photos';touch pwned;'.plist");
}

void unsafeCopiedCommand(WindowFixture& fixture) {
    unsafeCommand(fixture);
    fixture.delegate.copyCommand();
}

/// A hint of a row and the title of the drawer that report findings.
void findings(WindowFixture& fixture) {
    fixture.window.setPathLookup([](const std::string& path) {
        return path == "/Users" ? PathState::Folder : PathState::Missing;
    });
    drawer(fixture);
}

void application(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.evaluateScriptExtension("/Applications/Mail.app/Contents/MacOS/Mail");
}

void preferences(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.openPreferencesWindow();
}

void created(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.validateAgentConfig();
    fixture.platform.saveAs(std::string(WindowFixture::agents) +
                            "/com.frimbolate.backup_photos.plist");
    fixture.showAlert();
}

void discard(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.editLaunchAgent();
    fixture.showAlert();
}

void loadedAgent(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.deleteLaunchAgent();
    fixture.showAlert();
}

void tip(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.showTip("agentActionTipButton");
    fixture.showAlert();
}

void advancedTip(WindowFixture& fixture) {
    drawer(fixture);
    fixture.delegate.showTip("advancedDrawerTipButton");
    fixture.showAlert();
}

void longPath(WindowFixture& fixture) {
    fixture.delegate.deleteLaunchAgentContinue();
    fixture.platform.choose(std::string(WindowFixture::agents) + "/com.frimbolate." +
                            std::string(67, 'm') + "_of_a_name_without_any_blank.plist");
    fixture.showAlert();
}

void monthly(WindowFixture& fixture) {
    filled(fixture);
    fixture.schedule("Once a Month");
    fixture.form().onMonthTextField.stringValue = "31";
}

void unreadableTime(WindowFixture& fixture) {
    monthly(fixture);
    fixture.form().agentScheduleDatePicker.unreadableText = "25:00";
}

void interval(WindowFixture& fixture) {
    filled(fixture);
    fixture.schedule("On Interval");
    fixture.form().agentIntervalField.stringValue = "90";
    fixture.form().agentIntervalTypeButton.selectedItem = 1;
}

void onLogin(WindowFixture& fixture) {
    filled(fixture);
    fixture.schedule("On Login/Load");
}

void keptAlive(WindowFixture& fixture) {
    filled(fixture);
    chooseAction(fixture, AgentAction::KeepRunning);
    fixture.openDrawer();
}

void pathModified(WindowFixture& fixture) {
    filled(fixture);
    chooseAction(fixture, AgentAction::PathModified);
    fixture.platform.choose("/Users/maya/Pictures");
}

void volumeMounted(WindowFixture& fixture) {
    filled(fixture);
    chooseAction(fixture, AgentAction::VolumeMounted);
}

void popUpOpen(WindowFixture& fixture) {
    filled(fixture);
    fixture.window.mirror();
    fixture.find<QComboBox>("agentScheduleTypeButton")->showPopup();
}

void menuOpen(WindowFixture& fixture) {
    filled(fixture);
    QMenuBar* bar = fixture.window.menuBar();
    bar->setActiveAction(bar->actions().at(3)); // "Agent"
}

void about(WindowFixture& fixture) { fixture.find<QAction>("about")->trigger(); }

void press(WindowFixture& fixture, const char* name) {
    auto* button = fixture.find<QAbstractButton>(name);
    // A sheet on a panel is shown only after the panel is exposed.
    if (QTest::qWaitForWindowExposed(button->window()))
        button->click();
}

void openPanel(WindowFixture& fixture) {
    fixture.delegate.chooseApplicationOrScript();
    OpenPanel panel = fixture.platform.shownOpenPanel();
    panel.directory = "/";
    panel.suggestedName = "etc"; // so that a row is highlighted
    fixture.panels.open(panel, [](const auto&) {});
}

void rejectingPanel(WindowFixture& fixture) {
    openPanel(fixture);
    fixture.find<QLineEdit>("fileNameEdit")->setText(QString(100, 'm') + ".sh");
    press(fixture, "promptButton");
}

void grantPanel(WindowFixture& fixture) {
    fixture.platform.defaults.contents.erase("Bookmark");
    fixture.delegate.showWelcomeWindow();
    OpenPanel panel = fixture.platform.shownOpenPanel();
    panel.directory = "/";
    fixture.panels.open(panel, [](const auto&) {});
}

void newFolder(WindowFixture& fixture) {
    grantPanel(fixture);
    press(fixture, "newFolder");
}

void savePanel(WindowFixture& fixture) {
    filled(fixture);
    fixture.delegate.validateAgentConfig();
    SavePanel panel = fixture.platform.shownSavePanel();
    panel.directory = "/";
    fixture.panels.save(panel, [](const auto&) {});
}

void replaceAlert(WindowFixture& fixture) {
    savePanel(fixture);
    fixture.find<QLineEdit>("fileNameEdit")->setText("/etc/passwd");
    press(fixture, "promptButton");
}

constexpr UiState formStates[] = {
    {"empty", [](WindowFixture&) {}},
    {"weekly", filled},
    {"next_run", nextRun},
    {"without_tips", withoutTips},
    {"faulty", faulty},
    {"fault_alert", faultAlert},
    {"drawer", drawer},
    {"narrow_drawer", narrowDrawer},
    {"findings", findings},
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
    {"rejecting_panel", rejectingPanel},
    {"grant_panel", grantPanel},
    {"new_folder", newFolder},
    {"save_panel", savePanel},
    {"replace_alert", replaceAlert},
};

} // namespace

WindowFixture::WindowFixture() {
    window.setAgentListReader(agentReader);
    start();
}

WindowFixture::~WindowFixture() { platform.abandonQuestions(); }

void WindowFixture::showAlert() { alerts.show(platform.shownAlert(), {}); }

void WindowFixture::name() { form().agentNameTextField.stringValue = "backup_photos"; }

void WindowFixture::scriptTarget() {
    form().agentTargetButton.selectedItem = TargetType::File;
    delegate.chooseAgentTarget();
    delegate.chooseApplicationOrScript();
    platform.choose(script);
}

void WindowFixture::schedule(const char* title) {
    form().agentScheduleTypeButton.selectedItem = itemWithTitle(agentScheduleTypeItems(), title);
    delegate.chooseAgentSchedule();
}

void WindowFixture::openDrawer() { delegate.openAdvancedDrawer(); }

void filled(WindowFixture& fixture) {
    fixture.name();
    fixture.scriptTarget();
    chooseAction(fixture, AgentAction::OnSchedule);
    fixture.schedule("Every Monday");
    fixture.form().agentScheduleDatePicker.dateValue.hour = 7;
    fixture.form().agentScheduleDatePicker.dateValue.minute = 30;
}

std::span<const UiState> uiStates() {
    static const std::vector<UiState> states = [] {
        std::vector<UiState> all(std::begin(formStates), std::end(formStates));
        const auto pages = pageStates();
        all.insert(all.end(), pages.begin(), pages.end());
        return all;
    }();
    return states;
}

} // namespace frimbolate::test
