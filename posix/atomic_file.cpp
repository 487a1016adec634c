#include "posix/atomic_file.h"

#include "posix/file_descriptor.h"
#include "posix/file_metadata.h"
#include "posix/overwritten_file.h"
#include "posix/symbolic_links.h"
#include "posix/temporary_files.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace frimbolate {

namespace {

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// The new file under its temporary name, locked (see temporary_files.h). Removed with this object
/// unless it was moved.
///
/// The answer of a file server can get lost after it did what it was asked for. So an error of
/// creating or moving does not say that nothing was done.
class TemporaryFile {
  public:
    TemporaryFile(int folder, mode_t mode) : folder_(folder) {
        // Another save that removes what killed ones left may take the file before it is locked.
        constexpr int tries = 100;
        for (int i = 0; i < tries && create(mode) && !lock(); ++i) {
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (mayExist_)
            ::unlinkat(folder_, name_.c_str(), 0);
    }

    bool isOpen() const { return static_cast<bool>(file_); }
    int number() const { return file_.number(); }
    bool write(std::string_view content) {
        return writeWholly(file_.number(), content) && ::fsync(file_.number()) == 0 &&
               file_.close();
    }
    bool moveTo(const std::string& name) {
        const bool isMoved =
            ::renameat(folder_, name_.c_str(), folder_, name.c_str()) == 0 || hasName(name);
        mayExist_ = !isMoved;
        return isMoved;
    }

  private:
    bool create(mode_t mode) {
        name_ = temporaryName();
        file_ = FileDescriptor(
            ::openat(folder_, name_.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode));
        mayExist_ = file_ || errno != EEXIST;
        return isOpen();
    }
    /// Returns whether the file is there to stay. Not being able to lock it is no reason to fail.
    bool lock() {
        // A duplicate keeps the lock while the file is closed, which can report a failed write.
        lock_ = FileDescriptor(::fcntl(file_.number(), F_DUPFD_CLOEXEC, 0));
        struct stat status {};
        return !lock_ || (lockTemporaryFile(lock_.number()) != TemporaryLock::ofAnother &&
                          (::fstat(lock_.number(), &status) != 0 || status.st_nlink > 0));
    }
    /// Keeps errno.
    bool hasName(const std::string& name) const {
        const int error = errno;
        struct stat own {};
        struct stat named {};
        const bool has = lock_ && ::fstat(lock_.number(), &own) == 0 &&
                         ::fstatat(folder_, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
                         isSameFile(own, named);
        errno = error;
        return has;
    }

    int folder_;
    std::string name_;
    FileDescriptor file_{-1};
    FileDescriptor lock_{-1};
    bool mayExist_ = false;
};

/// O_NONBLOCK: another program may have put a pipe in its place meanwhile.
int openOriginal(int folder, const std::string& name) {
    return ::openat(folder, name.c_str(),
                    O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

} // namespace

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view content,
                                               mode_t newFileMode, mode_t keptMode) {
    if (path.find('\0') != std::string::npos)
        return "its path holds a NUL";
    const auto [target, rejectionReason] = resolveLinks(path);
    if (!rejectionReason.empty())
        return rejectionReason;
    const FileDescriptor folder(::open(target.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const auto writeChosenFile = [&, &place = target] {
        return overwriteFile(place.folder + place.name, content, newFileMode, keptMode,
                             temporaryFolderOfUser());
    };
    if (!folder)
        return errno == EPERM ? writeChosenFile() : errnoMessage();

    struct stat status {};
    const bool exists =
        ::fstatat(folder.number(), target.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    if (!exists && errno != ENOENT)
        return errnoMessage();
    if (exists && !S_ISREG(status.st_mode))
        return "it is not a regular file";
    // First, since they may have filled the disk.
    removeAbandonedFiles(folder.number(), std::time(nullptr));

    const FileDescriptor original(exists ? openOriginal(folder.number(), target.name) : -1);
    if (exists && !original && isFaultOfSystem(errno))
        return errnoMessage();
    // Other users must not read the content before the rights of the original are set.
    TemporaryFile temporary(folder.number(), exists ? 0600 : newFileMode);
    if (!temporary.isOpen())
        return errno == EPERM ? writeChosenFile() : errnoMessage();
    if ((exists && !copyMetadata(original.number(), status, temporary.number(), keptMode)) ||
        !temporary.write(content) || !temporary.moveTo(target.name))
        return errnoMessage();
    // The new file is in place. If this fails, a power cut may restore the old one, complete.
    static_cast<void>(::fsync(folder.number()));
    return std::nullopt;
}

} // namespace frimbolate
