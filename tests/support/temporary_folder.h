// A folder of a test's own, and the troubles that a disk can give.
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

/// The test goes on as somebody whom permissions hold back, also when it was started as root.
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

/// No file grows beyond a few bytes, as on a disk that is full in the middle of a write.
class FullDisk {
  public:
    explicit FullDisk(rlim_t room) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit narrow{room, before_.rlim_max};
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

/// All bytes of a file; a file that cannot be read has none.
inline std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace frimbolate::test
