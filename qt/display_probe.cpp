#include "qt/display_probe.h"

#include "posix/file_descriptor.h"
#include "posix/local_socket.h"
#include "qt/xcb_reply.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace frimbolate {

namespace {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

using XConnection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// A null pointer where no server answers.
XConnection connectToX(const std::string& display) {
    XConnection connection(xcb_connect(display.c_str(), nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        connection.reset();
    return connection;
}

/// The argument after an option of Qt, which also accepts "--option". The last one wins.
std::string valueOf(const std::vector<std::string>& arguments, const std::string& option) {
    std::string value;
    for (std::size_t i = 1; i + 1 < arguments.size(); ++i)
        if (arguments[i] == option || arguments[i] == "-" + option)
            value = arguments[++i];
    return value;
}

struct Wanted {
    bool x = false, wayland = false, other = false;
};

/// \param platforms such as "wayland-egl;xcb:some=option"; empty leaves the choice to Qt
Wanted wantedOf(std::string_view platforms) {
    if (platforms.empty())
        return {true, true, false};
    Wanted wanted;
    while (!platforms.empty()) {
        const std::string_view entry = platforms.substr(0, platforms.find(';'));
        platforms.remove_prefix(std::min(platforms.size(), entry.size() + 1));
        const std::string_view name = entry.substr(0, entry.find(':'));
        if (name == "xcb")
            wanted.x = true;
        else if (name.starts_with("wayland"))
            wanted.wayland = true;
        else
            wanted.other = true;
    }
    return wanted;
}

std::string waylandSocket(const DisplayProbe& probe) {
    std::string name = probe.variable("WAYLAND_DISPLAY");
    if (name.empty() && probe.variable("XDG_SESSION_TYPE") == "wayland")
        name = "wayland-0";
    return name.empty() || name.starts_with('/') ? name
                                                 : probe.variable("XDG_RUNTIME_DIR") + "/" + name;
}

} // namespace

DisplayProbe DisplayProbe::ofThisProcess() {
    return {.variable =
                [](const char* name) {
                    const char* value = std::getenv(name);
                    return std::string(value ? value : "");
                },
            .opensX = [](const std::string& display) { return connectToX(display) != nullptr; },
            .opensWayland =
                [](const std::string& socket) {
                    return connectToLocalSocket(socket).outcome != ConnectOutcome::refused;
                }};
}

std::string xDisplayName(const std::vector<std::string>& arguments, const DisplayProbe& probe) {
    const std::string chosen = valueOf(arguments, "-display");
    return chosen.empty() ? probe.variable("DISPLAY") : chosen;
}

std::optional<std::string> missingDisplay(const std::vector<std::string>& arguments,
                                          const DisplayProbe& probe) {
    std::string platforms = valueOf(arguments, "-platform");
    if (platforms.empty())
        platforms = probe.variable("QT_QPA_PLATFORM");
    const Wanted wanted = wantedOf(platforms);
    // WAYLAND_SOCKET: a compositor can pass an open connection instead of a name.
    if (wanted.other || (wanted.wayland && !probe.variable("WAYLAND_SOCKET").empty()))
        return std::nullopt;
    std::string tried;
    if (const std::string socket = waylandSocket(probe); wanted.wayland && !socket.empty()) {
        if (probe.opensWayland(socket))
            return std::nullopt;
        tried = socket;
    }
    if (const std::string display = xDisplayName(arguments, probe); wanted.x && !display.empty()) {
        if (probe.opensX(display))
            return std::nullopt;
        tried = display;
    }
    if (!tried.empty())
        return "the display \"" + tried + "\" cannot be opened";
    return "there is no display; neither DISPLAY nor WAYLAND_DISPLAY names one";
}

std::string textOnXServer(const std::string& display, const std::string& property) {
    const XConnection connection = display.empty() ? nullptr : connectToX(display);
    if (!connection)
        return {};
    const XcbReply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection.get(),
        xcb_intern_atom(connection.get(), 1, static_cast<std::uint16_t>(property.size()),
                        property.data()),
        nullptr));
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data;
    if (!atom || atom->atom == XCB_ATOM_NONE || !screen)
        return {};
    constexpr std::uint32_t longest = 1024; // in units of four bytes
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection.get(),
                               xcb_get_property(connection.get(), 0, screen->root, atom->atom,
                                                XCB_ATOM_STRING, 0, longest),
                               nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

} // namespace frimbolate
