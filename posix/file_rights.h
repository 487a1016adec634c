// Computes the rights of a file that replaces another: no user gets more than before.
#pragma once

#include <optional>
#include <string_view>
#include <sys/types.h>

namespace frimbolate {

/// Rights are sums of 4 (read), 2 (write) and 1 (execute), as in a mode.
struct FileRights {
    unsigned special = 0; ///< 04000 set-user-ID, 02000 set-group-ID, 01000 sticky
    unsigned owner = 0;
    unsigned group = 0; ///< of the owning group itself, also where the mode shows the mask
    unsigned other = 0;
    /// Set only with an access control list that names users or groups: the most that they and the
    /// owning group may do.
    std::optional<unsigned> mask = std::nullopt;

    bool operator==(const FileRights&) const = default;
};

/// The rights in a mode without an access control list.
FileRights rightsInMode(mode_t mode);
/// The mode of the rights. Its group bits are the mask where there is one.
mode_t modeOf(const FileRights& rights);

/// The rights of a file that replaces another one. With another owner or group the members of each
/// class change: a class then gets no more than each of its possible members had.
FileRights rightsOfReplacement(FileRights before, bool sameOwner, bool sameGroup);

/// The rights where an access control list cannot be read or set: those of the owner alone.
FileRights rightsWithoutList(const FileRights& before);

/// Whether an extended attribute is copied to a file with other content. False for those that a
/// write removes or that describe the content, and for access control lists, which are rights.
bool isAttributeCarriedOver(std::string_view name);

} // namespace frimbolate
