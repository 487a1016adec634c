#import "macos/mac_trash.h"

#import "macos/values.h"

#import <Foundation/Foundation.h>

namespace frimbolate {

std::optional<std::string> MacTrash::moveToTrash(const std::string& path) {
    const auto text = stringOf(path);
    if (!text || path.find('\0') != std::string::npos)
        return std::nullopt;
    NSString* name = (__bridge NSString*)text.get();
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
    return toStdString((__bridge CFStringRef)place.path);
}

} // namespace frimbolate
