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

enum class TemporaryLock {
    held,
    ofAnother,  ///< another process saves the file or removes it
    unavailable ///< the file system has no locks, or an error
};

/// Locks an open temporary file without waiting. A save holds the lock until its file has the final
/// name, so a file without one was left by a killed save: the system releases its locks. The lock
/// lasts until every duplicate of the descriptor is closed.
TemporaryLock lockTemporaryFile(int file);

/// Removes what killed saves left: regular files of this user with such a name that no save has
/// locked. Where a file cannot be opened or locked, it must be unchanged for more than a day,
/// longer than any save takes. Failures are not reported. \param folder open for reading
void removeAbandonedFiles(int folder, std::time_t now);

} // namespace frimbolate
