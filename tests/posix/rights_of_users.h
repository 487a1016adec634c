// The rights of each kind of user on a file, computed by the rules of the system.
#pragma once

#include "posix/file_rights.h"

#include <vector>

namespace frimbolate::test {

/// The relation of a user to a file. The named group is one in the access control list.
struct UserOfFile {
    bool isOwner = false;
    bool isInGroup = false;
    bool isInNamedGroup = false;
};

/// One user, before and after the file is replaced.
struct User {
    const char* name;
    UserOfFile before;
    UserOfFile after;
};

inline unsigned rightsOf(const UserOfFile& user, const FileRights& rights, unsigned namedGroup) {
    if (user.isOwner)
        return rights.owner;
    const bool isNamed = rights.mask && user.isInNamedGroup;
    if (!user.isInGroup && !isNamed)
        return rights.other;
    return ((user.isInGroup ? rights.group : 0) | (isNamed ? namedGroup : 0)) &
           rights.mask.value_or(7U);
}

/// Every kind of user but the new owner, who wrote the file.
inline std::vector<User> usersOfFile(bool sameOwner, bool sameGroup) {
    std::vector<User> users;
    for (const bool isNamed : {true, false})
        for (const bool isInOldGroup : {true, false})
            for (const bool isInNewGroup : {true, false}) {
                if (sameGroup && isInOldGroup != isInNewGroup)
                    continue;
                const UserOfFile before{false, isInOldGroup, isNamed};
                const UserOfFile after{false, isInNewGroup, isNamed};
                users.push_back({"a user", before, after});
                auto owner = User{"the old owner", before, after};
                owner.before.isOwner = true;
                owner.after.isOwner = sameOwner;
                users.push_back(owner);
            }
    return users;
}

/// Calls with each combination of rights and of the rights that the list grants the named group.
template <typename Visit>
void forAllRights(Visit visit) {
    for (mode_t bits = 0; bits < 8 * 8 * 8; ++bits) {
        visit(rightsInMode(bits), 0U);
        for (unsigned list = 0; list < 8 * 8; ++list) {
            auto rights = rightsInMode(bits);
            rights.mask = list % 8;
            visit(rights, list / 8);
        }
    }
}

} // namespace frimbolate::test
