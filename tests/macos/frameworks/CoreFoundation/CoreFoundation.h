// The part of CoreFoundation that the program uses, declared from its public documentation.
#pragma once

#include <stdint.h>

extern "C" {

typedef unsigned char Boolean;
typedef unsigned char UInt8;
typedef uint32_t UInt32;
typedef int32_t OSStatus;
typedef long CFIndex;
typedef unsigned long CFOptionFlags;
typedef unsigned long CFTypeID;
typedef struct {
    CFIndex location;
    CFIndex length;
} CFRange;

typedef const void* CFTypeRef;
typedef CFTypeRef CFPropertyListRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFArray* CFArrayRef;
typedef const struct __CFData* CFDataRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFURL* CFURLRef;
typedef struct __CFError* CFErrorRef;

extern const CFAllocatorRef kCFAllocatorDefault;

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);

inline CFRange CFRangeMake(CFIndex location, CFIndex length) { return {location, length}; }

// Strings

typedef UInt32 CFStringEncoding;
enum : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };

CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex size,
                                    CFStringEncoding encoding, Boolean hasByteOrderMark);
CFIndex CFStringGetLength(CFStringRef string);
CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding,
                         UInt8 substitute, Boolean addsByteOrderMark, UInt8* buffer,
                         CFIndex bufferSize, CFIndex* usedSize);

// Data, arrays, dictionaries

CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex size);
const UInt8* CFDataGetBytePtr(CFDataRef data);
CFIndex CFDataGetLength(CFDataRef data);
CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
CFTypeID CFDictionaryGetTypeID(void);
const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key);

// Property lists

typedef CFIndex CFPropertyListFormat;
enum : CFPropertyListFormat {
    kCFPropertyListXMLFormat_v1_0 = 100,
    kCFPropertyListBinaryFormat_v1_0 = 200
};
enum : CFOptionFlags { kCFPropertyListImmutable = 0 };

CFDataRef CFPropertyListCreateData(CFAllocatorRef allocator, CFPropertyListRef object,
                                   CFPropertyListFormat format, CFOptionFlags options,
                                   CFErrorRef* error);
CFPropertyListRef CFPropertyListCreateWithData(CFAllocatorRef allocator, CFDataRef data,
                                               CFOptionFlags options, CFPropertyListFormat* format,
                                               CFErrorRef* error);

// Preferences

extern const CFStringRef kCFPreferencesCurrentApplication;
extern const CFStringRef kCFPreferencesCurrentUser;
extern const CFStringRef kCFPreferencesAnyHost;

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application);
void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application);
Boolean CFPreferencesAppSynchronize(CFStringRef application);
CFArrayRef CFPreferencesCopyKeyList(CFStringRef application, CFStringRef user, CFStringRef host);

// URLs and bookmarks

typedef CFIndex CFURLPathStyle;
enum : CFURLPathStyle { kCFURLPOSIXPathStyle = 0 };
enum : CFOptionFlags {
    kCFURLBookmarkResolutionWithSecurityScope = 1UL << 10,
    kCFURLBookmarkCreationWithSecurityScope = 1UL << 11
};

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const UInt8* path,
                                                 CFIndex size, Boolean isDirectory);
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style);
CFDataRef CFURLCreateBookmarkData(CFAllocatorRef allocator, CFURLRef url, CFOptionFlags options,
                                  CFArrayRef properties, CFURLRef relativeTo, CFErrorRef* error);
CFURLRef CFURLCreateByResolvingBookmarkData(CFAllocatorRef allocator, CFDataRef bookmark,
                                            CFOptionFlags options, CFURLRef relativeTo,
                                            CFArrayRef properties, Boolean* isStale,
                                            CFErrorRef* error);
Boolean CFURLStartAccessingSecurityScopedResource(CFURLRef url);
void CFURLStopAccessingSecurityScopedResource(CFURLRef url);
CFStringRef CFErrorCopyDescription(CFErrorRef error);
}
