#include "widgets/drawer/drawer_placement.h"

#include <algorithm>

namespace frimbolate {

namespace {

/// The first pixel of a length that ends within the available ones. Only a length that is longer
/// than these keeps its beginning instead, and one that begins before them is left alone: what is
/// needed of the drawer lies at its end.
int pulledIn(int first, int length, int availableFirst, int availableLength) {
    const int last = availableFirst + availableLength - length;
    return first > last ? std::max(last, availableFirst) : first;
}

} // namespace

DrawerPlacement placeDrawer(const QRect& available, const QRect& frame, int drawerWidth) {
    const bool isBeside = frame.width() + drawerWidth <= available.width();
    const int width = frame.width() + (isBeside ? drawerWidth : 0);
    return {isBeside,
            {pulledIn(frame.left(), width, available.left(), available.width()),
             pulledIn(frame.top(), frame.height(), available.top(), available.height())}};
}

} // namespace frimbolate
