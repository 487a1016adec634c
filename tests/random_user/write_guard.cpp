#include "tests/random_user/write_guard.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace frimbolate::test {

namespace {

constexpr const char* openFiles = "/proc/self/fd/"; ///< a link for each

using Path = std::array<char, PATH_MAX>;

struct Guard {
    std::string root; ///< empty until the process is confined
    std::mutex mutex;
    std::vector<std::string> refused;
};

Guard& guard() {
    static auto* one = new Guard; // also there when the last destructors remove files
    return *one;
}

bool isInside(const char* path) {
    const std::string& root = guard().root;
    return std::strncmp(path, root.c_str(), root.size()) == 0 &&
           (path[root.size()] == '/' || path[root.size()] == '\0');
}

bool refuse(const char* call, const char* path) {
    const std::lock_guard lock(guard().mutex);
    guard().refused.push_back(std::string(call) + " " + path);
    errno = EACCES;
    return false;
}

/// An absolute path, with the folder of the descriptor in front of a relative one.
bool joined(int folder, const char* path, Path& result) {
    if (path[0] == '/')
        return std::snprintf(result.data(), result.size(), "%s", path) < PATH_MAX;
    Path prefix{};
    if (folder == AT_FDCWD) {
        if (!::getcwd(prefix.data(), prefix.size()))
            return false;
    } else {
        const std::string link = openFiles + std::to_string(folder);
        if (::readlink(link.c_str(), prefix.data(), prefix.size() - 1) < 0)
            return false;
    }
    return std::snprintf(result.data(), result.size(), "%s/%s", prefix.data(), path) < PATH_MAX;
}

enum class LastLink { follow, keep };

/// Whether a call may change what the path names. Else errno is set. A path that leads nowhere is
/// let through, since the call then fails by itself.
bool mayChange(const char* call, int folder, const char* path, LastLink lastLink) {
    if (guard().root.empty() || !path)
        return true;
    Path whole{}, real{};
    if (!joined(folder, path, whole))
        return refuse(call, path);
    // An open file, which may have no name yet or no more. Its own path follows.
    if (std::strncmp(whole.data(), openFiles, std::strlen(openFiles)) == 0 &&
        ::readlink(whole.data(), real.data(), real.size() - 1) > 0) {
        whole = std::exchange(real, {});
        lastLink = LastLink::keep;
    }
    if (lastLink == LastLink::follow && ::realpath(whole.data(), real.data()))
        return isInside(real.data()) || std::strncmp(real.data(), "/dev/", 5) == 0 ||
               std::strncmp(real.data(), "/proc/", 6) == 0 || refuse(call, real.data());
    struct stat status {};
    if (lastLink == LastLink::follow && ::lstat(whole.data(), &status) == 0)
        return refuse(call, whole.data()); // a link that leads nowhere could be filled
    std::string parent = whole.data();
    while (parent.size() > 1 && parent.ends_with('/'))
        parent.pop_back();
    const std::string name = parent.substr(parent.rfind('/') + 1);
    parent.resize(std::max<std::size_t>(1, parent.rfind('/')));
    if (name == "." || name == "..")
        parent = whole.data();
    if (!::realpath(parent.c_str(), real.data()))
        return true;
    return isInside(real.data()) || refuse(call, whole.data());
}

bool mayChangeOpen(const char* call, int file) {
    return mayChange(call, AT_FDCWD, (openFiles + std::to_string(file)).c_str(), LastLink::follow);
}

int opened(int folder, const char* path, int flags, mode_t mode) {
    const bool writes = (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
    const auto lastLink = (flags & O_NOFOLLOW) != 0 ? LastLink::keep : LastLink::follow;
    if (writes && (flags & O_PATH) == 0 && !mayChange("open", folder, path, lastLink))
        return -1;
    return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

std::FILE* openedStream(const char* path, const char* mode) {
    const bool updates = std::strchr(mode, '+') != nullptr;
    int flags = updates ? O_RDWR : mode[0] == 'r' ? O_RDONLY : O_WRONLY;
    if (mode[0] != 'r')
        flags |= O_CREAT | (mode[0] == 'a' ? O_APPEND : O_TRUNC);
    flags |= std::strchr(mode, 'x') ? O_EXCL : 0;
    flags |= std::strchr(mode, 'e') ? O_CLOEXEC : 0;
    const int file = opened(AT_FDCWD, path, flags, 0666);
    return file < 0 ? nullptr : ::fdopen(file, mode);
}

/// The call of the system where the guard allows it.
template <typename... Values>
int callIf(bool isAllowed, long number, Values... values) {
    return isAllowed ? static_cast<int>(::syscall(number, values...)) : -1;
}

mode_t modeOf(int flags, va_list rest) {
    return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

} // namespace

void confineWritesTo(const std::string& folder) {
    Path real{};
    if (!::realpath(folder.c_str(), real.data()))
        std::abort();
    guard().root = real.data();
}

std::vector<std::string> refusedWrites() {
    const std::lock_guard lock(guard().mutex);
    return guard().refused;
}

} // namespace frimbolate::test

using namespace frimbolate::test;

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return opened(AT_FDCWD, path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return opened(AT_FDCWD, path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return opened(folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return opened(folder, path, flags, mode);
}
int creat(const char* path, mode_t mode) {
    return opened(AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, mode);
}
int creat64(const char* path, mode_t mode) {
    return opened(AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, mode);
}
std::FILE* fopen(const char* path, const char* mode) { return openedStream(path, mode); }
std::FILE* fopen64(const char* path, const char* mode) { return openedStream(path, mode); }

int mkdirat(int folder, const char* path, mode_t mode) noexcept {
    // Some callers make every folder of a path, to find that it exists.
    struct stat status {};
    const bool exists = ::fstatat(folder, path, &status, AT_SYMLINK_NOFOLLOW) == 0;
    return callIf(exists || mayChange("mkdir", folder, path, LastLink::keep), SYS_mkdirat, folder,
                  path, mode);
}
int mkdir(const char* path, mode_t mode) noexcept { return mkdirat(AT_FDCWD, path, mode); }
int mknod(const char* path, mode_t mode, dev_t device) noexcept {
    return callIf(mayChange("mknod", AT_FDCWD, path, LastLink::keep), SYS_mknodat, AT_FDCWD, path,
                  mode, device);
}
int mkfifo(const char* path, mode_t mode) noexcept { return mknod(path, mode | S_IFIFO, 0); }

int unlinkat(int folder, const char* path, int flags) noexcept {
    return callIf(mayChange("remove", folder, path, LastLink::keep), SYS_unlinkat, folder, path,
                  flags);
}
int unlink(const char* path) noexcept { return unlinkat(AT_FDCWD, path, 0); }
int rmdir(const char* path) noexcept { return unlinkat(AT_FDCWD, path, AT_REMOVEDIR); }
int remove(const char* path) noexcept {
    struct stat status {};
    const bool isFolder = ::lstat(path, &status) == 0 && S_ISDIR(status.st_mode);
    return isFolder ? rmdir(path) : unlink(path);
}

int renameat2(int from, const char* oldPath, int to, const char* newPath, unsigned flags) noexcept {
    return callIf(mayChange("rename", from, oldPath, LastLink::keep) &&
                      mayChange("rename", to, newPath, LastLink::keep),
                  SYS_renameat2, from, oldPath, to, newPath, flags);
}
int renameat(int from, const char* oldPath, int to, const char* newPath) noexcept {
    return renameat2(from, oldPath, to, newPath, 0);
}
int rename(const char* oldPath, const char* newPath) noexcept {
    return renameat2(AT_FDCWD, oldPath, AT_FDCWD, newPath, 0);
}

// A second name for a file outside would let it be changed from inside.
int linkat(int from, const char* oldPath, int to, const char* newPath, int flags) noexcept {
    const auto lastLink = (flags & AT_SYMLINK_FOLLOW) != 0 ? LastLink::follow : LastLink::keep;
    return callIf(mayChange("link", from, oldPath, lastLink) &&
                      mayChange("link", to, newPath, LastLink::keep),
                  SYS_linkat, from, oldPath, to, newPath, flags);
}
int link(const char* oldPath, const char* newPath) noexcept {
    return linkat(AT_FDCWD, oldPath, AT_FDCWD, newPath, 0);
}
int symlinkat(const char* target, int folder, const char* path) noexcept {
    return callIf(mayChange("symlink", folder, path, LastLink::keep), SYS_symlinkat, target, folder,
                  path);
}
int symlink(const char* target, const char* path) noexcept {
    return symlinkat(target, AT_FDCWD, path);
}

int truncate(const char* path, off_t size) noexcept {
    return callIf(mayChange("truncate", AT_FDCWD, path, LastLink::follow), SYS_truncate, path,
                  size);
}
int truncate64(const char* path, off64_t size) noexcept {
    return callIf(mayChange("truncate", AT_FDCWD, path, LastLink::follow), SYS_truncate, path,
                  size);
}

int chmod(const char* path, mode_t mode) noexcept {
    return callIf(mayChange("chmod", AT_FDCWD, path, LastLink::follow), SYS_chmod, path, mode);
}
int fchmodat(int folder, const char* path, mode_t mode, int) noexcept {
    return callIf(mayChange("chmod", folder, path, LastLink::follow), SYS_fchmodat, folder, path,
                  mode);
}
int fchmod(int file, mode_t mode) noexcept {
    return callIf(mayChangeOpen("chmod", file), SYS_fchmod, file, mode);
}
int fchown(int file, uid_t user, gid_t group) noexcept {
    return callIf(mayChangeOpen("chown", file), SYS_fchown, file, user, group);
}
int fchownat(int folder, const char* path, uid_t user, gid_t group, int flags) noexcept {
    const auto lastLink = (flags & AT_SYMLINK_NOFOLLOW) != 0 ? LastLink::keep : LastLink::follow;
    return callIf(mayChange("chown", folder, path, lastLink), SYS_fchownat, folder, path, user,
                  group, flags);
}
int chown(const char* path, uid_t user, gid_t group) noexcept {
    return fchownat(AT_FDCWD, path, user, group, 0);
}
int lchown(const char* path, uid_t user, gid_t group) noexcept {
    return fchownat(AT_FDCWD, path, user, group, AT_SYMLINK_NOFOLLOW);
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
    return callIf(mayChangeOpen("setxattr", file), SYS_fsetxattr, file, name, value, size, flags);
}
int setxattr(const char* path, const char* name, const void* value, size_t size,
             int flags) noexcept {
    return callIf(mayChange("setxattr", AT_FDCWD, path, LastLink::follow), SYS_setxattr, path, name,
                  value, size, flags);
}
int utimensat(int folder, const char* path, const struct timespec* times, int flags) noexcept {
    const auto lastLink = (flags & AT_SYMLINK_NOFOLLOW) != 0 ? LastLink::keep : LastLink::follow;
    return callIf(mayChange("utimens", folder, path, lastLink), SYS_utimensat, folder, path, times,
                  flags);
}

int bind(int socket, const struct sockaddr* address, socklen_t size) noexcept {
    const auto* local = reinterpret_cast<const sockaddr_un*>(address);
    const bool isFile = address->sa_family == AF_UNIX && local->sun_path[0] != '\0';
    return callIf(!isFile || mayChange("bind", AT_FDCWD, local->sun_path, LastLink::keep), SYS_bind,
                  socket, address, size);
}
}
