#include "widgets/drawer/drawer_placement.h"

#include <algorithm>

namespace frimbolate {

namespace {

/// The first pixel of a length, moved back so that the length ends within the available pixels, but
/// not before their start. A length that ends within them is unchanged even if it starts before
/// them, because the drawer lies at its end.
int clampedStart(int first, int length, int availableFirst, int availableLength) {
    const int last = availableFirst + availableLength - length;
    return first > last ? std::max(last, availableFirst) : first;
}

} // namespace

DrawerPlacement placeDrawer(const QRect& available, const QRect& frame, int drawerWidth) {
    const bool isBeside = frame.width() + drawerWidth <= available.width();
    const int width = frame.width() + (isBeside ? drawerWidth : 0);
    return {isBeside,
            {clampedStart(frame.left(), width, available.left(), available.width()),
             clampedStart(frame.top(), frame.height(), available.top(), available.height())}};
}

} // namespace frimbolate
