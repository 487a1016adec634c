// Replaces a file atomically: readers see either the old or the new one, also after a failure.
//
// QSaveFile is not enough here: it commits a file that a full disk has cut short.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace frimbolate {

/// Writes a temporary file beside the target, flushes it to the disk and renames it. A symbolic
/// link is followed and stays a link; its target must be a regular file or not exist yet. Another
/// user's link in a sticky world-writable folder is rejected (see symbolic_links.h).
///
/// An existing file keeps its owner and group, mode and access control list, and extended
/// attributes, as far as the system permits; what cannot be kept never widens the rights (see
/// file_metadata.h). Temporary files of killed saves are removed (see temporary_files.h).
///
/// Where the system refuses the temporary file as an operation that is not permitted (EPERM), as a
/// sandbox does outside of the granted folders, the file itself is written, with the weaker promise
/// of overwritten_file.h. A lack of write permission (EACCES) or any other failure refuses the
/// save. \param path        absolute; the folder must exist \param newFileMode mode of a file that
/// does not exist yet; the umask applies \param keptMode    the bits that the mode of an existing
/// file may keep \returns nothing, or why nothing was written; then the file is unchanged to the
/// byte, and no
///          other file was left in the folder
std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view content,
                                               mode_t newFileMode = 0644, mode_t keptMode = 07777);

} // namespace frimbolate
