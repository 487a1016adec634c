// Resolves the links at the end of a path, with the limits of the kernel.
#pragma once

#include <string>
#include <sys/types.h>

namespace frimbolate {

struct PathParts {
    std::string folder; ///< with a slash at the end; empty for a bare name
    std::string name;
};

PathParts splitPath(const std::string& path);

/// The owners that decide whether a link may be followed.
struct LinkContext {
    uid_t follower = 0;
    uid_t linkOwner = 0;
    uid_t folderOwner = 0;
    mode_t folderMode = 0; ///< of the folder that holds the link
};

/// In a sticky world-writable folder, such as /tmp, only a link of the follower or of the folder's
/// owner may be followed. The rule of fs.protected_symlinks in Linux, also where that is off.
bool mayFollowLink(const LinkContext& context);

/// Exactly one of the two members is set.
struct ResolvedPath {
    PathParts place;             ///< at the time of the check no link, or no item at all
    std::string rejectionReason; ///< a clause that says why the path was not resolved
};

ResolvedPath resolveLinks(std::string path);

} // namespace frimbolate
