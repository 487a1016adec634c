#include "posix/file_metadata.h"

#include "posix/file_rights.h"

#include <array>
#include <cerrno>
#include <memory>
#include <optional>
#include <string>
#include <sys/acl.h>
#include <type_traits>
#include <unistd.h>
#ifdef __APPLE__
#include <copyfile.h>
#else
#include <acl/libacl.h>
#include <sys/xattr.h>
#endif

namespace frimbolate {

namespace {

struct FreeList {
    void operator()(acl_t list) const { ::acl_free(list); }
};
using AccessList = std::unique_ptr<std::remove_pointer_t<acl_t>, FreeList>;

/// The rights where a list can be neither read nor set; nothing after a fault of the system.
std::optional<FileRights> rightsUnlessFault(const FileRights& before) {
    return isFaultOfSystem(errno) ? std::nullopt : std::optional(rightsWithoutList(before));
}

#ifdef __APPLE__

bool copyAttributes(int original, int file) {
    return ::fcopyfile(original, file, nullptr, COPYFILE_XATTR) == 0 || !isFaultOfSystem(errno);
}

/// On macOS the list is separate from the mode and names users and groups, independent of the
/// owner.
std::optional<FileRights> copyRights(int original, const FileRights& before, int file,
                                     bool sameOwner, bool sameGroup) {
    AccessList list(::acl_get_fd_np(original, ACL_TYPE_EXTENDED));
    // An empty list removes the entries inherited from the folder.
    if (!list && errno == ENOENT)
        list.reset(::acl_init(0));
    if (list ? ::acl_set_fd_np(file, list.get(), ACL_TYPE_EXTENDED) != 0 : errno != ENOTSUP)
        return rightsUnlessFault(before);
    return rightsOfReplacement(before, sameOwner, sameGroup);
}

#else

constexpr std::size_t maximumAttributeBytes = 65536; // of a value, and of all names, on Linux

bool copyAttributes(int original, int file) {
    std::string names(maximumAttributeBytes, '\0');
    std::string value(maximumAttributeBytes, '\0');
    const ssize_t size = ::flistxattr(original, names.data(), names.size());
    if (size < 0)
        return !isFaultOfSystem(errno);
    names.resize(static_cast<std::size_t>(size));
    for (std::size_t start = 0; start < names.size();) {
        const char* name = names.c_str() + start;
        start += std::char_traits<char>::length(name) + 1;
        if (!isAttributeCarriedOver(name))
            continue;
        const ssize_t length = ::fgetxattr(original, name, value.data(), value.size());
        const bool isCopied = length >= 0 && ::fsetxattr(file, name, value.data(),
                                                         static_cast<std::size_t>(length), 0) == 0;
        // Not every attribute may be read and set.
        if (!isCopied && isFaultOfSystem(errno))
            return false;
    }
    return true;
}

/// The rights of a class of users that an entry sets; nullptr for named users and groups.
unsigned* rightsOfEntry(acl_entry_t entry, FileRights& rights) {
    acl_tag_t tag = ACL_UNDEFINED_TAG;
    ::acl_get_tag_type(entry, &tag);
    switch (tag) {
    case ACL_USER_OBJ:
        return &rights.owner;
    case ACL_GROUP_OBJ:
        return &rights.group;
    case ACL_OTHER:
        return &rights.other;
    case ACL_MASK:
        return &rights.mask.emplace(rights.mask.value_or(0));
    default:
        return nullptr;
    }
}

constexpr std::array<acl_perm_t, 3> permissions = {ACL_READ, ACL_WRITE, ACL_EXECUTE};
static_assert(ACL_READ == 4 && ACL_WRITE == 2 && ACL_EXECUTE == 1);

/// Calls a function with the permissions of each entry and the rights that the entry sets.
template <typename Visit>
void visitEntries(acl_t list, FileRights& rights, Visit visit) {
    acl_entry_t entry{};
    for (int found = ::acl_get_entry(list, ACL_FIRST_ENTRY, &entry); found == 1;
         found = ::acl_get_entry(list, ACL_NEXT_ENTRY, &entry)) {
        acl_permset_t set{};
        unsigned* bits = rightsOfEntry(entry, rights);
        if (bits && ::acl_get_permset(entry, &set) == 0)
            visit(set, *bits);
    }
}

/// Gives the new file the list of the original, narrowed where owner or group differ. A list
/// without named users and groups is set, too: it removes the entries inherited from the folder.
std::optional<FileRights> copyRights(int original, const FileRights& before, int file,
                                     bool sameOwner, bool sameGroup) {
    const AccessList list(::acl_get_fd(original));
    if (!list)
        return errno == ENOTSUP ? rightsOfReplacement(before, sameOwner, sameGroup)
                                : rightsUnlessFault(before);
    FileRights rights = before;
    visitEntries(list.get(), rights, [](acl_permset_t set, unsigned& bits) {
        bits = 0;
        for (const acl_perm_t permission : permissions)
            if (::acl_get_perm(set, permission) == 1)
                bits |= permission;
    });
    rights = rightsOfReplacement(rights, sameOwner, sameGroup);
    visitEntries(list.get(), rights, [](acl_permset_t set, unsigned& bits) {
        ::acl_clear_perms(set);
        for (const acl_perm_t permission : permissions)
            if (bits & permission)
                ::acl_add_perm(set, permission);
    });
    return ::acl_set_fd(file, list.get()) == 0 ? rights : rightsUnlessFault(before);
}

#endif

} // namespace

bool isFaultOfSystem(int error) {
    switch (error) {
    case EACCES:
    case EPERM:
    case EINVAL: // also a user that this system cannot represent
    case ENOENT:
    case ELOOP:
    case ENXIO:
    case ENOTSUP:
    case ENOSYS:
    case E2BIG:
    case ERANGE:
#ifdef ENODATA
    case ENODATA:
#endif
        return false;
    default:
        return true;
    }
}

bool copyMetadata(int original, const struct stat& status, int file, mode_t kept) {
    // The owner first: changing it clears bits of the mode.
    if (::fchown(file, status.st_uid, status.st_gid) != 0 &&
        (isFaultOfSystem(errno) ||
         (::fchown(file, uid_t(-1), status.st_gid) != 0 && isFaultOfSystem(errno))))
        return false;
    struct stat now {};
    if (::fstat(file, &now) != 0)
        return false;
    const FileRights before = rightsInMode(status.st_mode);
    std::optional<FileRights> after = rightsWithoutList(before);
    if (original >= 0) {
        // Before the mode, which may deny writing to the owner.
        if (!copyAttributes(original, file))
            return false;
        after = copyRights(original, before, file, now.st_uid == status.st_uid,
                           now.st_gid == status.st_gid);
    }
    return after && ::fchmod(file, modeOf(*after) & kept) == 0;
}

} // namespace frimbolate
