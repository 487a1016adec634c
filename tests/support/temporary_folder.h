// A temporary folder for one test, and switches for a full disk and for lacking privileges.
#pragma once

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

namespace frimbolate::test {

/// Drops the privileges of root during its lifetime, so that file permissions apply to the test.
/// Changes nothing for any other user. Throws std::runtime_error where they cannot be dropped.
class OrdinaryUser {
  public:
    OrdinaryUser() : user_(::geteuid()), group_(::getegid()) {
        constexpr uid_t nobody = 65534;
        if (user_ == 0 && (::setegid(nobody) != 0 || ::seteuid(nobody) != 0))
            throw std::runtime_error("the privileges of root cannot be put down");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (::seteuid(user_) != 0 || ::setegid(group_) != 0)
            std::abort();
    }

  private:
    uid_t user_;
    gid_t group_;
};

/// Limits the size of every file that the process writes during its lifetime, as if the disk became
/// full in the middle of a write.
class FullDisk {
  public:
    /// \param space the size in bytes that a file may reach
    explicit FullDisk(rlim_t space) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit narrow{space, before_.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &narrow) != 0)
            throw std::runtime_error("the size of files cannot be limited");
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_{};
    void (*handler_)(int) = SIG_DFL;
};

/// Removed with its content at the end, also what a test made unwritable.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "frimbolate-test-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary folder can be made");
        path_ = std::filesystem::canonical(pattern).string();
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path_, ignored))
            if (entry.is_directory(ignored) && !entry.is_symlink(ignored))
                allowWriting(entry.path().string());
        allowWriting(path_);
        std::filesystem::remove_all(path_, ignored);
    }

    const std::string& path() const { return path_; }
    std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

    static void forbidWriting(const std::string& path) {
        using std::filesystem::perms;
        std::filesystem::permissions(path, perms::owner_write | perms::group_write,
                                     std::filesystem::perm_options::remove);
    }
    static void allowWriting(const std::string& path) {
        std::error_code ignored;
        std::filesystem::permissions(path, std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ignored);
    }

    /// The names of everything in the folder, hidden ones included.
    std::set<std::string> names() const {
        std::set<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            result.insert(entry.path().filename().string());
        return result;
    }

  private:
    std::string path_;
};

inline void writeBytes(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// All bytes of a file; empty where it cannot be read.
inline std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace frimbolate::test
