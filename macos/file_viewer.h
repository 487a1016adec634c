// The Finder.
#pragma once

#include <string>

namespace frimbolate {

/// Selects a file in a window of the Finder. No effect for a path that is not valid UTF-8.
void showInFinder(const std::string& path);

} // namespace frimbolate
