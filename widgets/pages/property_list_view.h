// A read-only view of a property list: coloured, selectable, wrapped.
#pragma once

#include <QTextEdit>

namespace frimbolate {

/// Each character keeps its place where only a part of the text changes, and with it the selection
/// and the scroll position. Of a line that is too long to lay out the beginning is shown.
class PropertyListView : public QTextEdit {
    Q_OBJECT

  public:
    explicit PropertyListView(QWidget* parent = nullptr);

    /// Returns whether the shown text has changed.
    bool setText(const QString& text);

  signals:
    void focusChanged();

  protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// Plain text only: the colours are no part of what is copied.
    QMimeData* createMimeDataFromSelection() const override;

  private:
    QString shown_;
};

} // namespace frimbolate
