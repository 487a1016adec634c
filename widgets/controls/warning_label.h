// A warning: a sign with a wrapped text beside it. Hidden while there is no warning.
#pragma once

#include <QLabel>

namespace frimbolate {

/// Exposed to assistive tools with the alert role when it is shown (see widgets/accessibility.h).
class WarningLabel : public QLabel {
    Q_OBJECT

  public:
    /// \param gapBelow space below the text, in pixels of the 1x layout
    explicit WarningLabel(int gapBelow, QWidget* parent = nullptr);

    /// \param warning empty hides the label
    void setWarning(const QString& warning);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace frimbolate
