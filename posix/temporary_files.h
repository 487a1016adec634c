// The temporary files of a save: their names, and the removal of those left by killed saves.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace frimbolate {

/// A unique name for each save. Independent of the target's name, which may already have the
/// longest length of the file system.
std::string temporaryName();

/// Whether a name has the form of temporaryName().
bool isTemporaryName(std::string_view name);

/// Removes what killed saves left: regular files of this user with such a name that are unchanged
/// for more than a day, longer than any save takes. Failures are not reported.
/// \param folder open for reading
void removeAbandonedFiles(int folder, std::time_t now);

} // namespace frimbolate
