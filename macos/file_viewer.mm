#import "macos/file_viewer.h"

#import "macos/values.h"

#import <AppKit/AppKit.h>

namespace frimbolate {

void showInFinder(const std::string& path) {
    const auto text = stringOf(path);
    if (!text)
        return;
    NSURL* file = [NSURL fileURLWithPath:(__bridge NSString*)text.get()];
    [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ file ]];
}

} // namespace frimbolate
