// Where the open drawer finds its place, decided by numbers alone.
#pragma once

#include <QPoint>
#include <QRect>

namespace frimbolate {

struct DrawerPlacement {
    bool isBesideForm; ///< in a window that grows by the drawer; otherwise over the form
    QPoint topLeft;    ///< of the window's frame, so that all of it is on the screen
    friend bool operator==(const DrawerPlacement&, const DrawerPlacement&) = default;
};

/// All in pixels of the screen.
/// \param available the part of the screen that windows may cover
/// \param frame the window without the drawer, with what the desktop draws around it
DrawerPlacement placeDrawer(const QRect& available, const QRect& frame, int drawerWidth);

} // namespace frimbolate
