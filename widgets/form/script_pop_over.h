// The script pop-over: a small window that points at the script button and closes on a click
// outside. The user can enlarge it; it keeps the size for the next script.
//
// It is visible while the model says so and no sheet is shown: a sheet would lie under it, out of
// reach of the mouse. When the user dismisses it, it updates the model.
#pragma once

#include "widgets/style/pop_over_frame.h"

#include <QRegion>
#include <QWidget>

class QGridLayout;
class QToolButton;

namespace frimbolate {

class FormBinder;
class PopUpButton;
class ScriptEditor;

class ScriptPopOver : public QWidget {
    Q_OBJECT

  public:
    /// The binder and the anchor must outlive the pop-over.
    /// \param anchor what the arrow points at, a child of the window `parent`
    /// \param blendsWindows whether the desktop shows what lies behind a translucent window
    ScriptPopOver(FormBinder& binder, QWidget* anchor, bool blendsWindows, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    void setWanted(bool wanted);
    void setBlocked(bool blocked);
    void showOrHide();
    void placeBesideAnchor();
    QRect anchorOnScreen() const;

    FormBinder& binder_;
    QWidget* anchor_;
    style::PopOverFrame frame_;
    // In tab order.
    QToolButton* larger_;
    PopUpButton* language_;
    ScriptEditor* script_;
    QGridLayout* grid_;
    QRegion shape_; ///< the panel and its arrow
    style::PopOverArrow arrow_{Qt::LeftEdge, 0};
    bool wanted_ = false;       ///< the model shows the pop-over
    bool blocked_ = false;      ///< a sheet is shown
    bool escapeIsUsed_ = false; ///< this Escape closed the list of languages
};

} // namespace frimbolate
