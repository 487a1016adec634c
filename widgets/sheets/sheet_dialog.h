// The frame of every sheet: a window-modal dialog attached to the toolbar of the main window.
//
// It is a dialog, not a child of the window's content, so that its modality blocks the toolbar,
// shortcuts and Tab. It is larger than its panel by the shadow, and paints the main window's
// content there itself, so that round corners need no compositor. It therefore follows the main
// window when that moves or changes its size or palette.
//
// The sheet is centred over the main window's child "form" (over the whole window if there is none)
// and attached to the bottom of its QToolBar (to the top of the window if there is none).
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
    /// The shadow's width left of, right of and below the panel; pixels.
    static constexpr int shadowWidth = style::sheetShadowReach + style::sheetShadowDrop;
    static constexpr int padding = 24; ///< around the body; pixels

    /// The main window becomes the parent.
    /// \param panelWidth of the visible panel, in pixels of the 1x layout
    SheetDialog(const QString& objectName, int panelWidth, QWidget* mainWindow);

    /// The layout of the sheet's content, inside the padding; its spacing is 0.
    QVBoxLayout* body() const { return body_; }
    void setPanelWidth(int width);
    void setBodyPadding(const QMargins& margins);

    /// Appends the row of buttons: `side` at the left (or null), the others at the right in reading
    /// order, so that the last one lies in the corner. The sheet takes ownership.
    QWidget* addButtonRow(QWidget* side, const QList<QPushButton*>& buttons);

    /// The rectangle of the panel, in the dialog's coordinates.
    QRect panelRect() const;

    /// The main window's content behind the sheet, as it is now.
    const QPixmap& backdrop();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void placeOverMainWindow();
    void renewBackdrop();
    void slideOut();

    QWidget* mainWindow_;
    QVBoxLayout* body_;
    bool paintsFrame_; ///< false where the desktop draws the frame
    bool isBackdropOld_ = true;
    QPixmap backdrop_;
    QPointer<QWidget> overlay_; ///< only while the sheet slides in
};

} // namespace frimbolate
