// The advanced drawer: launchd's rarer keys, and what else may launch the agent.
//
// It is a child of the window's content. Beside the form it slides out from behind it; the window
// grows once before and shrinks once after, for resizing a window step by step flickers. Over the
// form it slides in from the window's right edge and throws a shadow.
#pragma once

#include "core/form_model.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QPropertyAnimation;

namespace frimbolate {

class FormBinder;
class ImageWellButton;

class DrawerPanel : public QWidget {
    Q_OBJECT

  public:
    /// \param edge where the form ends and the open drawer begins, in pixels of the parent
    DrawerPanel(FormBinder& binder, int edge, QWidget* parent);

    void setOpen(bool open);
    bool isOpen() const { return open_; }
    /// Whether the open drawer stands beside the form, as at first, or over it.
    void setBesideForm(bool beside);
    bool isBesideForm() const { return besideForm_; }
    /// What has the keyboard first when the drawer takes it.
    QWidget* firstControl() const { return firstControl_; }

  signals:
    /// The window needs room for the drawer (true), or has it to give back. Setting the drawer's
    /// place is for whoever gives the room.
    void needsRoom(bool room);
    /// Comes with the beginning of the slide.
    void openChanged(bool open);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void addCaption(int y, const QString& caption, QWidget* buddy);
    void place(QWidget* control, int x, int y, int width, int height);
    void addTitle();
    void addPriority();
    void addNiceLevel();
    void addPathFields();
    void addPathHint();
    void addOptions();
    QCheckBox* addCheckBox(int x, int y, const QString& title);
    QPoint openPosition() const;
    QPoint closedPosition() const;
    void slideEnded();
    void placeShadow();

    FormBinder& binder_;
    int edge_;
    bool open_ = false;
    bool besideForm_ = true;
    QPropertyAnimation* slide_;
    QWidget* shadow_; ///< on the form
    QWidget* firstControl_ = nullptr;
};

} // namespace frimbolate
