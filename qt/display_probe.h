// Checks that a window can be opened. Uses no Qt, since Qt aborts the process without a display.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

/// The access to environment and displays. Replaced by tests.
struct DisplayProbe {
    /// The value of an environment variable; empty where it is not set.
    std::function<std::string(const char* variable)> variable;
    /// Whether an X server of a name such as ":0" answers.
    std::function<bool(const std::string& display)> opensX;
    /// Whether a Wayland compositor listens on the socket of a path.
    std::function<bool(const std::string& socket)> opensWayland;

    /// The probe of the real environment.
    static DisplayProbe ofThisProcess();
};

/// Why no window can be opened, in one line. Nothing where it can, or where the platform of
/// -platform or QT_QPA_PLATFORM needs neither X nor Wayland.
/// \param arguments of the process, starting with its name
std::optional<std::string> missingDisplay(const std::vector<std::string>& arguments,
                                          const DisplayProbe& probe);

/// A text property of the root window on the X server's first screen, such as the address of the
/// accessibility bus; empty where there is no such server or property.
std::string textOnXServer(const std::string& display, const std::string& property);

/// The name of the X server from the arguments, else from the environment; may be empty.
std::string xDisplayName(const std::vector<std::string>& arguments, const DisplayProbe& probe);

} // namespace frimbolate
