// Steps in file panels, in menus, and in the list of agents.
#include "tests/random_user/input.h"
#include "tests/random_user/session.h"
#include "tests/random_user/step.h"
#include "widgets/pages/agents_view.h"
#include "widgets/panels/panel_dialog.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeView>

#include <algorithm>

namespace frimbolate::test {

namespace {

using Answer = std::optional<Arguments>;

constexpr const char* chosenPaths[] = {
    "~/Scripts/backup.sh",
    "~/Scripts/tool.py",
    "~/Scripts/notes.txt",
    "~/Scripts/gone.sh",
    "~/Good.app",
    "~/Broken.app",
    "~/Documents",
    "~/Documents/Notes",
    "~/Library/LaunchAgents",
    "~/Library/LaunchAgents/com.frimbolate.daily.plist",
    "~/Library/LaunchAgents/com.frimbolate.watch.plist",
    "~/Library/LaunchAgents/com.frimbolate.kept.plist",
    "~/Library/LaunchAgents/com.fr\u0131mbolate.old.plist",
    "~/Library/LaunchAgents/com.frimbolate.damaged.plist",
    "~/Library/LaunchAgents/org.example.sync.plist",
    "~/Elsewhere/x.plist",
    "~/Missing/x.plist",
    "x.plist",
};

Answer drawAnswer(Session& session, RandomValues& random) {
    if (!session.panel())
        return {};
    return Arguments{random.oneOf(chosenPaths)};
}

void runAnswer(Session& session, const Arguments& arguments) {
    const PanelDialog* panel = session.panel();
    auto* name = panel ? panel->findChild<QLineEdit*>("fileNameEdit") : nullptr;
    if (!name || !isReachable(*name) || inputWindow() != panel)
        return;
    click(*name);
    press(Qt::Key_A, Qt::ControlModifier);
    paste(QString::fromStdString(session.home().expanded(arguments.at(0))));
    if (QApplication::activePopupWidget()) // the names that the panel offers
        press(Qt::Key_Escape);
    if (auto* button = reachable<QPushButton>("promptButton"))
        click(*button);
}

Answer drawListed(Session& session, RandomValues& random) {
    const PanelDialog* panel = session.panel();
    auto* list = panel ? panel->findChild<QTreeView*>("treeView") : nullptr;
    const int count = list && list->isVisible() ? list->model()->rowCount(list->rootIndex()) : 0;
    if (count == 0)
        return {};
    const auto row = random.below(static_cast<std::size_t>(count));
    return Arguments{std::to_string(row), random.coin() ? "click" : "double"};
}

void runListed(Session& session, const Arguments& arguments) {
    PanelDialog* panel = session.panel();
    auto* list = panel ? panel->findChild<QTreeView*>("treeView") : nullptr;
    if (!list || !isReachable(*list) || inputWindow() != panel)
        return;
    const QModelIndex index =
        list->model()->index(std::stoi(arguments.at(0)), 0, list->rootIndex());
    const QRect item = list->visualRect(index);
    if (!index.isValid() || !list->viewport()->rect().contains(item.center()))
        return;
    if (arguments.at(1) == "double")
        doubleClick(*list->viewport(), item.center());
    else
        click(*list->viewport(), item.center());
}

Answer drawOpenMenu(Session& session, RandomValues& random) {
    if (inputWindow() != &session.window())
        return {};
    const auto menus = session.window().menuBar()->actions();
    const auto index = random.below(static_cast<std::size_t>(menus.size()));
    return Arguments{menus.at(static_cast<qsizetype>(index))->text().remove('&').toStdString()};
}

void runOpenMenu(Session& session, const Arguments& arguments) {
    if (inputWindow() != &session.window())
        return;
    auto* bar = session.window().menuBar();
    for (auto* action : bar->actions())
        if (action->text().remove('&').toStdString() == arguments.at(0))
            click(*bar, bar->actionGeometry(action).center());
}

std::string nameOfItem(const QAction& action) {
    const QString name = action.objectName().isEmpty() ? action.text().remove('&') //
                                                       : action.objectName();
    return name.toStdString();
}

/// The items of the open menu that can be chosen. Quit ends the program, which "restart" does.
std::vector<QAction*> menuItems() {
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    std::vector<QAction*> result;
    if (menu)
        for (auto* action : menu->actions())
            if (action->isVisible() && action->isEnabled() && !action->isSeparator() &&
                action->objectName() != "quit")
                result.push_back(action);
    return result;
}

Answer drawMenuItem(Session&, RandomValues& random) {
    const auto items = menuItems();
    return items.empty() ? Answer() : Arguments{nameOfItem(*random.oneOf(items))};
}

void runMenuItem(Session&, const Arguments& arguments) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (auto* action : menuItems())
        if (nameOfItem(*action) == arguments.at(0))
            return click(*menu, menu->actionGeometry(action).center());
}

Answer drawRow(Session& session, RandomValues& random) {
    const auto* list = session.find<AgentsView>("agents");
    if (!list->isVisible() || list->model()->rowCount() == 0 || !isReachable(*list))
        return {};
    constexpr const char* ways[] = {"click", "double", "menu"};
    const auto row = random.below(static_cast<std::size_t>(list->model()->rowCount()));
    return Arguments{std::to_string(row), random.oneOf(ways)};
}

void runRow(Session& session, const Arguments& arguments) {
    auto* list = session.find<AgentsView>("agents");
    const QModelIndex index = list->model()->index(std::stoi(arguments.at(0)), 0);
    if (!index.isValid() || !isReachable(*list))
        return;
    list->scrollTo(index);
    const QPoint place = list->visualRect(index).center();
    if (arguments.at(1) == "double")
        doubleClick(*list->viewport(), place);
    else
        click(*list->viewport(), place,
              arguments.at(1) == "menu" ? Qt::RightButton : Qt::LeftButton);
}

constexpr StepKind dialogKinds[] = {
    {"answerPanel", 60, drawAnswer, runAnswer},
    {"listedFile", 10, drawListed, runListed},
    {"openMenu", 5, drawOpenMenu, runOpenMenu},
    {"menuItem", 60, drawMenuItem, runMenuItem},
    {"row", 15, drawRow, runRow},
};

} // namespace

std::span<const StepKind> dialogSteps() { return dialogKinds; }

} // namespace frimbolate::test
