// The folder for the sockets by which the instances of one user find each other.
#pragma once

#include <cstddef>
#include <string>

namespace frimbolate {

/// A folder that only this user can enter, created if missing: "frimbolate" in the runtime folder,
/// or "frimbolate-<user id>" in the folder for temporary files if the user has no runtime folder.
/// An existing item that is no folder, belongs to another user, is open to others or is a symbolic
/// link is neither used nor changed. Empty where no folder is available.
/// \param runtime value of XDG_RUNTIME_DIR; may be empty or wrong
/// \param longestName size in bytes of the longest socket name in the folder
std::string userSocketFolder(const std::string& runtime, const std::string& temporary,
                             std::size_t longestName);

} // namespace frimbolate
