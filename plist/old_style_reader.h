// Reads old-style property lists, the form before XML: `{ key = value; }`, `(a, b)`, <0fbd77>,
// texts, and .strings files, which are a dictionary without its braces.
#pragma once

#include "core/value.h"

#include <string_view>

namespace frimbolate {

/// The value of an old-style property list. The grammar is the platform's:
/// - a scalar is a text or data; a text without quotes consists of letters, digits and _$/:.-
/// - a comma may follow the last element; a semicolon follows every entry; "key;" alone means
///   "key = key;"
/// - C and C++ comments are skipped; a file of blanks and comments alone is an empty dictionary;
/// - the last of duplicate keys wins.
/// \param text UTF-8
/// \throws NamedError "Unreadable property list" with the reason and the line
Value readOldStylePlist(std::string_view text);

} // namespace frimbolate
