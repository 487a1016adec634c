// The advanced drawer: launchd's less common keys, and further events that launch the agent.
//
// It is a child of the window's content. Beside the form it slides out from behind it; the window
// grows once before and shrinks once after, because resizing it step by step flickers. Over the
// form it slides in from the window's right edge and casts a shadow.
#pragma once

#include "core/form_model.h"

#include <QWidget>

#include <string_view>

class QCheckBox;
class QLineEdit;
class QPropertyAnimation;

namespace frimbolate {

class FormBinder;
class ImageWellButton;

class DrawerPanel : public QWidget {
    Q_OBJECT

  public:
    /// The binder must outlive the drawer.
    /// \param edge where the form ends and the open drawer begins, in pixels of the parent
    DrawerPanel(FormBinder& binder, int edge, QWidget* parent);

    void setOpen(bool open);
    bool isOpen() const { return open_; }
    /// Whether the open drawer lies beside the form (the default) or over it.
    void setBesideForm(bool beside);
    bool isBesideForm() const { return besideForm_; }
    /// The control that gets the focus when the drawer takes it.
    QWidget* firstControl() const { return firstControl_; }

  signals:
    /// The window must grow for the drawer (true) or may shrink again (false). The receiver calls
    /// setBesideForm().
    void needsSpace(bool needed);
    /// Emitted when the animation begins.
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
    /// Describes what is wrong with the value of a key.
    void showFinding(QWidget* control, std::string_view key);
    QPoint openPosition() const;
    QPoint closedPosition() const;
    void slideEnded();
    void placeShadow();

    FormBinder& binder_;
    int edge_;
    bool open_ = false;
    bool besideForm_ = true;
    QPropertyAnimation* slide_;
    QWidget* shadow_; ///< drawn on the form; a child of the parent
    QWidget* firstControl_ = nullptr;
};

} // namespace frimbolate
