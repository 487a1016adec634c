#include "widgets/commands.h"

#include "ui/actions.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/text.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout. The first item's box is aligned with the card's edge. The gap before the
// last items is fixed, so a clicked button keeps its position when the window grows.
constexpr int menuBarHeight = 28, toolbarHeight = 64, itemWidth = 64, itemHeight = 52;
constexpr int leftGap = 22, beforeSeparator = 6, afterSeparator = 5, gapBeforeView = 43;
constexpr int iconSize = 20;

/// An editing command and the slot of the text fields that implements it, which is its name too.
struct Edit {
    const char* slot; ///< null for a separator
    const char* title;
    QKeySequence::StandardKey key;
};
constexpr Edit edits[] = {
    {"undo", QT_TRANSLATE_NOOP("Commands", "&Undo"), QKeySequence::Undo},
    {"redo", QT_TRANSLATE_NOOP("Commands", "&Redo"), QKeySequence::Redo},
    {nullptr, nullptr, QKeySequence::UnknownKey},
    {"cut", QT_TRANSLATE_NOOP("Commands", "Cu&t"), QKeySequence::Cut},
    {"copy", QT_TRANSLATE_NOOP("Commands", "&Copy"), QKeySequence::Copy},
    {"paste", QT_TRANSLATE_NOOP("Commands", "&Paste"), QKeySequence::Paste},
    {"selectAll", QT_TRANSLATE_NOOP("Commands", "Select &All"), QKeySequence::SelectAll},
};

/// Whether a widget may get a call of this slot. The slots of a line change its text even where the
/// user may not.
bool takes(const QWidget* widget, const QByteArray& slot) {
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    const bool changes = slot == "cut" || slot == "paste";
    return widget && widget->metaObject()->indexOfSlot(slot + "()") >= 0 &&
           !(changes && line && line->isReadOnly());
}

/// The focused widget or the field inside it; null where neither takes the slot. A list has some of
/// the slots of a text field.
QObject* focusedReceiver(const QByteArray& slot) {
    QWidget* focused = QApplication::focusWidget();
    QWidget* inner = focused ? focused->findChild<QLineEdit*>() : nullptr;
    if (takes(inner, slot))
        return inner;
    return takes(focused, slot) ? focused : nullptr;
}

/// A toolbar has neither margins nor a height of its own; gap widgets give it both.
QWidget* gap(int width) {
    auto* widget = new QWidget;
    widget->setFixedSize(scaled(width), scaled(toolbarHeight));
    return widget;
}

void addSeparator(QToolBar* bar) {
    bar->addWidget(gap(beforeSeparator));
    bar->addSeparator();
    bar->addWidget(gap(afterSeparator));
}

} // namespace

Commands::Commands(FormBinder& binder, QMainWindow& window)
    : QObject(&window), binder_(binder), window_(window) {
    makeActions();
    addMenus();
    addToolbar();
    binder_.addUpdater([this](const FormModel& form) {
        const auto action = [this](const char* name) { return window_.findChild<QAction*>(name); };
        action("preferencesMenuItem")->setEnabled(form.preferencesMenuItem.enabled);
        action("showHideTips")->setChecked(!form.advancedDrawerTipButton.hidden);
        action("advancedToolbarItem")->setChecked(form.advancedDrawer.open);
    });
}

void Commands::makeActions() {
    for (const Action& row : actions()) {
        auto* action = new QAction(text(row.title), &window_);
        action->setObjectName(text(row.name));
        action->setShortcut(QKeySequence(text(row.shortcut), QKeySequence::PortableText));
        action->setToolTip(text(row.toolTip));
        action->setCheckable(row.menu == Action::Menu::View);
        if (!row.icon.empty())
            action->setIcon(style::toolIcon(row.icon));
        if (!row.toolTitle.empty())
            action->setIconText(text(row.toolTitle));
        action->setIconVisibleInMenu(false);
        action->setMenuRole(row.menu == Action::Menu::Application ? QAction::PreferencesRole
                                                                  : QAction::NoRole);
        // Assistive tools check a toolbar button without triggering its action.
        connect(action, action->isCheckable() ? &QAction::toggled : &QAction::triggered, this,
                [this, send = row.send] { binder_.send(send); });
    }
}

