#import "macos/mac_workspace.h"

#import "macos/values.h"

#import <AppKit/AppKit.h>

namespace frimbolate {

namespace {

void launch(NSURL* application, NSArray<NSString*>* arguments, bool anew) {
    if (!application)
        return;
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.createsNewApplicationInstance = anew;
    configuration.arguments = arguments;
    [NSWorkspace.sharedWorkspace openApplicationAtURL:application
                                        configuration:configuration
                                    completionHandler:nil];
}

} // namespace

void MacWorkspace::openTerminal() {
    NSWorkspace* workspace = NSWorkspace.sharedWorkspace;
    launch([workspace URLForApplicationWithBundleIdentifier:@"com.apple.Terminal"], @[], false);
}

void MacWorkspace::launchNewInstance() {
    launch(NSBundle.mainBundle.bundleURL, @[ @"--new-instance" ], true);
}

std::string MacWorkspace::userName() { return toStdString(NSUserName()); }

} // namespace frimbolate
