#import "macos/mac_trash.h"

#import "macos/values.h"

namespace frimbolate {

std::optional<std::string> MacTrash::moveToTrash(const std::string& path) {
    NSString* name = stringOf(path);
    if (!name || path.find('\0') != std::string::npos)
        return std::nullopt;
    NSFileManager* files = NSFileManager.defaultManager;
    // Does not follow links.
    NSString* type = [files attributesOfItemAtPath:name error:nullptr].fileType;
    if (!type || [type isEqualToString:NSFileTypeDirectory])
        return std::nullopt;
    NSURL* place = nil;
    if (![files trashItemAtURL:[NSURL fileURLWithPath:name isDirectory:NO]
              resultingItemURL:&place
                         error:nullptr])
        return std::nullopt;
    return toStdString(place.path);
}

} // namespace frimbolate
