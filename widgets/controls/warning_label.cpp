#include "widgets/controls/warning_label.h"

#include "widgets/style/fonts.h"
#include "widgets/style/surfaces.h"

namespace frimbolate {

WarningLabel::WarningLabel(int gapBelow, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setContentsMargins(look::scaled(look::warningSignSide + look::warningSignGap), 0, 0,
                       look::scaled(gapBelow));
    hide();
}

void WarningLabel::setWarning(const QString& warning) {
    setText(warning);
    setAccessibleName(warning);
    setVisible(!warning.isEmpty());
}

void WarningLabel::paintEvent(QPaintEvent*) { look::paintWarning(*this); }

} // namespace frimbolate
