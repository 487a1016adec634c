// The folder in which the instances of one user find each other. Knows no Qt.
#pragma once

#include <cstddef>
#include <string>

namespace frimbolate {

/// A folder that only this user can enter, made where it is missing: "frimbolate" in the runtime
/// folder, or "frimbolate-<user id>" in the folder for temporary files where there is no runtime
/// folder of this user's own. What is in the way, belongs to another user, is open to others or is
/// a symbolic link is never used, nor changed. Empty where no folder can be had.
/// \param runtime what XDG_RUNTIME_DIR says; may be empty or wrong
/// \param longestName bytes in the longest name that a socket in the folder is to have
std::string userSocketFolder(const std::string& runtime, const std::string& temporary,
                             std::size_t longestName);

} // namespace frimbolate
