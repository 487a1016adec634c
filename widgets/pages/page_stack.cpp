#include "widgets/pages/page_stack.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

namespace frimbolate {

PageStack::PageStack(QMenu& viewMenu, QWidget* parent) : QStackedWidget(parent) {
    setObjectName("pages");
    addCommands(viewMenu);
}

void PageStack::addCommands(QMenu& viewMenu) {
    auto* group = new QActionGroup(this);
    QAction* const below = viewMenu.actions().value(0);
    for (int i = 0; i < pageCount; ++i) {
        const Page page = static_cast<Page>(i);
        const PageTitle& row = titleOf(page);
        const QString title = QCoreApplication::translate("pages", row.title);
        auto* command = commands_[i] = new QAction(title, group);
        command->setObjectName(row.name);
        command->setCheckable(true);
        command->setChecked(page == Page::Form);
        command->setShortcut(QKeySequence(row.shortcut, QKeySequence::PortableText));
        viewMenu.insertAction(below, command);
        connect(command, &QAction::triggered, this, [this, page] { showPageWithFocus(page); });
    }
    viewMenu.insertSeparator(below);
}

void PageStack::addPage(QWidget* page, QWidget* first) {
    addWidget(page);
    first_.append(first);
}

void PageStack::follow(PageSwitcher& switcher) {
    switcher_ = &switcher;
    connect(switcher_, &PageSwitcher::chosen, this, &PageStack::showPage);
}

void PageStack::showPage(Page page) {
    setCurrentIndex(static_cast<int>(page));
    commands_[static_cast<int>(page)]->setChecked(true);
    if (switcher_)
        switcher_->setPage(page);
}

void PageStack::showPageWithFocus(Page page) {
    // Asked for before the page is shown, which focuses the first control of a page never used.
    QWidget* shown = widget(static_cast<int>(page));
    QWidget* last = shown->focusWidget();
    showPage(page);
    if (!last || !last->isVisibleTo(shown))
        last = first_.value(currentIndex());
    last->setFocus(Qt::ShortcutFocusReason);
}

} // namespace frimbolate
