// Computes where the open drawer lies; geometry only, no widgets.
#pragma once

#include <QPoint>
#include <QRect>

namespace frimbolate {

struct DrawerPlacement {
    bool isBesideForm; ///< the window grows by the drawer; otherwise the drawer covers the form
    QPoint topLeft;    ///< of the window's frame, such that the whole window is on the screen
    friend bool operator==(const DrawerPlacement&, const DrawerPlacement&) = default;
};

/// All in pixels of the screen.
/// \param available the part of the screen that windows may cover
/// \param frame the window without the drawer, including the desktop's frame
DrawerPlacement placeDrawer(const QRect& available, const QRect& frame, int drawerWidth);

} // namespace frimbolate
