// The user's home folder as the user database has it.
#pragma once

#include <string>

namespace frimbolate {

/// The home folder of this process' user; empty where the database has none. Unlike $HOME, which
/// is a container inside the sandbox of macOS, it is the folder that "~" means to the user.
std::string homeFolderInUserDatabase();

} // namespace frimbolate
