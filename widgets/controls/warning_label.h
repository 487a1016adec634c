// A warning: a sign, and words that wrap beside it. Hidden while there is nothing to warn of.
#pragma once

#include <QLabel>

namespace frimbolate {

/// Assistive tools are told of it as an alert when it shows (see window_access).
class WarningLabel : public QLabel {
    Q_OBJECT

  public:
    /// \param gapBelow left free below the words, in pixels of the 1x layout
    explicit WarningLabel(int gapBelow, QWidget* parent = nullptr);

    /// \param warning empty hides the label
    void setWarning(const QString& warning);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace frimbolate
