// The script pop-over: a small window that points at the script button and goes away at a click
// beside it. It is made larger on demand, and stays as large for the next script.
//
// It shows itself while the model says so and no sheet is up: a sheet would lie under it, out of
// reach of the mouse. Dismissed by the person, it tells the model.
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
    /// \param anchor what it points at, a part of the window `parent`
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
    // In the order in which Tab reaches them.
    QToolButton* larger_;
    PopUpButton* language_;
    ScriptEditor* script_;
    QGridLayout* grid_;
    QRegion shape_; ///< the panel and its arrow
    style::PopOverArrow arrow_{Qt::LeftEdge, 0};
    bool wanted_ = false;       ///< what the model says
    bool blocked_ = false;      ///< by a sheet
    bool escapeIsUsed_ = false; ///< by the list of languages, which it closes
};

} // namespace frimbolate
