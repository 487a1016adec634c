// Scrolls a text by the keyboard while a button beside it has the focus.
#pragma once

#include <QObject>

class QAbstractScrollArea;

namespace frimbolate {

/// An event filter for the button: Up, Down, Page Up, Page Down, Home and End scroll the area; all
/// other keys reach the button.
class ScrollKeys : public QObject {
    Q_OBJECT

  public:
    /// \param area becomes the parent, and so outlives the filter
    explicit ScrollKeys(QAbstractScrollArea* area);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAbstractScrollArea* area_;
};

} // namespace frimbolate
