// Fits the window and its drawer to each other and to the screen.
//
// Where both fit the screen side by side, the window grows by the drawer; where not, the drawer
// slides over the form, and goes away at Escape and as soon as a control of the form gets the
// keyboard, so that none that has it is hidden. A window that moved to show the drawer whole goes
// back when the drawer has closed, unless it was moved in the meantime.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QWidget>

class QShortcut;

namespace frimbolate {

class DrawerPanel;
class FormBinder;

class DrawerHost : public QObject {
    Q_OBJECT

  public:
    /// \param window which owns the host; `form` and `drawer` are parts of its content
    /// \param closedSize of the window without the drawer
    DrawerHost(FormBinder& binder, QWidget& window, QWidget* form, DrawerPanel* drawer,
               const QSize& closedSize);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Moves { Allowed, None };

    void setRoom(bool room);
    void fit(Moves moves);
    void followScreen();
    void fitToChangedScreen();
    void openChanged(bool open);
    void keepFocusInSight();
    void closeIfFocusIsHidden();
    bool isOverForm() const;

    FormBinder& binder_;
    QWidget& window_;
    QWidget* form_;
    DrawerPanel* drawer_;
    QShortcut* escape_;
    QSize closedSize_;
    bool hasRoom_ = false;
    QPoint closedAt_;             ///< the window's frame before it made room
    QPoint openAt_;               ///< and since
    QPointer<QWidget> lastFocus_; ///< what had the keyboard before the drawer covered it
};

} // namespace frimbolate
