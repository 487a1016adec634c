// The menus and the toolbar, built from the list of actions.
#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMainWindow;

namespace frimbolate {

class FormBinder;

class Commands : public QObject {
    Q_OBJECT

  public:
    /// Both arguments must outlive the commands. The window becomes the parent.
    Commands(FormBinder& binder, QMainWindow& window);

    /// The "about" item of the Help menu.
    QAction* about() const { return about_; }

  private:
    void makeActions();
    void addMenus();
    void addEditMenu();
    void addToolbar();
    QAction* addCommand(QMenu* menu, const char* name, const QString& title,
                        const QString& shortcut = {});

    FormBinder& binder_;
    QMainWindow& window_;
    QAction* about_ = nullptr;
};

} // namespace frimbolate
