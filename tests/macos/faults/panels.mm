// A message that the platform's panel does not know.
#import <AppKit/AppKit.h>

void show(NSOpenPanel* panel) {
    // expected-note@*:* {{declared here}}
    panel.mesage = @""; // expected-error {{property 'mesage' not found}}
    [panel beginSheet]; // expected-error {{no visible @interface}}
}
