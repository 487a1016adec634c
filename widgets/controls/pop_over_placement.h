// Where a pop-over finds its place beside what it points at, decided by numbers alone.
#pragma once

#include <QRect>
#include <QSize>

namespace frimbolate {

struct PopOverPlacement {
    QRect panel;    ///< without its arrow
    Qt::Edge arrow; ///< the edge of the panel that faces the anchor
    int tip; ///< of the arrow, from the panel's top or, where the arrow is above or below, its left
    friend bool operator==(const PopOverPlacement&, const PopOverPlacement&) = default;
};

struct PopOverMeasures {
    QSize wanted;
    QSize least;     ///< what the panel may shrink to where there is too little room
    int distance;    ///< between anchor and panel; the arrow lies in it
    int corner;      ///< how near the tip may come to a corner of the panel
    int tipBelowTop; ///< of a panel beside its anchor, where the screen allows it
};

/// The first of right, left, below and above that has room for the whole panel; where none has, the
/// roomiest, with a smaller panel. So the panel neither covers its anchor nor leaves the screen,
/// unless even the least panel is too large. All in pixels of the screen.
PopOverPlacement placePopOver(const QRect& anchor, const QRect& available,
                              const PopOverMeasures& measures);

} // namespace frimbolate
