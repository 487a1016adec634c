// Writes a file without a second one beside it, for a place where the system permits no other file
// than the one that the user chose: a save outside of the granted folder, inside a sandbox.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace frimbolate {

/// Replaces the content of the file itself. Before the first byte changes, a copy of the old
/// content is on the disk; it is removed once the new content is. Owner, access control list and
/// extended attributes stay, since the file stays.
///
/// This is weaker than an atomic write:
/// - A reader can meet the file half written.
/// - Where writing fails, the old content is put back. Where that fails as well, the copy stays,
/// and
///   the reason names it.
/// - A crash or power cut in between leaves the file half written and the copy in `copyFolder`,
///   under a temporary name (see temporary_files.h) that ends with "-copy"; nothing restores or
///   removes it by itself.
/// A file that does not exist yet is created, and removed again where writing fails.
/// \param path        absolute, its links resolved; not followed if it is a link after all
/// \param newFileMode mode of a file that does not exist yet; the umask applies
/// \param keptMode    the bits that the mode of an existing file may keep
/// \param copyFolder  an existing folder that this user may write to
/// \returns nothing, or why the new content was not written
std::optional<std::string> overwriteFile(const std::string& path, std::string_view content,
                                         mode_t newFileMode, mode_t keptMode,
                                         const std::string& copyFolder);

/// The user's folder for temporary files: $TMPDIR, else /tmp. Inside a sandbox that of its
/// container.
std::string temporaryFolderOfUser();

} // namespace frimbolate
