// Owns an open file descriptor.
#pragma once

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace frimbolate {

class FileDescriptor {
  public:
    /// \param number as open() returns it; negative means none
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() { close(); }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    /// Returns whether closing succeeded; some file systems report a failed write only here.
    bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};

/// Writes all of the content. Returns whether that succeeded; sets errno otherwise.
inline bool writeWholly(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written == 0)
            errno = EIO; // no error of its own, and the next try would be the same
        if (written <= 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// The message of errno, such as "No space left on device".
inline std::string errnoMessage() { return std::strerror(errno); }

} // namespace frimbolate
