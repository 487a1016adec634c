// The path of an application bundle, derived from that of its executable.
#pragma once

#include "core/conversions.h"

#include <string>
#include <string_view>

namespace frimbolate {

/// Separates the path of a bundle from the name of its executable.
inline constexpr std::string_view executableFolder = "/Contents/MacOS/";

/// The path of the bundle that contains an executable; any other path unchanged. The view refers
/// to the argument's characters.
inline std::string_view bundlePath(std::string_view executablePath) {
    return beforeFirst(executablePath, executableFolder);
}

} // namespace frimbolate
