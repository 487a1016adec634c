#include "widgets/controls/elided_label.h"

#include "widgets/controls/long_text.h"
#include "widgets/style/fonts.h"
#include "widgets/style/surfaces.h"

namespace frimbolate {

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, QWidget* parent) : QLabel(parent), mode_(mode) {
    // A path may contain any character; none is interpreted as markup.
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    style::setFont(this, style::FontRole::hint);
}

void ElidedLabel::setWholeText(const QString& text, const QString& shortText) {
    const QString shown = labelText(text, mode_);
    if (shortText != shortText_)
        update();
    shortText_ = shortText;
    setText(shown);
    setToolTip(shown);
}

void ElidedLabel::setWarning(bool warning) {
    warning_ = warning;
    update();
}

QString ElidedLabel::drawnText() const {
    const bool fits = shortText_.isEmpty() || fontMetrics().horizontalAdvance(text()) <= width();
    return fits ? text() : shortText_;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    style::paintHint(*this, drawnText(), mode_, warning_);
}

} // namespace frimbolate
