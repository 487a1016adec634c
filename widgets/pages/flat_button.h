// A button without a background at rest: an icon and a text, or a text alone.
#pragma once

#include <QToolButton>

namespace frimbolate {

class FlatButton : public QToolButton {
    Q_OBJECT

  public:
    explicit FlatButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace frimbolate
