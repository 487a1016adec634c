#include "widgets/style/page_surfaces.h"

#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/painting.h"
#include "widgets/style/surfaces.h"
#include "widgets/style/tokens.h"

#include <QAbstractButton>
#include <QPainter>
#include <QToolButton>

namespace frimbolate::style {

void paintSwitcher(QWidget& switcher) {
    const Tokens& t = tokens(switcher.palette());
    QPainter painter(&switcher);
    drawRoundedBox(painter, switcher.rect(), scaled(8), t.surface, t.hairline);
}

void paintSegment(QAbstractButton& segment) {
    const Tokens& t = tokens(segment.palette());
    QPainter painter(&segment);
    const QColor fill = segment.isDown()       ? t.pressed
                        : segment.isChecked()  ? t.accentSoft
                        : segment.underMouse() ? t.hover
                                               : QColor(Qt::transparent);
    const QColor border = segment.hasFocus() ? t.accent : QColor(Qt::transparent);
    drawRoundedBox(painter, segment.rect(), scaled(6), fill, border, 2);
    QRect icon(0, 0, scaled(pageIconSide), scaled(pageIconSide));
    icon.moveCenter(segment.rect().center());
    segment.icon().paint(&painter, icon, Qt::AlignCenter, QIcon::Normal,
                         segment.isChecked() ? QIcon::On : QIcon::Off);
}

void paintPropertyListPage(QWidget& page, bool hasStrip, bool hasFocus) {
    const Tokens& t = tokens(page.palette());
    paintCard(page, 1);
    QPainter painter(&page);
    painter.fillRect(0, scaled(pageHeaderHeight), page.width(), 1, t.hairline);
    if (hasStrip)
        painter.fillRect(0, page.height() - scaled(faultStripHeight) - 1, page.width(), 1,
                         t.hairline);
    if (hasFocus)
        drawRoundedBox(painter, page.rect(), scaled(10), Qt::transparent, t.accent, 2);
}

void paintAgentsPage(QWidget& page) {
    const Tokens& t = tokens(page.palette());
    paintCard(page, 1);
    const double radius = scaled(10) - 1;
    const QRectF inner = QRectF(page.rect()).adjusted(1, 1, -1, -1);
    const double top = page.height() - scaled(agentBarHeight);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(t.raised);
    painter.setClipRect(QRectF(0, top, page.width(), page.height() - top));
    painter.drawRoundedRect(inner, radius, radius);
    painter.fillRect(QRectF(1, top, page.width() - 2, 1), t.hairline);
}

void paintSearchSign(QWidget& sign) {
    QPainter painter(&sign);
    toolIcon("search").paint(&painter, sign.rect(), Qt::AlignCenter,
                             sign.isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void paintFlatButton(QToolButton& button) {
    const Tokens& t = tokens(button.palette());
    QPainter painter(&button);
    const bool isEnabled = button.isEnabled();
    const QColor fill = !isEnabled            ? QColor(Qt::transparent)
                        : button.isDown()     ? t.pressed
                        : button.underMouse() ? t.hover
                                              : QColor(Qt::transparent);
    const QColor border = button.hasFocus() ? t.accent : QColor(Qt::transparent);
    drawRoundedBox(painter, button.rect(), scaled(6), fill, border, 2);
    QRect content = button.rect().adjusted(scaled(flatButtonPadding), 0, 0, 0);
    if (!button.icon().isNull()) {
        const QSize size = button.iconSize();
        const QRect icon(QPoint(content.left(), (button.height() - size.height()) / 2), size);
        button.icon().paint(&painter, icon, Qt::AlignCenter,
                            isEnabled ? QIcon::Normal : QIcon::Disabled);
        content.setLeft(icon.right() + 1 + scaled(flatButtonGap));
    }
    painter.setFont(button.font());
    painter.setPen(!isEnabled ? t.disabledText : button.icon().isNull() ? t.secondaryText : t.text);
    painter.drawText(content, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextHideMnemonic,
                     button.text());
}

} // namespace frimbolate::style
