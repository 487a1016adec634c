#include "posix/user_socket_folder.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace frimbolate {

namespace {

bool isOwnFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid();
}

/// Does not follow a symbolic link.
bool isPrivateFolder(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & 077U) == 0;
}

bool makePrivateFolder(const std::string& path) {
    return (::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) && isPrivateFolder(path);
}

} // namespace

std::string userSocketFolder(const std::string& runtime, const std::string& temporary,
                             std::size_t longestName) {
    const auto isUsable = [&](const std::string& folder) {
        // The whole path of a socket has about a hundred bytes, its slash and final NUL included.
        return folder.starts_with('/') &&
               folder.size() + 1 + longestName < sizeof sockaddr_un::sun_path &&
               makePrivateFolder(folder);
    };
    if (isOwnFolder(runtime))
        if (std::string folder = runtime + "/frimbolate"; isUsable(folder))
            return folder;
    if (temporary.empty())
        return {}; // an empty path would place it in the root folder
    std::string folder = temporary + "/frimbolate-" + std::to_string(::geteuid());
    return isUsable(folder) ? folder : std::string();
}

} // namespace frimbolate
