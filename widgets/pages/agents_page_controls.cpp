// The header of the list, its commands, the sorting, and what stands in place of an empty list.
#include "widgets/controls/elided_label.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/long_text.h"
#include "widgets/pages/agents_page.h"
#include "widgets/pages/agents_view.h"
#include "widgets/pages/empty_list.h"
#include "widgets/pages/flat_button.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/page_surfaces.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>

#include <algorithm>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int filterLeft = 8, filterTop = 6, filterWidth = 200, filterHeight = 28;
constexpr int signLeft = 8, filterTextShift = 18;
constexpr int countLeft = 224, countWidth = 280, runLeft = 520, runWidth = 96;
constexpr int barLeft = 8, barRight = 624, barGap = 4;

QString counted(qsizetype count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(
        QCoreApplication::translate("agents", count == 1 ? one : many));
}

/// Painted in the field: an action of the field would be a button that does nothing.
class SearchSign : public QWidget {
  public:
    explicit SearchSign(QWidget* field) : QWidget(field) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

  protected:
    void paintEvent(QPaintEvent*) override { style::paintSearchSign(*this); }
};

/// "12 agents · 1 off · 1 problem"
QString countOf(const AgentRows& rows) {
    qsizetype off = 0, problems = 0;
    for (const auto& row : rows) {
        off += row->overview.isOn == false;
        problems += row->problems;
    }
    QStringList parts = {counted(std::ssize(rows), "agent", "agents")};
    if (off > 0)
        parts.append(counted(off, "off", "off"));
    if (problems > 0)
        parts.append(counted(problems, "problem", "problems"));
    return parts.join(QStringLiteral(" · "));
}

} // namespace

void AgentsPage::addHeader() {
    filterField_->setObjectName("agentFilter");
    filterField_->setAccessibleName(tr("Filter"));
    filterField_->setPlaceholderText(tr("Filter"));
    filterField_->setClearButtonEnabled(true);
    filterField_->setMaxLength(static_cast<int>(longestLabel));
    filterField_->setGeometry(scaled(filterLeft), scaled(filterTop), scaled(filterWidth),
                              scaled(filterHeight));
    filterField_->setTextMargins(scaled(filterTextShift), 0, 0, 0);
    auto* sign = new SearchSign(filterField_);
    sign->setGeometry(scaled(signLeft), (scaled(filterHeight) - scaled(style::pageIconSide)) / 2,
                      scaled(style::pageIconSide), scaled(style::pageIconSide));
    filterField_->findChild<QToolButton*>()->setAccessibleName(tr("Clear the filter"));
    filterField_->installEventFilter(this);
    connect(filterField_, &QLineEdit::textChanged, this, [this](const QString& typed) {
        isReplacing_ = true;
        filter_.setFilter(typed);
        isReplacing_ = false;
        restoreSelection();
        updateWords();
    });
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        filterField_->setFocus(Qt::ShortcutFocusReason);
        filterField_->selectAll();
    });
    filterField_->setToolTip(tr("Filter (%1)").arg(find->key().toString(QKeySequence::NativeText)));
    count_->setObjectName("agentCount");
    count_->setGeometry(scaled(countLeft), 0, scaled(countWidth), scaled(style::pageHeaderHeight));
    nextRun_->setObjectName("sortByNextRun");
    nextRun_->setText(tr("Next run"));
    nextRun_->setAccessibleName(tr("Sort by the next run"));
    nextRun_->setToolTip(tr("Sort by the next run"));
    nextRun_->setGeometry(scaled(runLeft - style::flatButtonPadding),
                          scaled((style::pageHeaderHeight - style::flatButtonHeight) / 2),
                          scaled(runWidth), scaled(style::flatButtonHeight));
    connect(nextRun_, &QToolButton::clicked, this, &AgentsPage::sortByNextRun);
}

void AgentsPage::addCommands() {
    addCommand({"editListed", tr("&Edit"), tr("Edit the selected agent"), "edit"}, Qt::Key_Return,
               true, [this](AppDelegate& delegate, const std::string& path) {
                   if (delegate.editAgent(path))
                       emit agentOpened();
               });
    addCommand({"switchListed", tr("&On/Off"), tr("Switch the selected agent on or off"), "power"},
               Qt::Key_Space, true, &AppDelegate::switchAgent);
    addCommand(
        {"loadListed", tr("&Load…"), tr("Show the command that loads the selected agent"), "load"},
        {}, false, &AppDelegate::showLoadCommand);
    addCommand({"unloadListed", tr("&Unload…"),
                tr("Show the command that unloads the selected agent"), "unload"},
               {}, false, &AppDelegate::showUnloadCommand);
    addCommand({"deleteListed", tr("&Delete…"), tr("Delete the selected agent"), "trash"},
               Qt::Key_Delete, false, &AppDelegate::deleteAgent);
    addCommand({"showListed", tr("Show in File &Manager"),
                tr("Show the selected agent in the file manager"), "show-folder"},
               {}, false, &AppDelegate::showInFileManager);
    // Return on the numeric keypad, too.
    commands_.first().action->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
    QWidget* before = view_;
    int left = scaled(barLeft);
    for (const Command& command : commands_) {
        auto* button = new FlatButton(this);
        button->setDefaultAction(command.action);
        button->setObjectName(command.action->objectName() + "Button");
        // The toolbar has buttons of the same titles.
        button->setAccessibleName(command.action->toolTip());
        const QSize size = button->sizeHint();
        if (command.action == commands_.last().action)
            left = scaled(barRight) - size.width();
        const int top = height() - scaled(style::agentBarHeight) +
                        (scaled(style::agentBarHeight) + 1 - size.height()) / 2;
        button->setGeometry(QRect(QPoint(left, top), size));
        left += size.width() + scaled(barGap);
        setTabOrder(before, button);
        before = button;
    }
}

