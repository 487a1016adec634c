#include "widgets/style/painting.h"
#include "widgets/style/surfaces.h"
#include "widgets/style/tokens.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>
#include <QWidget>

#include <algorithm>

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

void paintPanel(QPainter& painter, const Tokens& t, const QRectF& panel) {
    painter.setRenderHint(QPainter::Antialiasing);
    paintShadow(painter, panel, &t == &tokens(true));
    painter.setPen(t.hairline);
    painter.setBrush(t.surface);
    // The upper line coincides with the toolbar's own.
    painter.drawPath(panelPath(panel.adjusted(.5, -.5, -.5, -.5), cornerRadius - .5));
}

// The least panel: its sides and its lower edge are one pixel long, between the corners.
constexpr int panelCorner = static_cast<int>(cornerRadius);
constexpr int panelSide = sheetShadowReach + panelCorner;
constexpr int panelBelow = panelCorner + sheetShadowReach + sheetShadowDrop;
constexpr QRect leastPanel(sheetShadowReach, 0, panelCorner + 1 + panelCorner, 1 + panelCorner);
constexpr QSize leastSize(panelSide + 1 + panelSide, 1 + panelBelow);

/// The least panel with its shadow, from which larger ones are put together: the shadow of a whole
/// sheet is two dozen antialiased shapes of its size.
QPixmap leastPanelPixmap(const Tokens& t, int ratio) {
    const QString entry =
        QString("frimbolate-panel:%1:%2").arg(&t == &tokens(true) ? "dark" : "light").arg(ratio);
    QPixmap pixmap;
    if (QPixmapCache::find(entry, &pixmap))
        return pixmap;
    // With 16 bits, since the shadow is a sum of two dozen layers of an alpha of three or less.
    QImage image(leastSize * ratio, QImage::Format_RGBA64_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    inBands(painter, QRect({}, leastSize), [&] { paintPanel(painter, t, leastPanel); });
    painter.end();
    pixmap = QPixmap::fromImage(image);
    QPixmapCache::insert(entry, pixmap);
    return pixmap;
}

/// Paints the panel with the pieces of the least one; its sides and its lower edge are stretched.
void assemblePanel(QPainter& painter, const Tokens& t, const QRect& panel, int ratio) {
    const QPixmap least = leastPanelPixmap(t, ratio);
    const auto piece = [&](const QRect& target, const QRect& source) {
        if (target.isEmpty())
            return;
        painter.drawPixmap(target, least, QRect(source.topLeft() * ratio, source.size() * ratio));
    };
    const int left = panel.left() - sheetShadowReach, inner = panel.left() + panelCorner;
    const int right = panel.right() + 1 - panelCorner, lower = panel.bottom() + 1 - panelCorner;
    const int top = std::max(panel.top(), 0), height = std::max(lower - top, 0);
    piece({left, top, panelSide, height}, {0, 0, panelSide, 1});
    piece({right, top, panelSide, height}, {panelSide + 1, 0, panelSide, 1});
    piece({left, lower, panelSide, panelBelow}, {0, 1, panelSide, panelBelow});
    piece({right, lower, panelSide, panelBelow}, {panelSide + 1, 1, panelSide, panelBelow});
    piece({inner, lower, right - inner, panelBelow}, {panelSide, 1, 1, panelBelow});
    painter.fillRect(inner, top, right - inner, height, t.surface);
}

void paintFrame(QPainter& painter, const QWidget& sheet, const QPixmap& backdrop,
                const QRect& panel) {
    const Tokens& t = tokens(sheet.palette());
    painter.fillRect(sheet.rect(), t.window);
    painter.drawPixmap(0, 0, backdrop);
    const double ratio = sheet.devicePixelRatioF();
    // The pieces meet at whole pixels only.
    if (const int whole = static_cast<int>(ratio); whole == ratio)
        assemblePanel(painter, t, panel, whole);
    else
        paintPanel(painter, t, panel);
}

} // namespace

void paintPlainSheet(QWidget& sheet) {
    QPainter(&sheet).fillRect(sheet.rect(), tokens(sheet.palette()).surface);
}

void paintSheet(QWidget& sheet, const QPixmap& backdrop, const QRect& panel) {
    QPainter painter(&sheet);
    paintFrame(painter, sheet, backdrop, panel);
}

void paintSlidingSheet(QWidget& overlay, const QPixmap& backdrop, const QRect& panel,
                       const QPixmap& content) {
    QPainter painter(&overlay);
    paintFrame(painter, overlay, backdrop, panel);
    painter.drawPixmap(panel.topLeft(), content);
}

} // namespace frimbolate::style
