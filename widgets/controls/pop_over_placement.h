// Computes the position of a pop-over beside its anchor; geometry only, no widgets.
#pragma once

#include <QRect>
#include <QSize>

namespace frimbolate {

struct PopOverPlacement {
    QRect panel;    ///< without its arrow
    Qt::Edge arrow; ///< the edge of the panel that faces the anchor
    int tip; ///< of the arrow, from the panel's top; from its left if the arrow is above or below
    friend bool operator==(const PopOverPlacement&, const PopOverPlacement&) = default;
};

struct PopOverMeasures {
    QSize wanted;
    QSize least;     ///< the minimum size of the panel
    int distance;    ///< between anchor and panel; includes the arrow
    int corner;      ///< the least distance of the tip from a corner of the panel
    int tipBelowTop; ///< the preferred tip of a panel left or right of its anchor
};

/// Takes the first of right, left, below and above with enough space for the wanted size; if none
/// has, the side with the most space, with a smaller panel. The panel neither covers its anchor nor
/// leaves the screen unless even the least size is too large. All in pixels of the screen.
PopOverPlacement placePopOver(const QRect& anchor, const QRect& available,
                              const PopOverMeasures& measures);

} // namespace frimbolate
