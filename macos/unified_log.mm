#import "macos/unified_log.h"

#import "macos/values.h"

namespace frimbolate {

void UnifiedLog::line(const std::string& text) {
    // A path can be invalid UTF-8; Latin-1 accepts any bytes.
    NSString* shown = stringOf(text);
    if (!shown)
        shown = [[NSString alloc] initWithBytes:text.data()
                                         length:text.size()
                                       encoding:NSISOLatin1StringEncoding];
    NSLog(@"%@", shown);
}

} // namespace frimbolate
