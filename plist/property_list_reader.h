// Reads a property list of any form, with the same verdict and the same value as the platform.
#pragma once

#include "core/value.h"

#include <string_view>

namespace frimbolate {

/// The value of a property list: XML, binary ("bplist0?"), or one of the older text forms
/// `{ key = value; }` and `key = value;` (.strings). A text may be in UTF-8, in UTF-16 or UTF-32
/// behind a byte order mark, or in the encoding that its XML header declares.
///
/// Lenient where the platform is lenient: attributes are ignored, blanks and comments may precede
/// the XML header, anything may follow the root element, control characters and line ends are kept
/// as they are, of an XML key that occurs twice the last one holds, of a binary key the first.
/// Strict where it is strict: a character is never replaced, and a number never rounded to fit.
/// A UID is read as the dictionary {"CF$UID": number}, which is its XML form.
///
/// Takes time linear in the size, and memory of at most `maximumPlistMemory()` (plist/limits.h).
/// \throws NamedError "Unreadable property list". The reason of a text form ends with the line it
///         was met in, "… (line 12)".
Value readPropertyList(std::string_view bytes);

} // namespace frimbolate
