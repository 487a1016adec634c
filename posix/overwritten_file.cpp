#include "posix/overwritten_file.h"

#include "posix/file_descriptor.h"
#include "posix/temporary_files.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>

namespace frimbolate {

namespace {

/// Copies what follows the positions of both. Sets errno on failure.
bool copyRest(int from, int to) {
    std::array<char, 65536> block{};
    for (;;) {
        const ssize_t size = ::read(from, block.data(), block.size());
        if (size == 0)
            return true;
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0 || !writeWholly(to, {block.data(), static_cast<std::size_t>(size)}))
            return false;
    }
}

bool rewind(int file) { return ::lseek(file, 0, SEEK_SET) == 0; }

/// The old content under a temporary name. Removed with this object unless it is kept.
class SafetyCopy {
  public:
    /// Not under a temporary name alone: nothing may remove what can be the only copy.
    explicit SafetyCopy(const std::string& folder)
        : path_(folder + '/' + temporaryName() + "-copy"),
          file_(::open(path_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600)),
          exists_(file_ || errno != EEXIST) {}
    SafetyCopy(const SafetyCopy&) = delete;
    SafetyCopy& operator=(const SafetyCopy&) = delete;
    ~SafetyCopy() {
        if (exists_)
            ::unlink(path_.c_str());
    }

    /// Copies the whole file and flushes the copy to the disk.
    bool copy(int file) {
        return file_ && rewind(file) && copyRest(file, file_.number()) &&
               ::fsync(file_.number()) == 0;
    }
    /// Puts the content back, and the mode.
    bool restore(int file, const struct stat& before) {
        return rewind(file_.number()) && rewind(file) && copyRest(file_.number(), file) &&
               ::ftruncate(file, before.st_size) == 0 &&
               ::fchmod(file, before.st_mode & 07777) == 0 && ::fsync(file) == 0;
    }
    /// Leaves the copy where it is, and returns its path.
    const std::string& keep() {
        exists_ = false;
        return path_;
    }

  private:
    std::string path_;
    FileDescriptor file_;
    bool exists_;
};

bool replaceContent(int file, std::string_view content) {
    return rewind(file) && writeWholly(file, content) &&
           ::ftruncate(file, static_cast<off_t>(content.size())) == 0 && ::fsync(file) == 0;
}

std::optional<std::string> createFile(const std::string& path, std::string_view content,
                                      mode_t mode) {
    FileDescriptor file(
        ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!file)
        return errnoMessage();
    if (writeWholly(file.number(), content) && ::fsync(file.number()) == 0 && file.close())
        return std::nullopt;
    const std::string reason = errnoMessage();
    ::unlink(path.c_str());
    return reason;
}

} // namespace

std::optional<std::string> overwriteFile(const std::string& path, std::string_view content,
                                         mode_t newFileMode, mode_t keptMode,
                                         const std::string& copyFolder) {
    // O_NONBLOCK: another program may have put a pipe in its place.
    const FileDescriptor file(
        ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file && errno == ENOENT)
        return createFile(path, content, newFileMode);
    struct stat before {};
    if (!file || ::fstat(file.number(), &before) != 0)
        return errnoMessage();
    if (!S_ISREG(before.st_mode))
        return "it is not a regular file";

    SafetyCopy copy(copyFolder);
    if (!copy.copy(file.number()))
        return "no copy of it can be kept in " + copyFolder + ": " + errnoMessage();
    const auto mode = static_cast<mode_t>(before.st_mode & 07777U);
    if ((mode & ~keptMode) != 0 &&
        ::fchmod(file.number(), static_cast<mode_t>(mode & keptMode)) != 0)
        return errnoMessage();
    if (replaceContent(file.number(), content))
        return std::nullopt;
    std::string reason = errnoMessage();
    if (!copy.restore(file.number(), before))
        reason += "; its old content is in " + copy.keep();
    return reason;
}

std::string temporaryFolderOfUser() {
    const char* configured = std::getenv("TMPDIR");
    return configured && *configured == '/' ? configured : "/tmp";
}

} // namespace frimbolate
