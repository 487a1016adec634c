// The hint about a typed path that launchd would not find.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// Why launchd would not find the file or folder, with the path to write instead where it is known;
/// empty where the path needs no hint.
/// \param home the user's home folder; may be empty
std::string pathHint(std::string_view path, std::string_view home);

} // namespace frimbolate
