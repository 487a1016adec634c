// A one-line label that elides its text to the available width. Its tool tip and its accessible
// text hold the whole text, up to the limit of labelText().
#pragma once

#include <QLabel>

namespace frimbolate {

class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(Qt::TextElideMode mode, QWidget* parent = nullptr);

    /// \param shortText is drawn instead where the text does not fit; empty elides the text
    void setWholeText(const QString& text, const QString& shortText = {});
    /// What is drawn at the current width: the text or the short text. Elided if that is too wide.
    QString drawnText() const;
    /// Whether the text reports a fault and is drawn in the warning colour.
    void setWarning(bool warning);
    bool isWarning() const { return warning_; }

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::TextElideMode mode_;
    QString shortText_;
    bool warning_ = false;
};

} // namespace frimbolate
