// The functions of the C library that touch files, as the program, libacl, Qt and the C++ library
// call them: each counts itself and may fail.
#include "tests/faults/fault_injection.h"

#include <cstdarg>
#include <cstdio>
#include <dirent.h>
#include <linux/stat.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/xattr.h>

using namespace frimbolate::test;

namespace {

constexpr bool wholly = false, byBytes = true;

FaultKind counted(const char* name, Subject subject, Subject other = {}) {
    return countCall(name, subject, other, wholly);
}

mode_t modeArgument(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

bool changes(int flags) { return (flags & O_ACCMODE) != O_RDONLY || (flags & O_TRUNC) != 0; }

int refused() {
    errno = EPERM;
    return -1;
}

template <typename Open>
int opened(const char* name, Subject subject, int flags, Open open) {
    if ((changes(flags) && isGuarded(subject)) ||
        ((flags & O_CREAT) != 0 && subject.folder != AT_FDCWD && isRefusedCreation(subject.path)))
        return refused();
    return performed(counted(name, subject), -1, open, [](int file) {
        static const auto next = nextFunction<decltype(::close)>("close");
        next(file);
    });
}

template <typename Act>
int changed(const char* name, Subject subject, Act act) {
    if (isGuarded(subject))
        return refused();
    return performed(counted(name, subject), -1, act);
}

template <typename Act>
int moved(const char* name, Subject from, Subject to, Act act) {
    if (isGuarded(from) || isGuarded(to))
        return refused();
    return performed(counted(name, from, to), -1, act);
}

template <typename Act>
ssize_t looked(const char* name, Subject subject, Act act) {
    return performed(counted(name, subject), ssize_t{-1}, act);
}

template <typename Act>
ssize_t moving(const char* name, int file, std::size_t size, Act act) {
    return transferred(countCall(name, of(file), {}, byBytes), size, act);
}

} // namespace

// The next function of this name, of the type that the headers declare.
#define NEXT(name) static const auto next = nextFunction<decltype(::name)>(#name)

extern "C" {

// Opening and closing

#define DEFINE_OPEN(name)                                                                          \
    int name(const char* path, int flags, ...) {                                                   \
        NEXT(name);                                                                                \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeArgument(flags, arguments);                                        \
        va_end(arguments);                                                                         \
        return opened("open", at(path), flags, [&] { return next(path, flags, mode); });           \
    }
DEFINE_OPEN(open)
DEFINE_OPEN(open64)

#define DEFINE_OPENAT(name)                                                                        \
    int name(int folder, const char* path, int flags, ...) {                                       \
        NEXT(name);                                                                                \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeArgument(flags, arguments);                                        \
        va_end(arguments);                                                                         \
        return opened("openat", at(folder, path), flags,                                           \
                      [&] { return next(folder, path, flags, mode); });                            \
    }
DEFINE_OPENAT(openat)
DEFINE_OPENAT(openat64)

int creat(const char* path, mode_t mode) { return open(path, O_CREAT | O_WRONLY | O_TRUNC, mode); }
int creat64(const char* path, mode_t mode) { return creat(path, mode); }

// What the headers call instead where they check the sizes of buffers
int __open_2(const char* path, int flags) { return open(path, flags); }
int __open64_2(const char* path, int flags) { return open64(path, flags); }
int __openat_2(int folder, const char* path, int flags) { return openat(folder, path, flags); }
int __openat64_2(int folder, const char* path, int flags) { return openat64(folder, path, flags); }
ssize_t __read_chk(int file, void* to, std::size_t size, std::size_t) {
    return read(file, to, size);
}
ssize_t __pread_chk(int file, void* to, std::size_t size, off_t from, std::size_t) {
    return pread(file, to, size, from);
}
ssize_t __pread64_chk(int file, void* to, std::size_t size, off64_t from, std::size_t) {
    return pread64(file, to, size, from);
}
ssize_t __readlink_chk(const char* path, char* to, std::size_t size, std::size_t) {
    return readlink(path, to, size);
}
ssize_t __readlinkat_chk(int folder, const char* path, char* to, std::size_t size, std::size_t) {
    return readlinkat(folder, path, to, size);
}

int close(int file) {
    NEXT(close);
    const FaultKind kind = counted("close", of(file));
    // Linux closes the file whatever error it tells.
    return performed(errorOf(kind) ? FaultKind::none : kind, -1, [&] {
        const int result = next(file);
        if (const int error = errorOf(kind)) {
            errno = error;
            return -1;
        }
        return result;
    });
}

#define DEFINE_FOPEN(name)                                                                         \
    std::FILE* name(const char* path, const char* mode) {                                          \
        NEXT(name);                                                                                \
        return performed(                                                                          \
            counted("fopen", at(path)), static_cast<std::FILE*>(nullptr),                          \
            [&] { return next(path, mode); }, [](std::FILE* file) { std::fclose(file); });         \
    }
DEFINE_FOPEN(fopen)
DEFINE_FOPEN(fopen64)

// Bytes

ssize_t read(int file, void* to, std::size_t size) {
    NEXT(read);
    return moving("read", file, size, [&](std::size_t part) { return next(file, to, part); });
}
ssize_t write(int file, const void* from, std::size_t size) {
    NEXT(write);
    return moving("write", file, size, [&](std::size_t part) { return next(file, from, part); });
}

#define DEFINE_TRANSFER_AT(name, shown, buffer)                                                    \
    ssize_t name(int file, buffer bytes, std::size_t size, off_t place) {                          \
        NEXT(name);                                                                                \
        return moving(shown, file, size,                                                           \
                      [&](std::size_t part) { return next(file, bytes, part, place); });           \
    }
DEFINE_TRANSFER_AT(pread, "pread", void*)
DEFINE_TRANSFER_AT(pread64, "pread", void*)
DEFINE_TRANSFER_AT(pwrite, "pwrite", const void*)
DEFINE_TRANSFER_AT(pwrite64, "pwrite", const void*)

ssize_t writev(int file, const iovec* parts, int count) {
    NEXT(writev);
    return moving("writev", file, static_cast<std::size_t>(count),
                  [&](std::size_t part) { return next(file, parts, static_cast<int>(part)); });
}

int fsync(int file) {
    NEXT(fsync);
    return performed(counted("fsync", of(file)), -1,
                     [&] { return skipsFlushes() ? 0 : next(file); });
}
int fdatasync(int file) {
    NEXT(fdatasync);
    return performed(counted("fdatasync", of(file)), -1,
                     [&] { return skipsFlushes() ? 0 : next(file); });
}

#define DEFINE_SEEK(name)                                                                          \
    off_t name(int file, off_t place, int from) noexcept {                                         \
        NEXT(name);                                                                                \
        return performed(counted("lseek", of(file)), off_t{-1},                                    \
                         [&] { return next(file, place, from); });                                 \
    }
DEFINE_SEEK(lseek)
DEFINE_SEEK(lseek64)

#define DEFINE_FTRUNCATE(name)                                                                     \
    int name(int file, off_t size) noexcept {                                                      \
        NEXT(name);                                                                                \
        return changed("ftruncate", of(file), [&] { return next(file, size); });                   \
    }
DEFINE_FTRUNCATE(ftruncate)
DEFINE_FTRUNCATE(ftruncate64)

// Names

int rename(const char* from, const char* to) noexcept {
    NEXT(rename);
    return moved("rename", at(from), at(to), [&] { return next(from, to); });
}
int renameat(int folder, const char* from, int newFolder, const char* to) noexcept {
    NEXT(renameat);
    return moved("renameat", at(folder, from), at(newFolder, to),
                 [&] { return next(folder, from, newFolder, to); });
}
int renameat2(int folder, const char* from, int newFolder, const char* to,
              unsigned flags) noexcept {
    NEXT(renameat2);
    return moved("renameat2", at(folder, from), at(newFolder, to),
                 [&] { return next(folder, from, newFolder, to, flags); });
}
int link(const char* from, const char* to) noexcept {
    NEXT(link);
    return moved("link", at(from), at(to), [&] { return next(from, to); });
}
int linkat(int folder, const char* from, int newFolder, const char* to, int flags) noexcept {
    NEXT(linkat);
    return moved("linkat", at(folder, from), at(newFolder, to),
                 [&] { return next(folder, from, newFolder, to, flags); });
}
int symlink(const char* text, const char* path) noexcept {
    NEXT(symlink);
    return changed("symlink", at(path), [&] { return next(text, path); });
}
int unlink(const char* path) noexcept {
    NEXT(unlink);
    return changed("unlink", at(path), [&] { return next(path); });
}
int unlinkat(int folder, const char* path, int flags) noexcept {
    NEXT(unlinkat);
    return changed("unlinkat", at(folder, path), [&] { return next(folder, path, flags); });
}
int remove(const char* path) noexcept {
    NEXT(remove);
    return changed("remove", at(path), [&] { return next(path); });
}
int rmdir(const char* path) noexcept {
    NEXT(rmdir);
    return changed("rmdir", at(path), [&] { return next(path); });
}
int mkdir(const char* path, mode_t mode) noexcept {
    NEXT(mkdir);
    return changed("mkdir", at(path), [&] { return next(path, mode); });
}

// Rights

int chmod(const char* path, mode_t mode) noexcept {
    NEXT(chmod);
    return changed("chmod", at(path), [&] { return next(path, mode); });
}
int fchmod(int file, mode_t mode) noexcept {
    NEXT(fchmod);
    return changed("fchmod", of(file), [&] { return next(file, mode); });
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
    NEXT(fchown);
    return changed("fchown", of(file), [&] { return next(file, owner, group); });
}
int flock(int file, int operation) noexcept {
    NEXT(flock);
    return performed(counted("flock", of(file)), -1, [&] { return next(file, operation); });
}
int access(const char* path, int mode) noexcept {
    NEXT(access);
    return static_cast<int>(looked("access", at(path), [&] { return next(path, mode); }));
}
int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    NEXT(faccessat);
    if ((mode & W_OK) != 0 && isGuarded(at(folder, path)))
        return refused();
    return static_cast<int>(
        looked("faccessat", at(folder, path), [&] { return next(folder, path, mode, flags); }));
}

// What a path is

#define DEFINE_STAT(name, shown, status)                                                           \
    int name(const char* path, status* to) noexcept {                                              \
        NEXT(name);                                                                                \
        return performed(counted(shown, at(path)), -1, [&] { return next(path, to); });            \
    }
DEFINE_STAT(stat, "stat", struct stat)
DEFINE_STAT(stat64, "stat", struct stat64)
DEFINE_STAT(lstat, "lstat", struct stat)
DEFINE_STAT(lstat64, "lstat", struct stat64)

#define DEFINE_FSTAT(name, status)                                                                 \
    int name(int file, status* to) noexcept {                                                      \
        NEXT(name);                                                                                \
        return performed(counted("fstat", of(file)), -1, [&] { return next(file, to); });          \
    }
DEFINE_FSTAT(fstat, struct stat)
DEFINE_FSTAT(fstat64, struct stat64)

#define DEFINE_FSTATAT(name, status)                                                               \
    int name(int folder, const char* path, status* to, int flags) noexcept {                       \
        NEXT(name);                                                                                \
        return performed(counted("fstatat", at(folder, path)), -1,                                 \
                         [&] { return next(folder, path, to, flags); });                           \
    }
DEFINE_FSTATAT(fstatat, struct stat)
DEFINE_FSTATAT(fstatat64, struct stat64)

// Programs built for an older C library call these.
int __xstat(int, const char* path, struct stat* to) { return stat(path, to); }
int __xstat64(int, const char* path, struct stat64* to) { return stat64(path, to); }
int __lxstat(int, const char* path, struct stat* to) { return lstat(path, to); }
int __lxstat64(int, const char* path, struct stat64* to) { return lstat64(path, to); }
int __fxstat(int, int file, struct stat* to) { return fstat(file, to); }
int __fxstat64(int, int file, struct stat64* to) { return fstat64(file, to); }

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* to) noexcept {
    NEXT(statx);
    const Subject subject = *path ? at(folder, path) : of(folder);
    return performed(counted("statx", subject), -1,
                     [&] { return next(folder, path, flags, mask, to); });
}

