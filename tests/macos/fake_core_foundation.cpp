#include "tests/macos/fake_core_foundation.h"

#include "core/named_error.h"
#include "macos/file_viewer.h"
#include "plist/property_list_reader.h"
#include "plist/text_encoding.h"
#include "tests/plist/binary_file.h"

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>
#include <os/log.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace frimbolate::test {

namespace {

FakeCoreFoundation* fake = nullptr;

enum class Kind { value, list, url, error };

struct Object {
    Kind kind = Kind::value;
    Value value;                          ///< also the path of a URL and the text of an error
    bool isScoped = false;                ///< a URL that a bookmark resolved to
    int accesses = 0;                     ///< begun on this URL and not ended yet
    std::map<std::string, Object*> owned; ///< the entries that were asked for, by key or index
    int references = 1;
};

Object* make(Kind kind, Value value) {
    ++fake->objects;
    auto* object = new Object;
    object->kind = kind;
    object->value = std::move(value);
    return object;
}

void release(Object* object) {
    if (--object->references > 0)
        return;
    EXPECT_EQ(object->accesses, 0) << "A URL was released before access ended";
    for (const auto& [key, entry] : object->owned)
        release(entry);
    --fake->objects;
    delete object;
}

Object& objectAt(const void* reference) {
    if (!reference)
        ADD_FAILURE() << "A function was called with null";
    return *const_cast<Object*>(static_cast<const Object*>(reference));
}

template <typename Reference>
Reference asReference(Object* object) {
    return reinterpret_cast<Reference>(object);
}

const std::string& textAt(const void* reference) { return objectAt(reference).value.asString(); }

const std::vector<std::uint8_t>& bytesAt(CFDataRef data) {
    return objectAt(data).value.data()->bytes;
}

/// An entry belongs to its container, which keeps it.
const void* entry(const void* container, const std::string& key, Kind kind, const Value& value) {
    Object*& found = objectAt(container).owned[key];
    if (!found)
        found = make(kind, value);
    return found;
}

std::string domainName(CFStringRef application) {
    return application == kCFPreferencesCurrentApplication ? "(current)" : textAt(application);
}

void fail(CFErrorRef* error, const std::string& reason) {
    if (error)
        *error = asReference<CFErrorRef>(make(Kind::error, reason));
}

template <typename Strings>
CFArrayRef listOf(const Strings& strings, Kind kind) {
    Array array(strings.begin(), strings.end());
    Object* list = make(Kind::list, array);
    for (std::size_t i = 0; i < array.size(); ++i)
        entry(list, std::to_string(i), kind, array[i]);
    return asReference<CFArrayRef>(list);
}

} // namespace

FakeCoreFoundation::FakeCoreFoundation() { fake = this; }

FakeCoreFoundation::~FakeCoreFoundation() {
    EXPECT_EQ(objects, 0) << "An object was not released";
    fake = nullptr;
}

CFTypeRef makeUrlObject(const std::string& path) { return make(Kind::url, path); }

} // namespace frimbolate::test

using namespace frimbolate;
using namespace frimbolate::test;

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFStringRef kCFPreferencesCurrentApplication = reinterpret_cast<CFStringRef>("application");
const CFStringRef kCFPreferencesCurrentUser = reinterpret_cast<CFStringRef>("user");
const CFStringRef kCFPreferencesAnyHost = reinterpret_cast<CFStringRef>("host");
struct os_log_s {
    int unused;
};
os_log_s _os_log_default;

CFTypeRef CFRetain(CFTypeRef object) {
    ++objectAt(object).references;
    return object;
}

void CFRelease(CFTypeRef object) { release(&objectAt(object)); }

CFTypeID CFDictionaryGetTypeID(void) { return 7; }

CFTypeID CFGetTypeID(CFTypeRef object) { return objectAt(object).value.dictionary() ? 7 : 1; }

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex size,
                                    CFStringEncoding encoding, Boolean) {
    EXPECT_EQ(encoding, kCFStringEncodingUTF8);
    const std::string text(bytes, bytes + size);
    return isValidUtf8(text) ? asReference<CFStringRef>(make(Kind::value, text)) : nullptr;
}

CFIndex CFStringGetLength(CFStringRef string) {
    CFIndex units = 0;
    for (const char byte : textAt(string)) {
        const auto lead = static_cast<unsigned char>(byte);
        units += (lead & 0xc0U) == 0x80U ? 0 : lead >= 0xf0U ? 2 : 1;
    }
    return units;
}

CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding, UInt8, Boolean,
                         UInt8* buffer, CFIndex bufferSize, CFIndex* usedSize) {
    const std::string& text = textAt(string);
    EXPECT_EQ(range.location, 0);
    EXPECT_EQ(range.length, CFStringGetLength(string));
    if (usedSize)
        *usedSize = std::ssize(text);
    if (buffer)
        std::copy_n(text.begin(), std::min<CFIndex>(bufferSize, std::ssize(text)), buffer);
    return range.length;
}

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex size) {
    return asReference<CFDataRef>(make(Kind::value, Data{{bytes, bytes + size}}));
}

const UInt8* CFDataGetBytePtr(CFDataRef data) { return bytesAt(data).data(); }

CFIndex CFDataGetLength(CFDataRef data) { return std::ssize(bytesAt(data)); }

CFIndex CFArrayGetCount(CFArrayRef array) { return std::ssize(objectAt(array).value.asArray()); }

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    return objectAt(array).owned.at(std::to_string(index));
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key) {
    const Value* value = find(objectAt(dictionary).value.asDictionary(), textAt(key));
    return value ? entry(dictionary, textAt(key), Kind::value, *value) : nullptr;
}

