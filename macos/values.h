// Converts between the program's values and CoreFoundation's.
//
// A value of any kind travels as a property list: the platform's own writer and reader convert the
// objects, the program's own the bytes. So no number passes through a call that would cut it:
// CFNumberGetValue() gives 2^64 - 1 as the signed number -1 and reports success, and no public
// function makes a CFNumber above 2^63 - 1.
#pragma once

#include "core/value.h"
#include "macos/core_foundation.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// Nothing for null, and for an object that no property list contains.
std::optional<Value> valueOf(CFPropertyListRef object);
/// Never null.
/// \throws NamedError "Unwritable content" as xmlPropertyList() does, and for a value that the
///         platform does not read
Owned<CFPropertyListRef> objectOf(const Value& value);

/// Null for text that is not valid UTF-8.
Owned<CFStringRef> stringOf(std::string_view text);
/// Empty for null.
std::string toStdString(CFStringRef string);
/// Null only where memory is short.
Owned<CFDataRef> dataOf(std::string_view bytes);
Owned<CFDataRef> dataOf(const Data& data);
Data bytesOf(CFDataRef data);

} // namespace frimbolate