ssize_t readlink(const char* path, char* to, std::size_t size) noexcept {
    NEXT(readlink);
    return looked("readlink", at(path), [&] { return next(path, to, size); });
}
ssize_t readlinkat(int folder, const char* path, char* to, std::size_t size) noexcept {
    NEXT(readlinkat);
    const Subject subject = *path ? at(folder, path) : of(folder);
    return looked("readlinkat", subject, [&] { return next(folder, path, to, size); });
}
char* realpath(const char* path, char* to) noexcept {
    NEXT(realpath);
    return performed(counted("realpath", at(path)), static_cast<char*>(nullptr),
                     [&] { return next(path, to); });
}

// Folders

DIR* opendir(const char* path) {
    NEXT(opendir);
    return performed(
        counted("opendir", at(path)), static_cast<DIR*>(nullptr), [&] { return next(path); },
        [](DIR* folder) { ::closedir(folder); });
}
DIR* fdopendir(int file) {
    NEXT(fdopendir);
    // A caller that is told of an error still owns the file, so there is no effect to leave behind.
    const FaultKind kind = counted("fdopendir", of(file));
    return performed(kind == FaultKind::doneButError ? FaultKind::inputOutput : kind,
                     static_cast<DIR*>(nullptr), [&] { return next(file); });
}

