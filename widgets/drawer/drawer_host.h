// Fits the window and its drawer to the screen.
//
// If both fit the screen side by side, the window grows by the drawer. If not, the drawer slides
// over the form and closes on Escape and as soon as a control of the form gets the focus, so that
// the focused control is never covered. A window that was moved to show the whole drawer moves back
// when the drawer has closed, unless the user has moved it in the meantime.
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
    /// The binder must outlive the host.
    /// \param window owns the host; `form` and `drawer` are children of its content
    /// \param closedSize of the window without the drawer
    DrawerHost(FormBinder& binder, QWidget& window, QWidget* form, DrawerPanel* drawer,
               const QSize& closedSize);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Moves { Allowed, None };

    void makeSpace(bool needed);
    void fit(Moves moves);
    void followScreen();
    void fitToChangedScreen();
    void openChanged(bool open);
    void keepFocusVisible();
    void closeIfFocusIsHidden();
    bool isOverForm() const;

    FormBinder& binder_;
    QWidget& window_;
    QWidget* form_;
    DrawerPanel* drawer_;
    QShortcut* escape_;
    QSize closedSize_;
    bool hasSpace_ = false;
    QPoint closedAt_;             ///< position of the window's frame before the drawer opened
    QPoint openAt_;               ///< position of the window's frame with the drawer open
    QPointer<QWidget> lastFocus_; ///< the focused widget before the drawer covered it
};

} // namespace frimbolate
