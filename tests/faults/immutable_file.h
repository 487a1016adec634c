// Files that not even their owner may change.
#pragma once

#include "tests/faults/one_fault.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <memory>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace frimbolate::test {

enum class FileFlag : int { immutable = FS_IMMUTABLE_FL, appendOnly = FS_APPEND_FL };

/// Sets a flag of a file while it exists. Where this user or the file system may not, calls of this
/// process on the file are refused as the flag would refuse them.
class FlaggedFile {
  public:
    FlaggedFile(const std::string& path, FileFlag flag)
        : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        isSet_ = ::ioctl(file_, FS_IOC_GETFLAGS, &before_) == 0 && set(before_ | int(flag));
        if (!isSet_)
            refused_ = std::make_unique<ImmutableFile>(path);
    }
    FlaggedFile(const FlaggedFile&) = delete;
    FlaggedFile& operator=(const FlaggedFile&) = delete;
    ~FlaggedFile() {
        if (isSet_)
            set(before_);
        ::close(file_);
    }

  private:
    bool set(int flags) { return ::ioctl(file_, FS_IOC_SETFLAGS, &flags) == 0; }

    int file_;
    int before_ = 0;
    bool isSet_ = false;
    std::unique_ptr<ImmutableFile> refused_;
};

} // namespace frimbolate::test
