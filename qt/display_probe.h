// Whether there is a screen to open a window on. Knows no Qt: without one Qt aborts the process.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

/// Of what is in the environment or can be connected to; a test puts its own in the place.
struct DisplayProbe {
    /// The value of an environment variable; empty where it is not set.
    std::function<std::string(const char* variable)> variable;
    /// Whether an X server answers under this name, such as ":0".
    std::function<bool(const std::string& display)> opensX;
    /// Whether a Wayland compositor listens at this path.
    std::function<bool(const std::string& socket)> opensWayland;

    /// The real one.
    static DisplayProbe ofThisProcess();
};

/// Why no window can be opened, in one line; nothing where one can, or where the platform chosen by
/// -platform or QT_QPA_PLATFORM needs neither X nor Wayland.
/// \param arguments of the process, its name first
std::optional<std::string> missingDisplay(const std::vector<std::string>& arguments,
                                          const DisplayProbe& probe);

/// A text that programs have left on the X server's first screen, such as the address of the
/// accessibility bus; empty where there is no such server or text.
std::string textOnXServer(const std::string& display, const std::string& property);

/// The X server that the arguments name, else the environment; may be empty.
std::string xDisplayName(const std::vector<std::string>& arguments, const DisplayProbe& probe);

} // namespace frimbolate
