#include "posix/file_rights.h"

#include <algorithm>
#include <array>

namespace frimbolate {

FileRights rightsInMode(mode_t mode) {
    return {.special = mode & 07000U,
            .owner = mode >> 6 & 7U,
            .group = mode >> 3 & 7U,
            .other = mode & 7U};
}

mode_t modeOf(const FileRights& rights) {
    // Narrower than unsigned on macOS.
    return static_cast<mode_t>(rights.special | rights.owner << 6 |
                               rights.mask.value_or(rights.group) << 3 | rights.other);
}

FileRights rightsOfReplacement(FileRights before, bool sameOwner, bool sameGroup) {
    FileRights after = before;
    // Another user's content must not run under the rights of the owner or group.
    if (!sameOwner || !sameGroup)
        after.special = 0;
    if (!sameGroup) {
        // Members of the new group were others, or named by the list, possibly without rights.
        after.group = before.mask ? 0 : before.group & before.other;
        // Members of the old group are others now.
        after.other &= before.group & before.mask.value_or(7U);
    }
    if (!sameOwner) {
        // The old owner now belongs to any of the other classes.
        after.group &= before.owner;
        after.other &= before.owner;
        if (after.mask)
            *after.mask &= before.owner;
    }
    return after;
}

FileRights rightsWithoutList(const FileRights& before) { return {.owner = before.owner}; }

bool isAttributeCarriedOver(std::string_view name) {
    constexpr std::array<std::string_view, 5> excepted = {
        "system.", "security.capability", "security.ima", "security.evm", "trusted.overlay."};
    return std::none_of(excepted.begin(), excepted.end(),
                        [&](std::string_view start) { return name.starts_with(start); });
}

} // namespace frimbolate
