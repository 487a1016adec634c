// The main window: menus, toolbar, form, status line and drawer.
//
// It holds no rule and no state: it shows the form model and sends the actions of AppDelegate. It
// is built before the sheets, alerts and panels, which need it as parent, and connected last.
#pragma once

#include "widgets/controls/form_binder.h"

#include <QMainWindow>

#include <functional>

class QAction;

namespace frimbolate {

class AgentListReader;
class Commands;
class DrawerPanel;
class FormCard;
class PageStack;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// \param blendsWindows whether the desktop shows what lies behind a translucent window
    explicit MainWindow(bool blendsWindows = false);

    /// The binder for further controls, those of the sheets. Owned by the window.
    FormBinder& formBinder() { return binder_; }
    QAction* aboutAction() const;

    /// The delegate is not owned and must outlive the window.
    void connectTo(AppDelegate& delegate) { binder_.connectTo(delegate); }
    /// The clock of the next run in the status line; without one it shows none.
    void setWallClock(std::function<WallClock()> clock) { binder_.setWallClock(std::move(clock)); }
    /// What the window asks about the paths of the form, at each update and whenever it becomes
    /// active, since programs are installed elsewhere. Without it no path is looked at.
    void setPathLookup(PathLookup lookUp) { binder_.setPathLookup(std::move(lookUp)); }
    /// The reader of the list of agents, which reads while the list is shown. Not owned; it may end
    /// before the window.
    void setAgentListReader(AgentListReader& reader);
    /// Updates all controls from the model. Call it after every change of the model.
    void mirror() { binder_.mirror(); }
    /// Shows the window, raises it and gives it the keyboard focus.
    void bringToFront();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* makeForm(QWidget* parent);
    QWidget* makeStatusLine(QWidget* parent);
    QWidget* makeNextRun(QWidget* parent);

    void focusFirstFaultAfterValidation(FormCard& card);

    FormBinder binder_;
    Commands* commands_;
    PageStack* pages_ = nullptr;
    bool focusesFault_ = false; ///< the next update focuses the first fault
};

} // namespace frimbolate
