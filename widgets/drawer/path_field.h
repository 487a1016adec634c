// A field for a path of the drawer: it takes what is typed, and a file or folder that is dropped.
#pragma once

#include <QLineEdit>

class QToolButton;

namespace frimbolate {

class FormBinder;

class PathField : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

    /// What is to be said of the path; shown as a fault, and in the tool tip. Empty for nothing.
    void setHint(const QString& hint);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void setHovered(bool hovered);

    bool isHovered_ = false; ///< by a path that may be dropped
};

/// The button beside the field of that outlet, which asks for its path in a panel.
/// \param caption of the field
QToolButton* makeChooseButton(FormBinder& binder, std::string_view outlet, const QString& caption,
                              QWidget* parent);

} // namespace frimbolate
