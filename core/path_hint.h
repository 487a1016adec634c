// What is to be said of a path as it is typed, before launchd takes it as it stands.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// Why launchd would not find the file or folder, with the path to write instead where that is
/// known; empty where nothing is to be said.
/// \param home the user's home folder; may be empty
std::string pathHint(std::string_view path, std::string_view home);

} // namespace frimbolate
