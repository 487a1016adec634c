#include "posix/path_folder_access.h"

#include "core/named_error.h"

#include <sys/stat.h>

namespace frimbolate {

namespace {

/// Distinguishes these bookmarks from those of a desktop with scoped grants and from later formats.
constexpr std::string_view tag = "path1:";

bool isFolder(const std::string& path) {
    struct stat status {};
    return path.starts_with('/') && path.find('\0') == std::string::npos &&
           ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

Data PathFolderAccess::createBookmark(const std::string& folder) {
    if (!isFolder(folder))
        throw NamedError("Bookmark not created", "There is no folder " + folder);
    const std::string text = std::string(tag) + folder;
    Data bookmark;
    bookmark.bytes.assign(text.begin(), text.end());
    return bookmark;
}

std::optional<std::string> PathFolderAccess::resolve(const Data& bookmark) {
    const std::string text(bookmark.bytes.begin(), bookmark.bytes.end());
    if (!text.starts_with(tag))
        return std::nullopt;
    std::string folder = text.substr(tag.size());
    if (!isFolder(folder))
        return std::nullopt;
    return folder;
}

} // namespace frimbolate
