#import "macos/scoped_folder_access.h"

#include "core/named_error.h"
#import "macos/values.h"

#include <map>

namespace frimbolate {

struct ScopedFolderAccess::Urls {
    std::map<std::string, NSURL*> byPath;

    NSURL* of(const std::optional<std::string>& folder) const {
        const auto found = folder ? byPath.find(*folder) : byPath.end();
        return found == byPath.end() ? nil : found->second;
    }
};

ScopedFolderAccess::ScopedFolderAccess() : urls_(std::make_unique<Urls>()) {}
ScopedFolderAccess::~ScopedFolderAccess() = default;

Data ScopedFolderAccess::createBookmark(const std::string& folder) {
    NSString* path = stringOf(folder);
    NSError* error = nil;
    NSData* bookmark =
        path ? [[NSURL fileURLWithPath:path isDirectory:YES]
                          bookmarkDataWithOptions:NSURLBookmarkCreationWithSecurityScope
                   includingResourceValuesForKeys:nil
                                    relativeToURL:nil
                                            error:&error]
             : nil;
    if (!bookmark)
        throw NamedError("Bookmark not created", error ? toStdString(error.localizedDescription)
                                                       : "There is no folder " + folder);
    return bytesOf(bookmark);
}

std::optional<std::string> ScopedFolderAccess::resolve(const Data& bookmark) {
    NSURL* url = [NSURL URLByResolvingBookmarkData:dataOf(bookmark)
                                           options:NSURLBookmarkResolutionWithSecurityScope
                                     relativeToURL:nil
                               bookmarkDataIsStale:nullptr
                                             error:nullptr];
    if (!url.path)
        return std::nullopt;
    const std::string path = toStdString(url.path);
    // A known URL is not replaced: access must end on the URL on which it began.
    urls_->byPath.emplace(path, url);
    return path;
}

void ScopedFolderAccess::begin(const std::optional<std::string>& folder) {
    [urls_->of(folder) startAccessingSecurityScopedResource];
}

void ScopedFolderAccess::end(const std::optional<std::string>& folder) {
    [urls_->of(folder) stopAccessingSecurityScopedResource];
}

} // namespace frimbolate
