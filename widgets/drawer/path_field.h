// A field for a path in the drawer; accepts typed text and a dropped file or folder.
#pragma once

#include <QLineEdit>

class QToolButton;

namespace frimbolate {

class FormBinder;

class PathField : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

    /// Marks the field as faulty, with the hint in the tool tip and description; empty clears it.
    void setHint(const QString& hint);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void setHovered(bool hovered);

    bool isHovered_ = false; ///< an acceptable drag is over the field
};

/// The button beside the field of that outlet, which opens a panel to choose the path. A child of
/// the parent; the binder must outlive it.
/// \param caption of the field
QToolButton* makeChooseButton(FormBinder& binder, std::string_view outlet, const QString& caption,
                              QWidget* parent);

} // namespace frimbolate
