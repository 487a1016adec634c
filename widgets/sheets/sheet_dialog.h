// The frame of every sheet: a window-modal dialog that hangs under the toolbar of the main window.
//
// A dialog of its own rather than a child of the window, so that the toolbar, shortcuts and Tab are
// blocked by the window system's own means. It is larger than its panel by the shadow and paints
// what the main window shows there behind itself: round corners need no compositor that way. It
// therefore follows the main window when that moves, changes its size or its palette.
//
// The sheet is centred over the main window's child "form" (over the whole window where there is
// none) and hangs at the bottom of its QToolBar (at the top where there is none).
#pragma once

#include "widgets/style/surfaces.h"

#include <QDialog>
#include <QList>
#include <QMargins>
#include <QPixmap>
#include <QPointer>

class QPushButton;
class QVBoxLayout;

namespace frimbolate {

/// The part of the main window below its toolbar, in the main window's coordinates.
QRect sheetArea(const QWidget& mainWindow);

class SheetDialog : public QDialog {
    Q_OBJECT

  public:
    /// Left, right and below the panel; pixels.
    static constexpr int shadowWidth = style::sheetShadowReach + style::sheetShadowDrop;
    static constexpr int padding = 24; ///< around the body; pixels

    /// \param panelWidth of the visible panel, in pixels of the 1x layout
    SheetDialog(const QString& objectName, int panelWidth, QWidget* mainWindow);

    /// Holds what the sheet shows, inside the padding; spacing is 0.
    QVBoxLayout* body() const { return body_; }
    void setPanelWidth(int width);
    void setBodyPadding(const QMargins& margins);

    /// Appends the row of buttons: one action at the left (or null), the others at the right in
    /// the order of reading, so that the last one stands in the corner.
    QWidget* addButtonRow(QWidget* side, const QList<QPushButton*>& buttons);

    /// Where the panel is, in the dialog's coordinates.
    QRect panelRect() const;

    /// What the main window shows where the sheet is.
    const QPixmap& backdrop() const { return backdrop_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void placeOverMainWindow();
    void grabBackdropSoon();
    void grabBackdrop();
    void slideOut();

    QWidget* mainWindow_;
    QVBoxLayout* body_;
    bool paintsFrame_; ///< whether the frame is ours, or the desktop's
    bool grabsSoon_ = false;
    QPixmap backdrop_;
    QPointer<QWidget> overlay_; ///< only while the sheet slides out
};

} // namespace frimbolate
