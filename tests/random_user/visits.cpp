#include "tests/random_user/visits.h"

#include "tests/random_user/input.h"
#include "widgets/drawer/drawer_panel.h"
#include "widgets/pages/page_stack.h"
#include "widgets/panels/panel_dialog.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

namespace frimbolate::test {

namespace {

/// When a state must have been visited: in every long run, or also in the short run of the tests.
enum class Visited { InLongRun, Always };

struct State {
    const char* name;
    Visited when = Visited::InLongRun;
};

constexpr State states[] = {
    {"page Form", Visited::Always},
    {"page PropertyList", Visited::Always},
    {"page Agents", Visited::Always},
    {"sheet welcomeWindow"},
    {"sheet preferencesWindow", Visited::Always},
    {"sheet executeScriptWindow", Visited::Always},
    {"sheet aboutWindow"},
    {"sheet newFolderSheet"},
    {"drawer beside the form", Visited::Always},
    {"drawer over the form"},
    {"script pop-over", Visited::Always},
    {"menu", Visited::Always},
    {"list of a pop-up", Visited::Always},
    {"window hidden"},
    {"window minimized"},
    {"rejection in a panel"},
    {"list without access"},
    {"panel Frimbolate needs access to your LaunchAgents folder. Please select it and click "
     "\"Choose.\" "},
    {"panel Please choose an application, script, or workflow (.app, .sh, .py, .rb, .pl, .scpt, "
     ".workflow):"},
    {"panel Please choose folder:"},
    {"panel Please choose file:"},
    {"panel Please choose a launch agent to edit:"},
    {"panel Please choose a launch agent to load:"},
    {"panel Please choose a launch agent to unload:"},
    {"panel Please choose a launch agent to enable/disable:"},
    {"panel Please choose a launch agent to delete:"},
    {"panel Saving outside of ~/Library/LaunchAgents", Visited::Always},
    {"panel Saving outside of ~/Library/LaunchAgents for an upgrade"},
    {"alert Some information is missing or incorrect.", Visited::Always},
    {"alert Your launch agent was created."},
    {"alert Your launch agent could not be created."},
    {"alert Do you want to discard changes?", Visited::Always},
    {"alert Important message:"},
    {"alert This launch agent is not fully compatible with Frimbolate."},
    {"alert This launch agent needs to be upgraded.", Visited::Always},
    {"alert The launch agent could not be read."},
    {"alert This launch agent could not be upgraded."},
    {"alert Are you sure you want to delete the following launch agent?"},
    {"alert An error occurred and the launch agent could not be deleted."},
    {"alert This launch agent is currently disabled."},
    {"alert This launch agent is currently enabled."},
    {"alert The launch agent could not be disabled."},
    {"alert Potential conflict identified..."},
    {"alert This application may be corrupted or may not conform to the bundle structure "
     "programming standards."},
    {"alert You must select your user LaunchAgents folder (~/Library/LaunchAgents)."},
    {"alert Frimbolate could not validate if you chose your user LaunchAgents folder "
     "(~/Library/LaunchAgents)."},
    {"alert of replacing"},
    {"alert What's in a name?"},
    {"alert Frimbolate helps you automate the launching of applications and scripts."},
    {"alert The right tool for the job."},
    {"alert Timing is everything."},
    {"alert Advanced features for complex jobs."},
};

std::string nameOfAlert(const std::string& message) {
    if (message.find("already exists") != std::string::npos)
        return "alert of replacing";
    return "alert " + message;
}

std::string firstLine(const QString& text) { return text.section('\n', 0, 0).toStdString(); }

std::string nameOfPanel(const PanelDialog& panel) {
    const QString message = panel.findChild<QLabel*>("panelMessage")->text();
    // The two save panels differ in one word.
    const bool upgrades = message.contains(" may cause ");
    return "panel " + firstLine(message) + (upgrades ? " for an upgrade" : "");
}

std::vector<std::string> statesOf(Session& session) {
    std::vector<std::string> result;
    constexpr const char* pages[] = {"page Form", "page PropertyList", "page Agents"};
    MainWindow& window = session.window();
    if (window.isVisible())
        result.emplace_back(pages[session.find<PageStack>("pages")->currentIndex()]);
    else
        result.emplace_back("window hidden");
    if (window.isMinimized())
        result.emplace_back("window minimized");
    for (const auto* dialog : window.findChildren<QDialog*>())
        if (dialog->isVisible() && !qobject_cast<const AlertDialog*>(dialog) &&
            !qobject_cast<const PanelDialog*>(dialog))
            result.push_back("sheet " + dialog->objectName().toStdString());
    if (auto* alert = session.alert())
        result.push_back(nameOfAlert(alert->windowTitle().toStdString()));
    if (const auto* panel = session.panel()) {
        result.push_back(nameOfPanel(*panel));
        if (panel->findChild<QWidget*>("panelRejection")->isVisible())
            result.emplace_back("rejection in a panel");
    }
    const auto* drawer = window.findChild<DrawerPanel*>();
    if (drawer->isOpen())
        result.emplace_back(drawer->isBesideForm() ? "drawer beside the form"
                                                   : "drawer over the form");
    if (session.find<QWidget>("popoverScriptObject")->isVisible())
        result.emplace_back("script pop-over");
    const QWidget* popUp = QApplication::activePopupWidget();
    if (qobject_cast<const QMenu*>(popUp))
        result.emplace_back("menu");
    else if (popUp && popUp->findChild<QAbstractItemView*>() &&
             popUp->objectName() != "popoverScriptObject")
        result.emplace_back("list of a pop-up");
    const auto* filter = session.find<QLineEdit>("agentFilter");
    if (filter->isVisible() && !filter->isEnabled())
        result.emplace_back("list without access");
    return result;
}

} // namespace

void Visits::add(Session& session, const Step& step) {
    ++counts_["step " + step.kind];
    for (const auto& state : statesOf(session))
        ++counts_[state];
}

std::vector<std::string> Visits::missing(bool isLong) const {
    std::vector<std::string> result;
    for (const State& state : states)
        if ((isLong || state.when == Visited::Always) && !counts_.contains(state.name))
            result.emplace_back(state.name);
    for (const StepKind& kind : allStepKinds())
        if (isLong && !counts_.contains(std::string("step ") + kind.name))
            result.push_back(std::string("step ") + kind.name);
    return result;
}

std::string Visits::table() const {
    std::string result;
    for (const auto& [name, count] : counts_)
        result += std::to_string(count) + "\t" + name + "\n";
    return result;
}

} // namespace frimbolate::test
