// The part of AppKit that the program uses, declared from its public documentation.
#pragma once

#include <Foundation/Foundation.h>

@interface NSWindow : NSObject
- (void)orderOut:(id)sender;
@end

@interface NSPanel : NSWindow
@end

@interface NSView : NSObject
@property(readonly, weak) NSWindow* window;
@end

typedef NSInteger NSModalResponse;
enum : NSModalResponse { NSModalResponseCancel = 0, NSModalResponseOK = 1 };

@protocol NSOpenSavePanelDelegate <NSObject>
@optional
- (BOOL)panel:(id)sender shouldEnableURL:(NSURL*)url;
- (BOOL)panel:(id)sender validateURL:(NSURL*)url error:(NSError**)error;
@end

@interface NSSavePanel : NSPanel
+ (NSSavePanel*)savePanel;
@property(readonly, copy) NSURL* URL;
@property(copy) NSURL* directoryURL;
@property(weak) id<NSOpenSavePanelDelegate> delegate;
@property(copy) NSString* prompt;
@property(copy) NSString* message;
@property(copy) NSString* nameFieldStringValue;
@property BOOL canCreateDirectories;
@property BOOL canSelectHiddenExtension;
@property(getter=isExtensionHidden) BOOL extensionHidden;
@property BOOL treatsFilePackagesAsDirectories;
- (void)beginSheetModalForWindow:(NSWindow*)window
               completionHandler:(void (^)(NSModalResponse response))handler;
@end

@interface NSOpenPanel : NSSavePanel
+ (NSOpenPanel*)openPanel;
@property BOOL resolvesAliases;
@property BOOL canChooseDirectories;
@property BOOL canChooseFiles;
@property BOOL allowsMultipleSelection;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)urls;
@end
