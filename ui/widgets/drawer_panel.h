// The advanced drawer: launchd's rarer keys, and what else may launch the agent.
//
// It is a child of the window's content that stands right of the form while open, and slides out
// from behind it. The window grows once before it slides out and shrinks once after it slid in:
// resizing a window step by step flickers.
#pragma once

#include "core/form_model.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QPropertyAnimation;

namespace frimbolate {

class FormMirror;
class ImageWellButton;

class DrawerPanel : public QWidget {
    Q_OBJECT

  public:
    /// \param edge where the form ends and the open drawer begins, in pixels of the parent
    DrawerPanel(FormMirror& mirror, int edge, QWidget* parent);

    void setOpen(bool open);
    bool isOpen() const { return open_; }

  signals:
    /// The window needs room for the drawer (true), or has it to give back.
    void needsRoom(bool room);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void addCaption(int y, const QString& caption, QWidget* buddy);
    void place(QWidget* control, int x, int y, int width, int height);
    void addTitle();
    void addPriority();
    void addNiceLevel();
    void addPathFields();
    void addOptions();
    QCheckBox* addCheckBox(int x, int y, const QString& title);
    void slideEnded();

    FormMirror& mirror_;
    int edge_;
    bool open_ = false;
    QPropertyAnimation* slide_;
};

} // namespace frimbolate
