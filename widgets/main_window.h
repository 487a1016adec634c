// The main window: menus, toolbar, the form, the line of plain words at its foot, and the drawer.
//
// It is dumb on purpose: it mirrors the form model and sends the actions of AppDelegate. It is
// built before everything that needs a window to stand on, and connected last.
#pragma once

#include "widgets/controls/form_binder.h"

#include <QMainWindow>

class QAction;

namespace frimbolate {

class Commands;
class DrawerPanel;
class FormCard;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// \param blendsWindows whether the desktop shows what lies behind a translucent window
    explicit MainWindow(bool blendsWindows = false);

    /// Where further controls, those of the sheets, are bound.
    FormBinder& formBinder() { return binder_; }
    QAction* aboutAction() const;

    /// The delegate must outlive the window's last event.
    void connectTo(AppDelegate& delegate) { binder_.connectTo(delegate); }
    /// Shows the model as it is now; to be called after whatever changed it.
    void mirror() { binder_.mirror(); }
    /// Shows the window, above the others and with the keyboard.
    void bringToFront();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* makeForm(QWidget* parent);
    QWidget* makeStatusLine(QWidget* parent);

    void leadToFirstFault(FormCard& card);

    FormBinder binder_;
    Commands* commands_;
    bool leadsToFault_ = false; ///< as soon as what validation told was answered
};

} // namespace frimbolate
