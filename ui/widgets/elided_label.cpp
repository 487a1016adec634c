#include "ui/widgets/elided_label.h"

#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/tokens.h"

#include <QPainter>

namespace frimbolate {

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, QWidget* parent) : QLabel(parent), mode_(mode) {
    // A path may hold anything, so nothing in it is taken for markup.
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    look::setFont(this, look::FontRole::hint);
}

void ElidedLabel::setWholeText(const QString& text) {
    setText(text);
    setToolTip(text);
}

void ElidedLabel::setWarning(bool warning) {
    warning_ = warning;
    update();
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    const look::Tokens& tokens = look::tokens(palette());
    QPainter painter(this);
    painter.setPen(warning_ ? tokens.warnText : tokens.text2);
    // A typed script may hold line breaks; the label is one line.
    const QString shown = fontMetrics().elidedText(text().simplified(), mode_, width());
    painter.drawText(rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), shown);
}

} // namespace frimbolate