CFDataRef CFPropertyListCreateData(CFAllocatorRef, CFPropertyListRef object,
                                   CFPropertyListFormat format, CFOptionFlags, CFErrorRef* error) {
    EXPECT_EQ(format, kCFPropertyListBinaryFormat_v1_0);
    if (objectAt(object).kind != Kind::value) {
        fail(error, "not a property list");
        return nullptr;
    }
    const std::string bytes = binaryPlist(objectAt(object).value);
    return CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.data()),
                        std::ssize(bytes));
}

CFPropertyListRef CFPropertyListCreateWithData(CFAllocatorRef, CFDataRef data, CFOptionFlags,
                                               CFPropertyListFormat*, CFErrorRef* error) {
    const auto& bytes = bytesAt(data);
    try {
        return make(Kind::value, readPropertyList(std::string(bytes.begin(), bytes.end())));
    } catch (const NamedError& failure) {
        fail(error, failure.reason());
        return nullptr;
    }
}

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application) {
    const Value* value = find(fake->preferences[domainName(application)], textAt(key));
    return value ? make(Kind::value, *value) : nullptr;
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application) {
    Dictionary& domain = fake->preferences[domainName(application)];
    if (value)
        domain.insert_or_assign(textAt(key), objectAt(value).value);
    else
        domain.erase(textAt(key));
}

Boolean CFPreferencesAppSynchronize(CFStringRef) { return !fake->synchronizeFails; }

/// The last key first, since the platform has no order.
CFArrayRef CFPreferencesCopyKeyList(CFStringRef application, CFStringRef user, CFStringRef host) {
    EXPECT_EQ(user, kCFPreferencesCurrentUser);
    EXPECT_EQ(host, kCFPreferencesAnyHost);
    std::vector<std::string> keys;
    for (const auto& [key, value] : fake->preferences[domainName(application)])
        keys.insert(keys.begin(), key);
    return keys.empty() ? nullptr : listOf(keys, Kind::value);
}

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path, CFIndex size,
                                                 Boolean isDirectory) {
    EXPECT_TRUE(isDirectory);
    return asReference<CFURLRef>(make(Kind::url, std::string(path, path + size)));
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style) {
    EXPECT_EQ(style, kCFURLPOSIXPathStyle);
    return asReference<CFStringRef>(make(Kind::value, objectAt(url).value));
}

CFDataRef CFURLCreateBookmarkData(CFAllocatorRef, CFURLRef url, CFOptionFlags options, CFArrayRef,
                                  CFURLRef, CFErrorRef* error) {
    EXPECT_EQ(options, kCFURLBookmarkCreationWithSecurityScope);
    const std::string& path = textAt(url);
    if (!fake->folders.contains(path)) {
        fail(error, "The folder does not exist.");
        return nullptr;
    }
    const std::string bookmark = (fake->stale.contains(path) ? "renewed " : "scoped ") + path;
    return CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bookmark.data()),
                        std::ssize(bookmark));
}

CFURLRef CFURLCreateByResolvingBookmarkData(CFAllocatorRef, CFDataRef bookmark,
                                            CFOptionFlags options, CFURLRef, CFArrayRef,
                                            Boolean* isStale, CFErrorRef* error) {
    EXPECT_EQ(options, kCFURLBookmarkResolutionWithSecurityScope);
    const std::string text(bytesAt(bookmark).begin(), bytesAt(bookmark).end());
    const std::string path = text.substr(std::min(text.find('/'), text.size()));
    if (!fake->folders.contains(path)) {
        fail(error, "The folder does not exist.");
        return nullptr;
    }
    *isStale = fake->stale.contains(path) && !text.starts_with("renewed ");
    Object* url = make(Kind::url, path);
    url->isScoped = true;
    return asReference<CFURLRef>(url);
}

Boolean CFURLStartAccessingSecurityScopedResource(CFURLRef url) {
    fake->accesses.push_back("begin " + textAt(url));
    if (!objectAt(url).isScoped)
        return false;
    ++objectAt(url).accesses;
    ++fake->begun[textAt(url)];
    return true;
}

void CFURLStopAccessingSecurityScopedResource(CFURLRef url) {
    EXPECT_GT(objectAt(url).accesses--, 0) << "Access never began on this URL";
    fake->accesses.push_back("end " + textAt(url));
    --fake->begun[textAt(url)];
}

CFStringRef CFErrorCopyDescription(CFErrorRef error) {
    return asReference<CFStringRef>(make(Kind::value, textAt(error)));
}

CFArrayRef LSCopyApplicationURLsForBundleIdentifier(CFStringRef identifier, CFErrorRef*) {
    const auto found = fake->applications.find(textAt(identifier));
    if (found == fake->applications.end())
        return nullptr;
    return listOf(std::vector<std::string>{found->second}, Kind::url);
}

OSStatus LSOpenFromURLSpec(const LSLaunchURLSpec* request, CFURLRef*) {
    fake->launched.emplace_back(textAt(request->appURL), request->launchFlags);
    return 0;
}

void os_log_entry(os_log_t, os_log_type_t, const char* format, ...) {
    EXPECT_STREQ(format, "%{public}s");
    va_list rest;
    va_start(rest, format);
    fake->logged.emplace_back(va_arg(rest, const char*));
    va_end(rest);
}
}

// The Finder has no C interface; file_viewer.mm is not compiled here.
void frimbolate::showInFinder(const std::string& path) {
    frimbolate::test::fake->shownInFinder.push_back(path);
}
