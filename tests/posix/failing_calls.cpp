#include "tests/posix/failing_calls.h"

#include "posix/temporary_files.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/acl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool refusesCreation = false;
std::string refusedFolder;
int flushes = 0, firstFailing = 0, lastFailing = 0;
int listError = 0;

mode_t modeArgument(int flags, va_list arguments) {
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

long openFile(int folder, const char* path, int flags, mode_t mode) {
    if (!refusedFolder.empty() && (path == refusedFolder || path == refusedFolder + '/')) {
        errno = EPERM;
        return -1;
    }
    return ::syscall(SYS_openat, folder, path, flags, mode);
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return static_cast<int>(openFile(AT_FDCWD, path, flags, mode));
}

int openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    if (refusesCreation && (flags & O_CREAT) != 0 && frimbolate::isTemporaryName(path)) {
        errno = EPERM;
        return -1;
    }
    return static_cast<int>(openFile(folder, path, flags, mode));
}

int fsync(int file) {
    if (firstFailing != 0) {
        ++flushes;
        if (flushes >= firstFailing && flushes <= lastFailing) {
            errno = EIO;
            return -1;
        }
    }
    return static_cast<int>(::syscall(SYS_fsync, file));
}

acl_t acl_get_fd(int file) {
    if (listError != 0) {
        errno = listError;
        return nullptr;
    }
    static const auto next = reinterpret_cast<acl_t (*)(int)>(::dlsym(RTLD_NEXT, "acl_get_fd"));
    return next(file);
}
}

namespace frimbolate::test {

RefusedCreation::RefusedCreation() { refusesCreation = true; }
RefusedCreation::~RefusedCreation() { refusesCreation = false; }

RefusedFolder::RefusedFolder(const std::string& folder) { refusedFolder = folder; }
RefusedFolder::~RefusedFolder() { refusedFolder.clear(); }

FailingFlush::FailingFlush(int first, int last) {
    flushes = 0;
    firstFailing = first;
    lastFailing = last;
}
FailingFlush::~FailingFlush() { firstFailing = 0; }

UnreadableAccessLists::UnreadableAccessLists(int error) { listError = error; }
UnreadableAccessLists::~UnreadableAccessLists() { listError = 0; }

} // namespace frimbolate::test
