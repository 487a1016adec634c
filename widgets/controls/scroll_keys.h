// Scrolls a text by the keyboard while a button beside it has the focus.
#pragma once

#include <QObject>

class QAbstractScrollArea;

namespace frimbolate {

/// To be installed as an event filter on the button: Up, Down, Page Up, Page Down, Home and End
/// scroll the area, all other keys stay the button's.
class ScrollKeys : public QObject {
    Q_OBJECT

  public:
    /// \param area becomes the parent
    explicit ScrollKeys(QAbstractScrollArea* area);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAbstractScrollArea* area_;
};

} // namespace frimbolate
