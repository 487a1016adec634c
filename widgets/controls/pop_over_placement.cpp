#include "widgets/controls/pop_over_placement.h"

#include <algorithm>

namespace frimbolate {

namespace {

bool isVertical(Qt::Edge arrow) { return arrow == Qt::LeftEdge || arrow == Qt::RightEdge; }

/// The part of the screen on the side of the anchor where a panel with that arrow edge lies.
QRect spaceBeside(Qt::Edge arrow, const QRect& anchor, const QRect& available, int distance) {
    QRect space = available;
    switch (arrow) {
    case Qt::LeftEdge:
        space.setLeft(anchor.right() + 1 + distance);
        break;
    case Qt::RightEdge:
        space.setRight(anchor.left() - 1 - distance);
        break;
    case Qt::TopEdge:
        space.setTop(anchor.bottom() + 1 + distance);
        break;
    case Qt::BottomEdge:
        space.setBottom(anchor.top() - 1 - distance);
        break;
    }
    return space;
}

bool fits(const QSize& panel, const QRect& space) {
    return panel.width() <= space.width() && panel.height() <= space.height();
}

int area(const QSize& size) { return size.isEmpty() ? 0 : size.width() * size.height(); }

/// The start of a length moved into the available pixels; their start if the length is longer.
int clampedInto(int first, int length, int availableFirst, int availableLength) {
    return std::max(availableFirst, std::min(first, availableFirst + availableLength - length));
}

/// The panel on its side of the anchor, as close to it as the screen allows.
QRect placed(const QSize& panel, Qt::Edge arrow, const QRect& anchor, const QRect& space,
             const QRect& available, int tipBelowTop) {
    QPoint at;
    if (isVertical(arrow))
        at = {arrow == Qt::LeftEdge ? space.left() : space.right() + 1 - panel.width(),
              anchor.center().y() + 1 - tipBelowTop};
    else
        at = {anchor.center().x() + 1 - panel.width() / 2,
              arrow == Qt::TopEdge ? space.top() : space.bottom() + 1 - panel.height()};
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
        const QRect space = spaceBeside(arrow, anchor, available, measures.distance);
        const QSize possible = measures.wanted.boundedTo(space.size());
        if (fits(measures.wanted, space)) {
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
    const QRect space = spaceBeside(best, anchor, available, measures.distance);
    const QRect place = placed(panel, best, anchor, space, available, measures.tipBelowTop);
    const QPoint tip = anchor.center() + QPoint(1, 1) - place.topLeft();
    const int length = isVertical(best) ? place.height() : place.width();
    return {place, best,
            std::clamp(isVertical(best) ? tip.y() : tip.x(), measures.corner,
                       length - 1 - measures.corner)};
}

} // namespace frimbolate
