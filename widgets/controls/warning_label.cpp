#include "widgets/controls/warning_label.h"

#include "widgets/style/fonts.h"
#include "widgets/style/surfaces.h"

namespace frimbolate {

WarningLabel::WarningLabel(int gapBelow, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setContentsMargins(style::scaled(style::warningSignSide + style::warningSignGap), 0, 0,
                       style::scaled(gapBelow));
    hide();
}

void WarningLabel::setWarning(const QString& warning) {
    setText(warning);
    setAccessibleName(warning);
    setVisible(!warning.isEmpty());
}

void WarningLabel::paintEvent(QPaintEvent*) { style::paintWarning(*this); }

} // namespace frimbolate
