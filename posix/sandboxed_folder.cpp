#include "posix/sandboxed_folder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace frimbolate {

bool modePermitsWriting(const FolderOwnership& folder, uid_t user, std::span<const gid_t> groups) {
    if (user == 0)
        return true;
    if (user == folder.owner)
        return (folder.mode & S_IWUSR) != 0;
    if (std::ranges::find(groups, folder.group) != groups.end())
        return (folder.mode & S_IWGRP) != 0;
    return (folder.mode & S_IWOTH) != 0;
}

#ifdef __APPLE__
bool isRefusedBySandboxAlone(const char* path, int error) {
    struct stat status {};
    if (error != EPERM || ::stat(path, &status) != 0 || !S_ISDIR(status.st_mode) ||
        (status.st_flags & (UF_IMMUTABLE | SF_IMMUTABLE)) != 0)
        return false;
    std::array<gid_t, 64> groups{};
    const int count = ::getgroups(static_cast<int>(groups.size() - 1), groups.data());
    const std::size_t used = count < 0 ? 0 : static_cast<std::size_t>(count);
    groups[used] = ::getegid();
    return modePermitsWriting({status.st_mode, status.st_uid, status.st_gid}, ::geteuid(),
                              {groups.data(), used + 1});
}
#else
bool isRefusedBySandboxAlone(const char*, int) { return false; }
#endif

} // namespace frimbolate
