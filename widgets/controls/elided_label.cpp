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

void ElidedLabel::setWholeText(const QString& text) {
    const QString shown = labelText(text, mode_);
    setText(shown);
    setToolTip(shown);
}

void ElidedLabel::setWarning(bool warning) {
    warning_ = warning;
    update();
}

void ElidedLabel::paintEvent(QPaintEvent*) { style::paintHint(*this, mode_, warning_); }

} // namespace frimbolate
