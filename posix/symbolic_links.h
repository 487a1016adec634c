// Resolves the links at the end of a path by hand, no further than the kernel would go.
#pragma once

#include <string>
#include <sys/types.h>

namespace frimbolate {

struct PathParts {
    std::string folder; ///< with its slash at the end
    std::string name;
};

PathParts splitPath(const std::string& path);

/// Who meets whose link where.
struct LinkContext {
    uid_t follower = 0;
    uid_t linkOwner = 0;
    uid_t folderOwner = 0;
    mode_t folderMode = 0; ///< of the folder that holds the link
};

/// In a sticky folder that everybody may write to, such as /tmp, a link leads only its own owner
/// and those who trust the folder's owner, who made it: as under Linux's fs.protected_symlinks,
/// and here also where that is switched off.
bool mayFollowLink(const LinkContext& context);

/// Exactly one of the two says something.
struct ResolvedPath {
    PathParts place;             ///< no link, or nothing yet, when it was looked at
    std::string rejectionReason; ///< why the path is not resolved; a clause
};

ResolvedPath resolveLinks(std::string path);

} // namespace frimbolate
