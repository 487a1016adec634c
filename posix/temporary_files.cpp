#include "posix/temporary_files.h"

#include "posix/file_descriptor.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace frimbolate {

namespace {

constexpr std::string_view prefix = ".frimbolate-";
constexpr std::size_t digits = 16;
constexpr std::time_t day = std::time_t{24} * 60 * 60;

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// Removes the file of a killed save. Its lock is held meanwhile: a save that created the file just
/// now and has no lock yet then finds out.
void removeIfAbandoned(int folder, const char* name, std::time_t now) {
    struct stat status {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid())
        return;
    // O_NONBLOCK: another program may have put a pipe in its place.
    const FileDescriptor file(
        ::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    const auto lock = file ? lockTemporaryFile(file.number()) : TemporaryLock::unavailable;
    if (lock == TemporaryLock::held ||
        (lock == TemporaryLock::unavailable && status.st_mtime < now - day))
        ::unlinkat(folder, name, 0);
}

} // namespace

std::string temporaryName() {
    std::uint64_t number = 0;
    if (::getentropy(&number, sizeof number) != 0)
        number = static_cast<std::uint64_t>(::getpid());
    std::array<char, digits + 1> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number));
    return std::string(prefix) + text.data();
}

bool isTemporaryName(std::string_view name) {
    return name.size() == prefix.size() + digits && name.starts_with(prefix) &&
           name.find_first_not_of("0123456789abcdef", prefix.size()) == std::string_view::npos;
}

TemporaryLock lockTemporaryFile(int file) {
    int result = -1;
    do
        result = ::flock(file, LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    if (result == 0)
        return TemporaryLock::held;
    return errno == EWOULDBLOCK ? TemporaryLock::ofAnother : TemporaryLock::unavailable;
}

void removeAbandonedFiles(int folder, std::time_t now) {
    // Opened again: copies of a descriptor share the position that reading moves.
    const int copy = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, CloseFolder> entries(copy < 0 ? nullptr : ::fdopendir(copy));
    if (!entries) {
        if (copy >= 0)
            ::close(copy);
        return;
    }
    while (const dirent* entry = ::readdir(entries.get()))
        if (isTemporaryName(entry->d_name))
            removeIfAbandoned(folder, entry->d_name, now);
}

} // namespace frimbolate
