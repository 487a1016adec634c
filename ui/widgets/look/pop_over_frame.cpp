#include "ui/widgets/look/pop_over_frame.h"

#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/painting.h"
#include "ui/widgets/look/tokens.h"

#include <QBitmap>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace frimbolate::look {

namespace {

// Pixels of the 1x layout.
constexpr int shadowReach = 18, shadowDrop = 4;
constexpr int blendedRadius = 10, cutOutRadius = 6;

/// What is left of a shape without its outermost pixels.
QRegion withoutBorder(const QRegion& shape) {
    return shape & shape.translated(1, 0) & shape.translated(-1, 0) & shape.translated(0, 1) &
           shape.translated(0, -1);
}

} // namespace

int PopOverFrame::margin() const { return translucent_ ? scaled(shadowReach + shadowDrop) : 0; }

QSize PopOverFrame::windowSize(const QSize& panel) const {
    return panel + QSize(scaled(arrow) + 2 * margin(), 2 * margin());
}

QRect PopOverFrame::panelRect(const QSize& window) const {
    const int around = margin();
    return QRect(QPoint(0, 0), window).adjusted(around + scaled(arrow), around, -around, -around);
}

QRegion PopOverFrame::shape(const QSize& window, int tipY) const {
    // Drawn without antialiasing, so that the window's shape and its border follow the same pixels.
    const QRect panel = panelRect(window);
    const int reach = scaled(arrow), radius = scaled(translucent_ ? blendedRadius : cutOutRadius);
    QBitmap pixels(window);
    pixels.clear();
    QPainter painter(&pixels);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(panel, radius, radius);
    painter.drawPolygon(
        QPolygon({QPoint(panel.left() - reach, tipY), QPoint(panel.left() + 1, tipY - reach - 1),
                  QPoint(panel.left() + 1, tipY + reach + 1)}));
    painter.end();
    return QRegion(pixels);
}

QPainterPath PopOverFrame::outline(const QRectF& panel, double radius, double tipY) const {
    QPainterPath plate, tip;
    plate.addRoundedRect(panel, radius, radius);
    const double reach = scaled(arrow);
    tip.addPolygon(QPolygonF({{panel.left() - reach, tipY},
                              {panel.left() + 1, tipY - reach - 1},
                              {panel.left() + 1, tipY + reach + 1}}));
    tip.closeSubpath();
    return plate.united(tip);
}

void PopOverFrame::paintShadow(QPainter& painter, const QRectF& panel, bool dark) const {
    softShadow(painter, scaled(shadowReach), dark ? .05f : .022f, [&](int step) {
        const double radius = scaled(blendedRadius) + step;
        painter.drawRoundedRect(
            panel.adjusted(-step, -step, step, step).translated(0, scaled(shadowDrop)), radius,
            radius);
    });
}

void PopOverFrame::paint(QWidget& window, int tipY) const {
    const Tokens& t = tokens(window.palette());
    QPainter painter(&window);
    if (!translucent_) {
        const QRegion whole = shape(window.size(), tipY);
        painter.setClipRegion(whole);
        painter.fillRect(window.rect(), t.popOverBorder);
        painter.setClipRegion(withoutBorder(whole));
        painter.fillRect(window.rect(), t.surface);
        return;
    }
    const QRectF panel = panelRect(window.size());
    painter.setRenderHint(QPainter::Antialiasing);
    paintShadow(painter, panel, &t == &tokens(true));
    painter.setPen(t.popOverBorder);
    painter.setBrush(t.surface);
    painter.drawPath(
        outline(panel.adjusted(.5, .5, -.5, -.5), scaled(blendedRadius) - .5, tipY + .5));
}

} // namespace frimbolate::look
