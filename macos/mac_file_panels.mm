#import "macos/mac_file_panels.h"

#import "macos/values.h"
#import "platform/choosable_items.h"

#import <AppKit/AppKit.h>

using namespace frimbolate;

namespace {

/// Nil for text that is not valid UTF-8.
NSString* platformText(std::string_view text) {
    const auto string = stringOf(text);
    NSString* result = (__bridge NSString*)string.get();
    return result;
}

std::string nameOf(NSURL* url) { return toStdString((__bridge CFStringRef)url.lastPathComponent); }

bool isSet(NSString* property, NSURL* url) {
    NSNumber* value = nil;
    return [url getResourceValue:&value forKey:property error:nullptr] && value.boolValue;
}

} // namespace

/// Lets the user choose by the rules that hold on every platform. The panel's own content types
/// would allow more: a type includes its kinds, so that of .sh includes .command.
@interface FrimbolatePanelRules : NSObject <NSOpenSavePanelDelegate>
- (instancetype)initWithPanel:(const OpenPanel&)panel;
@end

@implementation FrimbolatePanelRules {
    OpenPanel panel_;
}

- (instancetype)initWithPanel:(const OpenPanel&)panel {
    self = [super init];
    if (self)
        panel_ = panel;
    return self;
}

- (BOOL)panel:(id)sender shouldEnableURL:(NSURL*)url {
    // A folder that cannot be chosen can be entered; a package cannot.
    const bool canBeEntered = isSet(NSURLIsDirectoryKey, url) && !isSet(NSURLIsPackageKey, url);
    return canBeEntered || isChoosable(panel_, nameOf(url), isSet(NSURLIsDirectoryKey, url));
}

- (BOOL)panel:(id)sender validateURL:(NSURL*)url error:(NSError**)error {
    if (isChoosable(panel_, nameOf(url), isSet(NSURLIsDirectoryKey, url)))
        return YES;
    if (error) {
        NSString* reason =
            platformText("“" + nameOf(url) + "” is not of a kind that can be chosen here.");
        *error = [NSError errorWithDomain:NSCocoaErrorDomain
                                     code:NSFileReadUnknownError
                                 userInfo:@{NSLocalizedDescriptionKey : reason}];
    }
    return NO;
}

@end

namespace frimbolate {

namespace {

NSWindow* windowOf(std::uintptr_t view) {
    return ((__bridge NSView*)reinterpret_cast<void*>(view)).window;
}

std::string pathOf(NSURL* url) { return toStdString((__bridge CFStringRef)url.path); }

/// What open and save panels have in common. An open panel is a kind of save panel there.
template <typename Panel>
void setUp(NSSavePanel* sheet, const Panel& panel) {
    sheet.message = platformText(panel.message);
    sheet.prompt = platformText(panel.prompt);
    sheet.canCreateDirectories = panel.canCreateDirectories;
    // A name is shown as it is on the disk, with its extension.
    sheet.extensionHidden = NO;
    sheet.canSelectHiddenExtension = NO;
    sheet.treatsFilePackagesAsDirectories = NO;
    if (panel.directory)
        sheet.directoryURL = [NSURL fileURLWithPath:platformText(*panel.directory) isDirectory:YES];
}

} // namespace

void MacFilePanels::open(const OpenPanel& panel, OpenCompletion completion) {
    NSOpenPanel* sheet = [NSOpenPanel openPanel];
    setUp(sheet, panel);
    sheet.canChooseFiles = panel.canChooseFiles;
    sheet.canChooseDirectories = panel.canChooseDirectories;
    sheet.resolvesAliases = panel.resolvesAliases;
    sheet.allowsMultipleSelection = NO;
    // The panel does not keep its delegate; the handler does.
    FrimbolatePanelRules* rules = [[FrimbolatePanelRules alloc] initWithPanel:panel];
    sheet.delegate = rules;
    [sheet beginSheetModalForWindow:windowOf(view_())
                  completionHandler:^(NSModalResponse response) {
                    static_cast<void>(rules);
                    // It would lie over the next sheet.
                    [sheet orderOut:nil];
                    if (response == NSModalResponseOK && sheet.URL)
                        completion(pathOf(sheet.URL));
                    else
                        completion(std::nullopt);
                  }];
}

void MacFilePanels::save(const SavePanel& panel, SaveCompletion completion) {
    NSSavePanel* sheet = [NSSavePanel savePanel];
    setUp(sheet, panel);
    sheet.nameFieldStringValue = platformText(panel.nameFieldStringValue);
    [sheet beginSheetModalForWindow:windowOf(view_())
                  completionHandler:^(NSModalResponse response) {
                    [sheet orderOut:nil];
                    if (response == NSModalResponseOK && sheet.URL)
                        completion(SaveLocation{
                            pathOf(sheet.URL),
                            toStdString((__bridge CFStringRef)sheet.nameFieldStringValue)});
                    else
                        completion(std::nullopt);
                  }];
}

} // namespace frimbolate
