#include "qt/window_blending.h"

#include <QGuiApplication>

#ifndef Q_OS_MACOS
#include "qt/xcb_reply.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#endif

namespace frimbolate {

namespace {

#ifndef Q_OS_MACOS
/// A compositing manager owns the selection _NET_WM_CM_S and the number of its screen.
bool hasCompositingManager(xcb_connection_t* connection) {
    char* host = nullptr;
    int display = 0, screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen))
        std::free(host);
    const std::string name = "_NET_WM_CM_S" + std::to_string(screen);
    const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const XcbReply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}
#endif

} // namespace

bool blendsWindows() {
    const QString platform = QGuiApplication::platformName();
#ifndef Q_OS_MACOS
    if (platform == "xcb") {
        const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        return x11 && hasCompositingManager(x11->connection());
    }
#endif
    return platform == "cocoa" || platform.startsWith("wayland");
}

} // namespace frimbolate
