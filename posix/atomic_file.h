// Replaces a file so that whoever looks, and whatever fails, finds either the old or the new one.
//
// QSaveFile is not enough here: it commits a file that a full disk has cut short.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace frimbolate {

/// Writes beside the file, flushes to the disk and moves into place. A symbolic link is followed,
/// so that a link stays one; its target must be a regular file or not exist yet. Another user's
/// link in a sticky folder that everybody may write to is refused (see symbolic_links.h).
///
/// An existing file keeps, as far as the system lets us, its owner and group, its mode and access
/// control list, and its extended attributes; what does not go over never widens the rights (see
/// file_metadata.h). What a killed save left in the folder is removed (see temporary_files.h).
/// \param path        absolute; the folder must exist
/// \param newFileMode of a file that does not exist yet, less what the umask takes away
/// \returns nothing, or why nothing was written; then the file is byte for byte as it was, and
///          nothing else was left in the folder
std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view content,
                                               mode_t newFileMode = 0644);

} // namespace frimbolate