void AgentsPage::addCommand(const CommandTitle& title, const QKeySequence& key,
                            bool needsReadableFile, const Act& act) {
    auto* action = new QAction(style::toolIcon(title.icon), title.title, this);
    action->setObjectName(title.name);
    action->setToolTip(title.wholeTitle);
    action->setIconVisibleInMenu(false);
    action->setEnabled(false);
    // A key of the list alone: elsewhere Return and Space press the focused control.
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    view_->addAction(action);
    menu_->addAction(action);
    commands_.append({action, needsReadableFile});
    connect(action, &QAction::triggered, this, [this, act] {
        const QModelIndex index = view_->currentIndex();
        if (!index.isValid())
            return;
        const std::string path = filter_.row(index).overview.path;
        binder_.send([&](AppDelegate& delegate) { act(delegate, path); });
    });
}

void AgentsPage::addSortMenu() {
    sortMenu_->setObjectName("sortAgents");
    columns_ = new QActionGroup(sortMenu_);
    const QString titles[agentColumnCount] = {tr("&Name"), tr("&State"), tr("&What It Does"),
                                              tr("&Problems"), tr("Next &Run")};
    for (int i = 0; i < agentColumnCount; ++i) {
        QAction* action = sortMenu_->addAction(titles[i]);
        action->setObjectName(QStringLiteral("sortBy%1").arg(i));
        action->setCheckable(true);
        action->setChecked(i == 0);
        action->setData(i);
        columns_->addAction(action);
    }
    sortMenu_->addSeparator();
    descending_ = sortMenu_->addAction(tr("&Descending"));
    descending_->setObjectName("sortDescending");
    descending_->setCheckable(true);
    connect(sortMenu_, &QMenu::triggered, this, [this] {
        filter_.sortBy(static_cast<AgentColumn>(columns_->checkedAction()->data().toInt()),
                       descending_->isChecked() ? Qt::DescendingOrder : Qt::AscendingOrder);
        view_->scrollTo(view_->currentIndex());
        updateWords();
    });
    menu_->addSeparator();
    menu_->addMenu(sortMenu_);
}

void AgentsPage::sortByNextRun() {
    QAction* column = columns_->actions().at(static_cast<int>(AgentColumn::NextRun));
    descending_->setChecked(column->isChecked() && !descending_->isChecked());
    column->setChecked(true);
    emit sortMenu_->triggered(column);
}

void AgentsPage::showMenu(const QPoint& place) { menu_->popup(place); }

void AgentsPage::updateWords() {
    const QString typed = filterField_->text().trimmed();
    const int shown = filter_.rowCount(), all = model_.rowCount();
    const bool isListed = shown > 0;
    if (isRefused_)
        empty_->setWords(
            tr("Frimbolate cannot see your agents yet"),
            tr("It needs access to your LaunchAgents folder (~/Library/LaunchAgents)."),
            tr("Choose Folder…"), true);
    else if (all > 0)
        empty_->setWords(tr("No agent matches “%1”").arg(typed),
                         tr("The filter looks at names, sentences and kinds."), tr("Clear Filter"));
    else
        empty_->setWords(tr("No agents yet"),
                         tr("The agents of your LaunchAgents folder are listed here."));
    view_->setVisible(isListed || !(isRefused_ || hasRead_ || all > 0));
    empty_->setVisible(view_->isHidden());
    nextRun_->setVisible(isListed);
    const bool isByRun = filter_.column() == AgentColumn::NextRun;
    nextRun_->setText(!isByRun                                    ? tr("Next run")
                      : filter_.sortOrder() == Qt::AscendingOrder ? tr("Next run ↑")
                                                                  : tr("Next run ↓"));
    filterField_->setEnabled(!isRefused_);
    if (all == 0)
        count_->setWholeText({});
    else if (typed.isEmpty())
        count_->setWholeText(countOf(model_.rows()));
    else
        count_->setWholeText(tr("%1 of %2").arg(shown).arg(counted(all, "agent", "agents")));
}

void AgentsPage::pressEmptyListButton() {
    if (isRefused_)
        return binder_.send(&AppDelegate::requestAgentFolder);
    filterField_->clear();
    filterField_->setFocus();
}

} // namespace frimbolate
