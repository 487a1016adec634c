#include "tests/random_user/session.h"

#include "tests/random_user/input.h"
#include "tests/random_user/step.h"
#include "widgets/controls/clock_format.h"
#include "widgets/pages/agents_page.h"
#include "widgets/pages/agents_view.h"
#include "widgets/panels/panel_dialog.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QPixmapCache>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace frimbolate::test {

namespace {

constexpr auto firstTime = std::chrono::local_days(std::chrono::year(2026) / 11 / 21);

template <typename Dialog>
Dialog* visibleDialog(MainWindow& window) {
    // The innermost: a panel has sheets of its own.
    Dialog* result = nullptr;
    for (auto* dialog : window.findChildren<Dialog*>())
        if (dialog->isVisible())
            result = dialog;
    return result;
}

/// Runs the event loop until the condition holds, without polling. False after half a minute.
template <typename Condition>
bool runUntil(Condition condition) {
    const QDeadlineTimer deadline(30000);
    QTimer alarm; // so that the event loop wakes up at all
    alarm.start(1000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents |
                                                            QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace

Session::Session(UserHome& home) : home_(home), desktop_(home.home() + "/.Trash") {
    desktop_.time = LocalMinute(firstTime) + std::chrono::hours(9);
    restart();
}

AlertDialog* Session::alert() { return visibleDialog<AlertDialog>(window()); }
PanelDialog* Session::panel() { return visibleDialog<PanelDialog>(window()); }
AgentsPage* Session::agentsPage() { return window().findChild<AgentsPage*>(); }

void Session::restart() {
    program_.reset();
    settle();
    program_ = std::make_unique<RunningProgram>(home_, desktop_);
    settle();
}

/// Whether the list shows the folder as it is.
/// \param expected the rows of the folder
bool Session::listIsCurrent(const std::vector<AgentOverview>& expected) {
    if (!agentsPage()->isVisible())
        return true;
    if (program_->listReader().isReading())
        return false;
    // A folder that was refused is looked at again with the next update of the window.
    if (!find<QLineEdit>("agentFilter")->isEnabled())
        return true;
    const auto* filter = qobject_cast<QSortFilterProxyModel*>(find<AgentsView>("agents")->model());
    const auto same = [](const auto& row, const AgentOverview& overview) {
        return row->overview.path == overview.path && row->overview.kind == overview.kind &&
               row->overview.isOn == overview.isOn && row->overview.sentence == overview.sentence;
    };
    return std::ranges::equal(qobject_cast<AgentsModel*>(filter->sourceModel())->rows(), expected,
                              same);
}

std::optional<std::vector<AgentOverview>> Session::expectedRows() {
    const auto folder = program_->delegate().openAgentFolder();
    program_->delegate().closeAgentFolder(folder);
    LocalAgentFolder files;
    if (!folder) // the grant was taken away; the list asks again when it is read again
        return std::nullopt;
    std::vector<AgentOverview> rows;
    const std::string home = home_.home();
    const TextStyle style{.home = home, .clock = localeClockFormat()};
    if (const auto paths = files.list(*folder))
        for (const auto& path : *paths)
            rows.push_back(files.read(path, style));
    return rows;
}

std::optional<std::string> Session::rest() {
    settle();
    if (std::exchange(desktop_.quits, false)) {
        if (beforeEnd)
            beforeEnd();
        restart();
    }
    if (agentsPage()->isVisible()) {
        const auto expected = expectedRows();
        if (expected && !runUntil([&] { return listIsCurrent(*expected); }))
            return "after half a minute the list does not show the folder";
        settle();
    }
    return std::nullopt;
}

void Session::runSteps(std::span<const char* const> lines) {
    for (const char* line : lines) {
        run(*this, Step::ofLine(line));
        static_cast<void>(rest());
    }
}

void Session::closeSheets() {
    constexpr int most = 200; // an answer may ask the next question
    for (int i = 0; i < most && QApplication::activePopupWidget(); ++i)
        press(Qt::Key_Escape), settle();
    for (int i = 0; i < most && QApplication::activeModalWidget(); ++i) {
        const auto* prompt = reachable<QPushButton>("promptButton");
        if (prompt && prompt->text() == "Choose") // the folder, without which it asks again
            run(*this, {"answerPanel", {"~/Library/LaunchAgents"}});
        else if (auto* again = reachable<QPushButton>("Try Again"))
            click(*again);
        else if (auto* skip = reachable<QPushButton>("Skip"))
            click(*skip);
        else
            press(Qt::Key_Escape);
        settle();
    }
}

/// Whatever is made when it is first shown, and kept.
void Session::showEverything() {
    constexpr const char* steps[] = {
        "shortcut\tshowForm",
        "shortcut\tcreateNewAgent",
        "type\tagentNameTextField\t#long\treplace",
        "choose\tagentTargetButton\t3\tkeys",
        "type\tscriptPopOverScriptField\t#lines\treplace",
        "type\tscriptPopOverScriptField\t#all\treplace",
        "key\tEscape",
        "type\tagentNameTextField\t#all\treplace",
        "drop\tagentTargetImageWell\t~/Scripts/backup.sh",
        "drop\tagentNameTextField\ttext",
        "type\tagentNameTextField\tfull\treplace",
        "choose\tagentActionButton\t2\tmouse",
        "type\tagentScheduleDatePicker\t25:00\treplace",
        "shortcut\tadvancedToolbarItem",
        "type\trootDirectoryField\t#long\treplace",
        "slide\tniceLevelSlider\t10",
        "shortcut\tvalidateAgentConfig",
        "press\tpromptButton",
        "press\tReplace",
        "press\tContinue",
        "press\tcopyCommandButton",
        "press\tcloseExecuteScriptWindow",
        "openMenu\tFrimbolate",
        "key\tEscape",
        "openMenu\tHelp",
        "menuItem\tabout",
        "key\tEscape",
        "shortcut\tpreferencesMenuItem",
        "press\tcloseWithoutSavingPrefs",
        "shortcut\tcreateNewAgent",
        "shortcut\tvalidateAgentConfig",
        "press\tOk",
        "shortcut\tshowAgents",
        "row\t0\tmenu",
        "key\tEscape",
        "shortcut\tshowPropertyList",
        "shortcut\tshowForm",
    };
    runSteps(steps);
}

/// Replaces every step that can be undone.
void Session::fillHistory() {
    auto* name = find<QLineEdit>("agentNameTextField");
    for (std::size_t i = 0; i < FormHistory::mostSteps; ++i) {
        name->setText("step");
        find<QAction>("createNewAgent")->trigger();
    }
}

void Session::putInOrder() {
    home_.putBack();
    program_->reopen();
    static_cast<void>(rest());
    closeSheets();
    window().move(0, 0);
    desktop_.time = LocalMinute(firstTime) + std::chrono::hours(9);
    find<QLineEdit>("agentFilter")->clear();
    program_->buildEverything();
    showEverything();
    fillHistory();
    home_.putBack();
    static_cast<void>(rest());
    QGuiApplication::clipboard()->clear();
    QPixmapCache::clear();
    for (auto* field : window().findChildren<QLineEdit*>())
        field->setText(field->text()); // forgets what could be undone
    static_cast<void>(rest());
}

} // namespace frimbolate::test