QAction* Commands::addCommand(QMenu* menu, const char* name, const QString& title,
                              const QString& shortcut) {
    QAction* action = menu->addAction(title);
    action->setObjectName(name);
    if (!shortcut.isEmpty())
        action->setShortcut(QKeySequence(shortcut, QKeySequence::PortableText));
    return action;
}

void Commands::addMenus() {
    QMenuBar* bar = window_.menuBar();
    bar->setFixedHeight(scaled(menuBarHeight));
    style::setFont(bar, style::FontRole::hint);
    QMenu* application = bar->addMenu(tr("Frim&bolate"));
    QFont bold = bar->font();
    bold.setWeight(QFont::DemiBold);
    application->menuAction()->setFont(bold);
    QMenu* file = bar->addMenu(tr("&File"));
    addEditMenu();
    QMenu* agent = bar->addMenu(tr("&Agent"));
    QMenu* view = bar->addMenu(tr("&View"));
    view->setObjectName("viewMenu");
    QMenu* help = bar->addMenu(tr("&Help"));

    QMenu* const menus[] = {application, file, agent, view}; // in the order of Action::Menu
    for (const Action& row : actions())
        menus[static_cast<int>(row.menu)]->addAction(window_.findChild<QAction*>(text(row.name)));
    application->addSeparator();
    QAction* quit = addCommand(application, "quit", tr("&Quit Frimbolate"), "Ctrl+Q");
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    file->addSeparator();
    QAction* close = addCommand(file, "closeWindow", tr("&Close Window"), "Ctrl+W");
    connect(close, &QAction::triggered, &window_, &QWidget::close);
    about_ = addCommand(help, "about", tr("&About Frimbolate"));
    about_->setMenuRole(QAction::AboutRole);
}

void Commands::addEditMenu() {
    QMenu* menu = window_.menuBar()->addMenu(tr("&Edit"));
    for (const Edit& edit : edits) {
        if (!edit.slot) {
            menu->addSeparator();
            continue;
        }
        QAction* action = addCommand(menu, edit.slot, tr(edit.title));
        action->setShortcut(QKeySequence(edit.key));
        if (edit.key == QKeySequence::Undo || edit.key == QKeySequence::Redo)
            continue; // UndoCommands handles them
        connect(action, &QAction::triggered, this, [slot = edit.slot] {
            if (QObject* receiver = focusedReceiver(slot))
                QMetaObject::invokeMethod(receiver, slot);
        });
    }
}

void Commands::addToolbar() {
    QToolBar* bar = window_.addToolBar(tr("Toolbar"));
    bar->setObjectName("mainWindowToolbar");
    bar->setMovable(false);
    bar->setFloatable(false);
    bar->setIconSize({scaled(iconSize), scaled(iconSize)});
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->toggleViewAction()->setEnabled(false);
    bar->addWidget(gap(leftGap));
    Action::Menu group = Action::Menu::File;
    for (const Action& row : actions()) {
        if (row.toolTitle.empty())
            continue;
        if (row.menu != group && row.menu == Action::Menu::View)
            bar->addWidget(gap(gapBeforeView));
        else if (row.menu != group)
            addSeparator(bar);
        group = row.menu;
        auto* action = window_.findChild<QAction*>(text(row.name));
        bar->addAction(action);
        QWidget* button = bar->widgetForAction(action);
        button->setObjectName(action->objectName());
        button->setAccessibleName(action->iconText());
        button->setFixedSize(scaled(itemWidth), scaled(itemHeight));
        button->setFocusPolicy(Qt::TabFocus);
        style::setFont(button, style::FontRole::toolbar);
    }
    binder_.addUpdater([bar](const FormModel& form) {
        bar->setContextMenuPolicy(form.mainWindowToolbar.allowsUserCustomization
                                      ? Qt::DefaultContextMenu
                                      : Qt::PreventContextMenu);
    });
}

} // namespace frimbolate
