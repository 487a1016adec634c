// Shows one page at a time in place of the form card; the View menu and the switcher choose it.
//
// Which page is shown is no part of the form: nothing but this object knows it, and the window
// opens on the form.
#pragma once

#include "widgets/pages/page_switcher.h"

#include <QStackedWidget>

class QAction;
class QMenu;

namespace frimbolate {

class PageStack : public QStackedWidget {
    Q_OBJECT

  public:
    /// Adds the command of each page to the top of the menu.
    explicit PageStack(QMenu& viewMenu, QWidget* parent = nullptr);

    /// Adds the widget of the next page, in the order of Page.
    /// \param first the control of the page that gets the keyboard at first
    void addPage(QWidget* page, QWidget* first);

    /// From here on the switcher chooses the page, too.
    void follow(PageSwitcher& switcher);

    Page page() const { return static_cast<Page>(currentIndex()); }
    /// The keyboard stays where it is, unless it was on the page that is hidden.
    void showPage(Page page);
    /// The same, and moves the keyboard to the control of the page that had it last.
    void showPageWithFocus(Page page);

  private:
    void addCommands(QMenu& viewMenu);

    QAction* commands_[pageCount];
    QList<QWidget*> first_;
    PageSwitcher* switcher_ = nullptr;
};

} // namespace frimbolate
