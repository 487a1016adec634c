#include "widgets/pages/flat_button.h"

#include "widgets/style/fonts.h"
#include "widgets/style/page_surfaces.h"

namespace frimbolate {

FlatButton::FlatButton(QWidget* parent) : QToolButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const int side = style::scaled(style::pageIconSide);
    setIconSize({side, side});
    style::setFont(this, style::FontRole::hint);
}

QSize FlatButton::sizeHint() const {
    using style::scaled;
    const int icon =
        QToolButton::icon().isNull() ? 0 : iconSize().width() + scaled(style::flatButtonGap);
    return {2 * scaled(style::flatButtonPadding) + icon +
                fontMetrics().horizontalAdvance(QString(text()).remove('&')),
            scaled(style::flatButtonHeight)};
}

void FlatButton::paintEvent(QPaintEvent*) { style::paintFlatButton(*this); }

} // namespace frimbolate
