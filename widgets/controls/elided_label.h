// A quiet line of text that is cut short where there is no room for it; its tool tip holds it
// whole, and so do assistive tools, as far as a text may be laid out at all.
#pragma once

#include <QLabel>

namespace frimbolate {

class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(Qt::TextElideMode mode, QWidget* parent = nullptr);

    void setWholeText(const QString& text);
    /// Whether the line tells a fault, and is drawn in the colour of one.
    void setWarning(bool warning);
    bool isWarning() const { return warning_; }

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::TextElideMode mode_;
    bool warning_ = false;
};

} // namespace frimbolate
