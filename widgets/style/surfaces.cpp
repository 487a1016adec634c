#include "widgets/style/surfaces.h"

#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/painting.h"
#include "widgets/style/tokens.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPainter>

namespace frimbolate::style {

void paintCard(QWidget& card, int rows) {
    const Tokens& t = tokens(card.palette());
    QPainter painter(&card);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(t.hairline);
    painter.setBrush(t.surface);
    inBands(painter, card.rect(), [&] {
        painter.drawRoundedRect(QRectF(card.rect()).adjusted(.5, .5, -.5, -.5), scaled(10),
                                scaled(10));
    });
    for (int row = 1; row < rows; ++row)
        painter.fillRect(scaled(cardMargin), row * scaled(cardRowHeight),
                         card.width() - 2 * scaled(cardMargin), 1, t.hairline);
}

void paintDrawer(QWidget& drawer, bool besideForm) {
    const Tokens& t = tokens(drawer.palette());
    QPainter painter(&drawer);
    painter.fillRect(drawer.rect(), t.sunken);
    if (besideForm) {
        const int depth = scaled(10);
        QLinearGradient shadow(0, 0, depth, 0);
        shadow.setColorAt(0, QColor(0, 0, 0, 40));
        shadow.setColorAt(1, QColor(0, 0, 0, 0));
        painter.fillRect(0, 0, depth, drawer.height(), shadow);
    }
    painter.fillRect(0, 0, 1, drawer.height(), t.hairline.darker(115));
}

void paintDrawerShadow(QWidget& shadow) {
    constexpr float strength = .18f;
    QColor colour = tokens(shadow.palette()).scrim;
    QLinearGradient fading(0, 0, shadow.width(), 0);
    colour.setAlphaF(0);
    fading.setColorAt(0, colour);
    colour.setAlphaF(strength);
    fading.setColorAt(1, colour);
    QPainter(&shadow).fillRect(shadow.rect(), fading);
}

void paintStatusLine(QWidget& statusLine, bool complete) {
    const Tokens& t = tokens(statusLine.palette());
    QPainter painter(&statusLine);
    painter.fillRect(0, 0, statusLine.width(), 1, t.hairline);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(complete ? t.accent : t.controlBorder);
    const double side = scaled(statusDotSide);
    painter.drawEllipse(QRectF(scaled(cardMargin), (statusLine.height() - side) / 2, side, side));
}

void paintScrim(QWidget& scrim) {
    QPainter(&scrim).fillRect(scrim.rect(), tokens(scrim.palette()).scrim);
}

void paintBadge(QWidget& badge, int number) {
    const Tokens& t = tokens(badge.palette());
    QPainter painter(&badge);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(t.accentSoft);
    painter.drawEllipse(badge.rect());
    painter.setPen(t.accent);
    painter.drawText(badge.rect(), Qt::AlignCenter, QString::number(number));
}

void paintTip(QAbstractButton& tip) {
    const Tokens& t = tokens(tip.palette());
    const bool focused = tip.hasFocus();
    QPainter painter(&tip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focused ? t.accent : t.controlBorder, focused ? 2 : 1));
    painter.setBrush(tip.isDown()       ? t.pressed
                     : tip.underMouse() ? t.hover
                                        : QColor(Qt::transparent));
    const double inset = focused ? 1.5 : 1;
    painter.drawEllipse(QRectF(tip.rect()).adjusted(inset, inset, -inset, -inset));
    painter.setPen(t.secondaryText);
    painter.setFont(font(FontRole::toolbar));
    painter.drawText(tip.rect(), Qt::AlignCenter, "?");
}

void paintEmptyWell(QWidget& well) {
    const Tokens& t = tokens(well.palette());
    QPainter painter(&well);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen dashes(t.controlBorder, 1, Qt::CustomDashLine, Qt::FlatCap);
    dashes.setDashPattern({3, 3});
    painter.setPen(dashes);
    const QRectF square(well.rect());
    const double radius = scaled(6);
    painter.drawRoundedRect(square.adjusted(1.5, 1.5, -1.5, -1.5), radius, radius);
    painter.setPen(QPen(t.text, 1.5, Qt::SolidLine, Qt::RoundCap));
    const double arm = scaled(9) / 2.0;
    const QPointF middle = square.center();
    painter.drawLine(middle - QPointF(arm, 0), middle + QPointF(arm, 0));
    painter.drawLine(middle - QPointF(0, arm), middle + QPointF(0, arm));
}

void paintDropPlace(QWidget& place) {
    QPainter painter(&place);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(tokens(place.palette()).accent, 2));
    painter.drawRoundedRect(QRectF(place.rect()).adjusted(1, 1, -1, -1), scaled(6), scaled(6));
}

void paintWarning(QLabel& label) {
    QPainter painter(&label);
    const int side = scaled(warningSignSide);
    toolIcon("warning").paint(&painter, QRect(0, label.contentsRect().top(), side, side));
    painter.setPen(tokens(label.palette()).warnText);
    painter.drawText(label.contentsRect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     label.text());
}

void paintHint(QLabel& hint, const QString& text, Qt::TextElideMode mode, bool warning) {
    const Tokens& t = tokens(hint.palette());
    QPainter painter(&hint);
    painter.setPen(warning ? t.warnText : t.secondaryText);
    // A typed script may contain line breaks; a hint has one line.
    const QString shown = hint.fontMetrics().elidedText(text.simplified(), mode, hint.width());
    painter.drawText(hint.rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), shown);
}

} // namespace frimbolate::style
