// Where an application bundle keeps its executable.
#pragma once

#include "core/conversions.h"

#include <string>
#include <string_view>

namespace frimbolate {

/// Between the path of a bundle and the name of its executable.
inline constexpr std::string_view executableFolder = "/Contents/MacOS/";

/// The path of the bundle that an executable lies in; any other path as it is.
inline std::string_view bundlePath(std::string_view executablePath) {
    return beforeFirst(executablePath, executableFolder);
}

} // namespace frimbolate
