#include "macos/scoped_folder_access.h"

#include "core/named_error.h"
#include "macos/values.h"

namespace frimbolate {

namespace {

/// Null where the text is no path.
Owned<CFURLRef> folderUrl(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos)
        return {};
    return Owned<CFURLRef>(::CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()),
        static_cast<CFIndex>(path.size()), true));
}

/// Null with a reason, or the bookmark.
Owned<CFDataRef> scopedBookmark(CFURLRef url, std::string& reason) {
    Owned<CFErrorRef> error;
    Owned<CFDataRef> bookmark(::CFURLCreateBookmarkData(kCFAllocatorDefault, url,
                                                        kCFURLBookmarkCreationWithSecurityScope,
                                                        nullptr, nullptr, error.out()));
    if (error)
        reason = toStdString(Owned<CFStringRef>(::CFErrorCopyDescription(error.get())).get());
    return bookmark;
}

} // namespace

Data ScopedFolderAccess::createBookmark(const std::string& folder) {
    std::string reason = "There is no folder " + folder;
    const auto url = folderUrl(folder);
    const auto bookmark = url ? scopedBookmark(url.get(), reason) : Owned<CFDataRef>();
    if (!bookmark)
        throw NamedError("Bookmark not created", reason);
    return bytesOf(bookmark.get());
}

std::optional<std::string> ScopedFolderAccess::resolve(const Data& bookmark) {
    Boolean isStale = false;
    Owned<CFURLRef> url(::CFURLCreateByResolvingBookmarkData(
        kCFAllocatorDefault, dataOf(bookmark).get(), kCFURLBookmarkResolutionWithSecurityScope,
        nullptr, nullptr, &isStale, nullptr));
    if (!url)
        return std::nullopt;
    const Owned<CFStringRef> name(::CFURLCopyFileSystemPath(url.get(), kCFURLPOSIXPathStyle));
    if (!name)
        return std::nullopt;
    const std::string path = toStdString(name.get());
    if (isStale)
        stale_.insert(path);
    else
        stale_.erase(path);
    // A known URL is not replaced: access must end on the URL on which it began.
    urls_.try_emplace(path, std::move(url));
    return path;
}

void ScopedFolderAccess::begin(const std::optional<std::string>& folder) {
    if (CFURLRef url = urlOf(folder))
        static_cast<void>(::CFURLStartAccessingSecurityScopedResource(url));
}

void ScopedFolderAccess::end(const std::optional<std::string>& folder) {
    if (CFURLRef url = urlOf(folder))
        ::CFURLStopAccessingSecurityScopedResource(url);
}

std::optional<Data> ScopedFolderAccess::renewedBookmark(const std::string& folder) {
    CFURLRef url = urlOf(folder);
    if (!url || !stale_.contains(folder))
        return std::nullopt;
    std::string reason;
    const auto bookmark = scopedBookmark(url, reason);
    if (!bookmark)
        return std::nullopt;
    stale_.erase(folder);
    return bytesOf(bookmark.get());
}

CFURLRef ScopedFolderAccess::urlOf(const std::optional<std::string>& folder) const {
    const auto found = folder ? urls_.find(*folder) : urls_.end();
    return found == urls_.end() ? nullptr : found->second.get();
}

} // namespace frimbolate
