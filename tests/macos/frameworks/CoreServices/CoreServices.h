// The part of Launch Services that the program uses, declared from its public documentation.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

typedef uint32_t LSLaunchFlags;
enum : LSLaunchFlags { kLSLaunchDefaults = 0x00000001, kLSLaunchNewInstance = 0x00080000 };

struct AEDesc;
struct LSLaunchURLSpec {
    CFURLRef appURL;
    CFArrayRef itemURLs;
    const AEDesc* passThruParams;
    LSLaunchFlags launchFlags;
    void* asyncRefCon;
};

CFArrayRef LSCopyApplicationURLsForBundleIdentifier(CFStringRef identifier, CFErrorRef* error);
OSStatus LSOpenFromURLSpec(const LSLaunchURLSpec* request, CFURLRef* opened);
}
