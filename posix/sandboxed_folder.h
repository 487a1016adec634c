// Whether a folder outside of a sandbox's grants may still take the file that the user chose.
#pragma once

#include <span>
#include <sys/types.h>

namespace frimbolate {

struct FolderOwnership {
    mode_t mode;
    uid_t owner;
    gid_t group;
};

/// Whether the file system's rights let a user write to the folder. Access control lists are left
/// out: they are known only to the system.
bool modePermitsWriting(const FolderOwnership& folder, uid_t user, std::span<const gid_t> groups);

/// Whether writing to the folder is refused (EPERM) by the sandbox alone, not by the folder's mode
/// or flags. In such a folder a save panel permits the program the file that the user chose, and
/// overwriteFile() needs no other. False on systems without such a sandbox.
/// \param path  of an existing folder; false for anything else
/// \param error the errno of access() for writing
bool isRefusedBySandboxAlone(const char* path, int error);

} // namespace frimbolate
