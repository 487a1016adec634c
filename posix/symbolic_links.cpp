#include "posix/symbolic_links.h"

#include "posix/file_descriptor.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace frimbolate {

namespace {

struct Link {
    std::string text;
    uid_t owner;
};

/// The link at a path, or nothing where there is none.
std::optional<Link> linkAt(const std::string& path) {
    struct stat status {};
    std::array<char, PATH_MAX> text{};
#ifdef O_PATH
    // O_PATH: text and owner belong to the same link, even if it is replaced meanwhile.
    const FileDescriptor link(::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (!link || ::fstat(link.number(), &status) != 0 || !S_ISLNK(status.st_mode))
        return std::nullopt;
    const ssize_t size = ::readlinkat(link.number(), "", text.data(), text.size());
#else
    if (::lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode))
        return std::nullopt;
    const ssize_t size = ::readlink(path.c_str(), text.data(), text.size());
#endif
    if (size < 0)
        return std::nullopt;
    return Link{std::string(text.data(), static_cast<std::size_t>(size)), status.st_uid};
}

bool mayFollow(const Link& link, const std::string& folder) {
    struct stat status {};
    return ::stat(folder.c_str(), &status) == 0 &&
           mayFollowLink({::geteuid(), link.owner, status.st_uid, status.st_mode});
}

} // namespace

PathParts splitPath(const std::string& path) {
    const auto slash = path.rfind('/');
    return {path.substr(0, slash + 1), path.substr(slash + 1)};
}

bool mayFollowLink(const LinkContext& context) {
    constexpr mode_t shared = S_ISVTX | S_IWOTH;
    return (context.folderMode & shared) != shared || context.linkOwner == context.follower ||
           context.linkOwner == context.folderOwner;
}

ResolvedPath resolveLinks(std::string path) {
    constexpr int maximumLinks = 40;
    for (int i = 0; i < maximumLinks; ++i) {
        auto place = splitPath(path);
        const auto link = linkAt(path);
        if (!link)
            return {std::move(place), {}};
        if (!mayFollow(*link, place.folder))
            return {{}, "it is a link of another user in a folder that everybody may write to"};
        path = link->text.starts_with('/') ? link->text : place.folder + link->text;
    }
    return {{}, "its links go in a circle"};
}

} // namespace frimbolate