#define DEFINE_READDIR(name, entry)                                                                \
    entry* name(DIR* folder) {                                                                     \
        NEXT(name);                                                                                \
        return performed(counted("readdir", of(::dirfd(folder))), static_cast<entry*>(nullptr),    \
                         [&] { return next(folder); });                                            \
    }
DEFINE_READDIR(readdir, dirent)
DEFINE_READDIR(readdir64, dirent64)

// Extended attributes, in which the access control lists lie, too

ssize_t fgetxattr(int file, const char* name, void* to, std::size_t size) noexcept {
    NEXT(fgetxattr);
    return looked("fgetxattr", of(file), [&] { return next(file, name, to, size); });
}
ssize_t getxattr(const char* path, const char* name, void* to, std::size_t size) noexcept {
    NEXT(getxattr);
    return looked("getxattr", at(path), [&] { return next(path, name, to, size); });
}
ssize_t flistxattr(int file, char* to, std::size_t size) noexcept {
    NEXT(flistxattr);
    return looked("flistxattr", of(file), [&] { return next(file, to, size); });
}
int fsetxattr(int file, const char* name, const void* from, std::size_t size, int flags) noexcept {
    NEXT(fsetxattr);
    return changed("fsetxattr", of(file), [&] { return next(file, name, from, size, flags); });
}
int setxattr(const char* path, const char* name, const void* from, std::size_t size,
             int flags) noexcept {
    NEXT(setxattr);
    return changed("setxattr", at(path), [&] { return next(path, name, from, size, flags); });
}
}
