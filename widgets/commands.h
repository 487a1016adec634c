// The menus and the toolbar: the program's list of commands made visible.
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
    Commands(FormBinder& binder, QMainWindow& window);

    /// The item of the Help menu that tells about the program.
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
