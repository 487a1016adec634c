// The names under which a save writes beside its target, and what killed saves left behind.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace frimbolate {

/// A name of its own for each save. Short whatever the target is called, since that may fill all
/// that the file system allows.
std::string temporaryName();

/// Whether temporaryName() makes such names.
bool isTemporaryName(std::string_view name);

/// Removes what killed saves left: regular files of this user that bear such a name and have not
/// changed for more than a day, which no save takes. Everything else stays; failures are not told.
/// \param folder open for reading
void removeAbandonedFiles(int folder, std::time_t now);

} // namespace frimbolate
