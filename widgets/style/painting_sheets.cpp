#include "widgets/style/painting.h"
#include "widgets/style/surfaces.h"
#include "widgets/style/tokens.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QWidget>

namespace frimbolate::style {

namespace {

constexpr double cornerRadius = 12;

QPainterPath panelPath(const QRectF& panel, double radius) {
    QPainterPath path(panel.topLeft());
    path.lineTo(panel.topRight());
    path.lineTo(panel.bottomRight() - QPointF(0, radius));
    path.arcTo(QRectF(panel.bottomRight() - QPointF(2 * radius, 2 * radius),
                      QSizeF(2 * radius, 2 * radius)),
               0, -90);
    path.lineTo(panel.bottomLeft() + QPointF(radius, 0));
    path.arcTo(QRectF(panel.bottomLeft() - QPointF(0, 2 * radius), QSizeF(2 * radius, 2 * radius)),
               270, -90);
    path.closeSubpath();
    return path;
}

void paintShadow(QPainter& painter, const QRectF& panel, bool dark) {
    softShadow(painter, sheetShadowReach, dark ? .04f : .014f, [&](int step) {
        const QRectF layer = panel.adjusted(-step, 0, step, step).translated(0, sheetShadowDrop);
        painter.drawPath(
            panelPath(layer.adjusted(0, -sheetShadowReach, 0, 0), cornerRadius + step));
    });
}

void paintFrame(QPainter& painter, const QWidget& sheet, const QPixmap& backdrop,
                const QRectF& panel) {
    const Tokens& t = tokens(sheet.palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(sheet.rect(), t.window);
    painter.drawPixmap(0, 0, backdrop);
    paintShadow(painter, panel, &t == &tokens(true));
    painter.setPen(t.hairline);
    painter.setBrush(t.surface);
    // The upper line coincides with the toolbar's own.
    painter.drawPath(panelPath(panel.adjusted(.5, -.5, -.5, -.5), cornerRadius - .5));
}

} // namespace

void paintPlainSheet(QWidget& sheet) {
    QPainter(&sheet).fillRect(sheet.rect(), tokens(sheet.palette()).surface);
}

void paintSheet(QWidget& sheet, const QPixmap& backdrop, const QRectF& panel) {
    QPainter painter(&sheet);
    paintFrame(painter, sheet, backdrop, panel);
}

void paintSlidingSheet(QWidget& overlay, const QPixmap& backdrop, const QRectF& panel,
                       const QPixmap& content) {
    QPainter painter(&overlay);
    paintFrame(painter, overlay, backdrop, panel);
    painter.drawPixmap(panel.topLeft(), content);
}

} // namespace frimbolate::style
