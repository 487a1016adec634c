#include "widgets/drawer/drawer_host.h"

#include "widgets/controls/form_binder.h"
#include "widgets/drawer/drawer_panel.h"
#include "widgets/drawer/drawer_placement.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

namespace frimbolate {

DrawerHost::DrawerHost(FormBinder& binder, QWidget& window, QWidget* form, DrawerPanel* drawer,
                       const QSize& closedSize)
    : QObject(&window), binder_(binder), window_(window), form_(form), drawer_(drawer),
      escape_(new QShortcut(Qt::Key_Escape, &window)), closedSize_(closedSize) {
    window_.setFixedSize(closedSize_);
    window_.installEventFilter(this);
    escape_->setEnabled(false);
    connect(escape_, &QShortcut::activated, this,
            [this] { binder_.send(&AppDelegate::closeAdvancedDrawer); });
    connect(drawer_, &DrawerPanel::needsSpace, this, &DrawerHost::makeSpace);
    connect(drawer_, &DrawerPanel::openChanged, this, &DrawerHost::openChanged);
    // Queued: an update of the form may move the focus, and no action is sent during an update.
    connect(qApp, &QApplication::focusChanged, this, &DrawerHost::closeIfFocusIsHidden,
            Qt::QueuedConnection);
}

bool DrawerHost::isOverForm() const { return drawer_->isOpen() && !drawer_->isBesideForm(); }

void DrawerHost::makeSpace(bool needed) {
    if (needed == hasSpace_)
        return; // the drawer reopened before it was fully closed
    hasSpace_ = needed;
    if (needed) {
        closedAt_ = window_.frameGeometry().topLeft();
        openAt_ = closedAt_;
        return fit(Moves::Allowed);
    }
    window_.setFixedSize(closedSize_);
    if (openAt_ != closedAt_ && window_.frameGeometry().topLeft() == openAt_)
        window_.move(closedAt_);
}

void DrawerHost::fit(Moves moves) {
    QRect frame = window_.frameGeometry();
    frame.setSize(frame.size() - window_.size() + closedSize_);
    const DrawerPlacement placement =
        placeDrawer(window_.screen()->availableGeometry(), frame, drawer_->width());
    drawer_->setBesideForm(placement.isBesideForm);
    // A window that would leave the screen moves before it grows: window managers push it back only
    // after showing it partly off-screen.
    if (moves == Moves::Allowed && window_.isVisible() && placement.topLeft != frame.topLeft()) {
        window_.move(placement.topLeft);
        openAt_ = placement.topLeft;
    }
    const int growth = placement.isBesideForm ? drawer_->width() : 0;
    window_.setFixedSize(closedSize_ + QSize(growth, 0));
}

bool DrawerHost::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show)
        followScreen();
    return QObject::eventFilter(watched, event);
}

void DrawerHost::followScreen() {
    // Queued: the signal arrives while the window's geometry is still changing.
    const auto once = static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection);
    connect(window_.windowHandle(), &QWindow::screenChanged, this, &DrawerHost::fitToChangedScreen,
            once);
    connect(window_.screen(), &QScreen::availableGeometryChanged, this,
            &DrawerHost::fitToChangedScreen, once);
}

void DrawerHost::fitToChangedScreen() {
    followScreen();
    if (!hasSpace_)
        return;
    fit(Moves::None); // the user may be dragging the window
    if (drawer_->isOpen())
        openChanged(true);
}

void DrawerHost::openChanged(bool open) {
    escape_->setEnabled(isOverForm());
    if (open) {
        keepFocusVisible();
    } else if (drawer_->isAncestorOf(window_.focusWidget()) && lastFocus_) {
        lastFocus_->setFocus(Qt::OtherFocusReason);
        lastFocus_.clear();
    }
}

void DrawerHost::keepFocusVisible() {
    QWidget* focus = window_.focusWidget();
    if (!isOverForm() || !form_->isAncestorOf(focus))
        return;
    lastFocus_ = focus;
    drawer_->firstControl()->setFocus(Qt::OtherFocusReason);
}

void DrawerHost::closeIfFocusIsHidden() {
    if (isOverForm() && form_->isAncestorOf(window_.focusWidget()))
        binder_.send(&AppDelegate::closeAdvancedDrawer);
}

} // namespace frimbolate
