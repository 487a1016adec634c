// What the users of a file may do with the one that takes its place: never more than before.
#pragma once

#include <optional>
#include <string_view>
#include <sys/types.h>

namespace frimbolate {

/// Rights are sums of 4 (read), 2 (write) and 1 (execute), as in a mode.
struct FileRights {
    unsigned special = 0; ///< 04000 set-user-ID, 02000 set-group-ID, 01000 sticky
    unsigned owner = 0;
    unsigned group = 0; ///< of the owning group itself, also where a mask stands in the mode
    unsigned other = 0;
    /// There only with an access control list that names users or groups: what it leaves of their
    /// rights and of the owning group's.
    std::optional<unsigned> mask = std::nullopt;

    bool operator==(const FileRights&) const = default;
};

/// The rights in a mode without an access control list.
FileRights rightsInMode(mode_t mode);
/// The mode that shows the rights: its group bits are the mask where there is one.
mode_t modeOf(const FileRights& rights);

/// The rights of a file that takes the place of another one. Where the owner or the group is not
/// the one before, classes of users change: what a class is granted is then no more than each of
/// its possible members had.
FileRights rightsOfReplacement(FileRights before, bool sameOwner, bool sameGroup);

/// The rights where an access control list can be neither read nor set: the owner's alone.
FileRights rightsWithoutList(const FileRights& before);

/// Whether an extended attribute goes over to a file with other content. Not those that a write
/// takes away or that speak of the content, nor access control lists, which are rights.
bool isAttributeCarriedOver(std::string_view name);

} // namespace frimbolate
