#include "widgets/style/page_surfaces.h"

#include "widgets/style/fonts.h"
#include "widgets/style/painting.h"
#include "widgets/style/surfaces.h"
#include "widgets/style/tokens.h"

#include <QAbstractButton>
#include <QPainter>

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

} // namespace frimbolate::style
