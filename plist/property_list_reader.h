// Reads a property list of any form. Accepts what the platform accepts and returns the same value.
#pragma once

#include "core/value.h"

#include <string_view>

namespace frimbolate {

/// The value of a property list: XML, binary ("bplist0?"), or one of the old-style text forms
/// `{ key = value; }` and `key = value;` (.strings). A text may be in UTF-8, in UTF-16 or UTF-32
/// with a byte order mark, or in the encoding that its XML header declares.
///
/// Lenient where the platform is lenient: attributes are ignored, blanks and comments may precede
/// the XML header, anything may follow the root element, control characters and line ends are kept
/// unchanged, and of duplicate keys the last one wins in XML, the first one in binary.
/// Strict where the platform is strict: no character is replaced and no number rounded to fit.
/// A UID is read as the dictionary {"CF$UID": number}, its XML form.
///
/// Takes time linear in the size, and memory of at most `maximumPlistMemory()` (plist/limits.h);
/// rejects a file whose value would take more.
/// \throws NamedError "Unreadable property list". For a text form the reason ends with the line of
///         the error, "… (line 12)".
Value readPropertyList(std::string_view bytes);

} // namespace frimbolate
