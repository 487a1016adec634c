#include "widgets/controls/pop_over_placement.h"

#include <algorithm>

namespace frimbolate {

namespace {

bool isVertical(Qt::Edge arrow) { return arrow == Qt::LeftEdge || arrow == Qt::RightEdge; }

/// The part of the screen on the side of the anchor where a panel with that arrow edge lies.
QRect spaceBeside(Qt::Edge arrow, const QRect& anchor, const QRect& available, int distance) {
    QRect room = available;
    switch (arrow) {
    case Qt::LeftEdge:
        room.setLeft(anchor.right() + 1 + distance);
        break;
    case Qt::RightEdge:
        room.setRight(anchor.left() - 1 - distance);
        break;
    case Qt::TopEdge:
        room.setTop(anchor.bottom() + 1 + distance);
        break;
    case Qt::BottomEdge:
        room.setBottom(anchor.top() - 1 - distance);
        break;
    }
    return room;
}

bool fits(const QSize& panel, const QRect& room) {
    return panel.width() <= room.width() && panel.height() <= room.height();
}

int area(const QSize& size) { return size.isEmpty() ? 0 : size.width() * size.height(); }

/// The start of a length moved into the available pixels; their start if the length is longer.
int clampedInto(int first, int length, int availableFirst, int availableLength) {
    return std::max(availableFirst, std::min(first, availableFirst + availableLength - length));
}

/// The panel on its side of the anchor, as close to it as the screen allows.
QRect placed(const QSize& panel, Qt::Edge arrow, const QRect& anchor, const QRect& room,
             const QRect& available, int tipBelowTop) {
    QPoint at;
    if (isVertical(arrow))
        at = {arrow == Qt::LeftEdge ? room.left() : room.right() + 1 - panel.width(),
              anchor.center().y() + 1 - tipBelowTop};
    else
        at = {anchor.center().x() + 1 - panel.width() / 2,
              arrow == Qt::TopEdge ? room.top() : room.bottom() + 1 - panel.height()};
    return {QPoint(clampedInto(at.x(), panel.width(), available.left(), available.width()),
                   clampedInto(at.y(), panel.height(), available.top(), available.height())),
            panel};
}

} // namespace

PopOverPlacement placePopOver(const QRect& anchor, const QRect& available,
                              const PopOverMeasures& measures) {
    Qt::Edge best = Qt::LeftEdge;
    QSize panel(0, 0);
    for (const Qt::Edge arrow : {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge}) {
        const QRect room = spaceBeside(arrow, anchor, available, measures.distance);
        const QSize possible = measures.wanted.boundedTo(room.size());
        if (fits(measures.wanted, room)) {
            best = arrow;
            panel = measures.wanted;
            break;
        }
        if (area(possible) > area(panel)) {
            best = arrow;
            panel = possible;
        }
    }
    panel = panel.expandedTo(measures.least);
    const QRect room = spaceBeside(best, anchor, available, measures.distance);
    const QRect place = placed(panel, best, anchor, room, available, measures.tipBelowTop);
    const QPoint tip = anchor.center() + QPoint(1, 1) - place.topLeft();
    const int length = isVertical(best) ? place.height() : place.width();
    return {place, best,
            std::clamp(isVertical(best) ? tip.y() : tip.x(), measures.corner,
                       length - 1 - measures.corner)};
}

} // namespace frimbolate
