#include "widgets/style/pop_over_frame.h"

#include "widgets/style/fonts.h"
#include "widgets/style/painting.h"
#include "widgets/style/tokens.h"

#include <QBitmap>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include <array>

namespace frimbolate::style {

namespace {

// Pixels of the 1x layout.
constexpr int shadowReach = 18, shadowDrop = 4;
constexpr int blendedRadius = 10, cutOutRadius = 6;

/// The shape without its outermost pixels.
QRegion withoutBorder(const QRegion& shape) {
    return shape & shape.translated(1, 0) & shape.translated(-1, 0) & shape.translated(0, 1) &
           shape.translated(0, -1);
}

/// The arrow at an edge of the panel; overlaps the panel by one pixel.
QPolygonF arrowPolygon(const QRectF& panel, Qt::Edge edge, double tip) {
    const double reach = scaled(PopOverFrame::arrow);
    const auto corners = [&](double border, double outwards) {
        return std::array{QPointF(border + outwards * reach, tip),
                          QPointF(border - outwards, tip - reach - 1),
                          QPointF(border - outwards, tip + reach + 1)};
    };
    const bool isBeside = edge == Qt::LeftEdge || edge == Qt::RightEdge;
    const bool isFirst = edge == Qt::LeftEdge || edge == Qt::TopEdge;
    const double border = edge == Qt::LeftEdge    ? panel.left()
                          : edge == Qt::RightEdge ? panel.right()
                          : edge == Qt::TopEdge   ? panel.top()
                                                  : panel.bottom();
    QPolygonF polygon;
    for (const QPointF& corner : corners(border, isFirst ? -1 : 1))
        polygon.append(isBeside ? corner : corner.transposed());
    return polygon;
}

QPainterPath outline(const QRectF& panel, double radius, Qt::Edge edge, double tip) {
    QPainterPath body, arrow;
    body.addRoundedRect(panel, radius, radius);
    arrow.addPolygon(arrowPolygon(panel, edge, tip));
    arrow.closeSubpath();
    return body.united(arrow);
}

} // namespace

int PopOverFrame::margin() const { return translucent_ ? scaled(shadowReach + shadowDrop) : 0; }

QMargins PopOverFrame::around(Qt::Edge arrowEdge) const {
    const int side = margin(), withArrow = side + scaled(arrow);
    return {arrowEdge == Qt::LeftEdge ? withArrow : side,
            arrowEdge == Qt::TopEdge ? withArrow : side,
            arrowEdge == Qt::RightEdge ? withArrow : side,
            arrowEdge == Qt::BottomEdge ? withArrow : side};
}

QRect PopOverFrame::panelRect(const QSize& window, Qt::Edge arrowEdge) const {
    return QRect(QPoint(0, 0), window).marginsRemoved(around(arrowEdge));
}

QRegion PopOverFrame::shape(const QSize& window, const PopOverArrow& at) const {
    // Drawn without antialiasing, so that the window's shape and its border cover the same pixels.
    const QRect panel = panelRect(window, at.edge);
    const int radius = scaled(translucent_ ? blendedRadius : cutOutRadius);
    QBitmap pixels(window);
    pixels.clear();
    QPainter painter(&pixels);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(panel, radius, radius);
    painter.drawPolygon(arrowPolygon(panel, at.edge, at.tip));
    painter.end();
    return QRegion(pixels);
}

void PopOverFrame::paintShadow(QPainter& painter, const QRectF& panel, bool dark) const {
    softShadow(painter, scaled(shadowReach), dark ? .05f : .022f, [&](int step) {
        const double radius = scaled(blendedRadius) + step;
        painter.drawRoundedRect(
            panel.adjusted(-step, -step, step, step).translated(0, scaled(shadowDrop)), radius,
            radius);
    });
}

void PopOverFrame::paint(QWidget& window, const PopOverArrow& at) const {
    const Tokens& t = tokens(window.palette());
    QPainter painter(&window);
    if (!translucent_) {
        const QRegion whole = shape(window.size(), at);
        painter.setClipRegion(whole);
        painter.fillRect(window.rect(), t.popOverBorder);
        painter.setClipRegion(withoutBorder(whole));
        painter.fillRect(window.rect(), t.surface);
        return;
    }
    const QRectF panel = panelRect(window.size(), at.edge);
    painter.setRenderHint(QPainter::Antialiasing);
    paintShadow(painter, panel, &t == &tokens(true));
    painter.setPen(t.popOverBorder);
    painter.setBrush(t.surface);
    painter.drawPath(outline(panel.adjusted(.5, .5, -.5, -.5), scaled(blendedRadius) - .5, at.edge,
                             at.tip + .5));
}

} // namespace frimbolate::style
