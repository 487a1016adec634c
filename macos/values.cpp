#include "macos/values.h"

#include "core/named_error.h"
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"

namespace frimbolate {

namespace {

/// The XML form has a dictionary at its root.
constexpr const char* rootKey = "value";

const UInt8* unsignedBytes(const char* bytes) { return reinterpret_cast<const UInt8*>(bytes); }

std::string_view viewOf(CFDataRef data) {
    return {reinterpret_cast<const char*>(::CFDataGetBytePtr(data)),
            static_cast<std::size_t>(::CFDataGetLength(data))};
}

} // namespace

std::optional<Value> valueOf(CFPropertyListRef object) {
    if (!object)
        return std::nullopt;
    const Owned<CFDataRef> bytes(::CFPropertyListCreateData(
        kCFAllocatorDefault, object, kCFPropertyListBinaryFormat_v1_0, 0, nullptr));
    if (!bytes)
        return std::nullopt;
    try {
        return readPropertyList(viewOf(bytes.get()));
    } catch (const NamedError&) {
        return std::nullopt; // nested more deeply than the program reads
    }
}

Owned<CFPropertyListRef> objectOf(const Value& value) {
    const auto bytes = dataOf(xmlPropertyList({{rootKey, value}}));
    const Owned<CFPropertyListRef> root(::CFPropertyListCreateWithData(
        kCFAllocatorDefault, bytes.get(), kCFPropertyListImmutable, nullptr, nullptr));
    if (!root || ::CFGetTypeID(root.get()) != ::CFDictionaryGetTypeID())
        throw NamedError("Unwritable content", "The platform does not read it");
    const auto key = stringOf(rootKey);
    return retained<CFPropertyListRef>(
        ::CFDictionaryGetValue(static_cast<CFDictionaryRef>(root.get()), key.get()));
}

Owned<CFStringRef> stringOf(std::string_view text) {
    return Owned<CFStringRef>(
        ::CFStringCreateWithBytes(kCFAllocatorDefault, unsignedBytes(text.data()),
                                  static_cast<CFIndex>(text.size()), kCFStringEncodingUTF8, false));
}

std::string toStdString(CFStringRef string) {
    if (!string)
        return {};
    const CFRange whole = ::CFRangeMake(0, ::CFStringGetLength(string));
    CFIndex size = 0;
    // '?' stands for half a surrogate pair, which has no UTF-8 form.
    ::CFStringGetBytes(string, whole, kCFStringEncodingUTF8, '?', false, nullptr, 0, &size);
    std::string text(static_cast<std::size_t>(size), '\0');
    ::CFStringGetBytes(string, whole, kCFStringEncodingUTF8, '?', false,
                       reinterpret_cast<UInt8*>(text.data()), size, nullptr);
    return text;
}

Owned<CFDataRef> dataOf(std::string_view bytes) {
    return Owned<CFDataRef>(::CFDataCreate(kCFAllocatorDefault, unsignedBytes(bytes.data()),
                                           static_cast<CFIndex>(bytes.size())));
}

Owned<CFDataRef> dataOf(const Data& data) {
    return Owned<CFDataRef>(::CFDataCreate(kCFAllocatorDefault, data.bytes.data(),
                                           static_cast<CFIndex>(data.bytes.size())));
}

Data bytesOf(CFDataRef data) {
    const std::string_view bytes = viewOf(data);
    return Data{{bytes.begin(), bytes.end()}};
}

} // namespace frimbolate
