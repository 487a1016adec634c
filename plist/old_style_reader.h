// Reads the property lists that are older than XML: `{ key = value; }`, `(a, b)`, <0fbd77>, texts,
// and .strings files, which are a dictionary without its braces.
#pragma once

#include "core/value.h"

#include <string_view>

namespace frimbolate {

/// The value of a property list of the older form. Its grammar is the platform's:
/// - every scalar is a text, but for data; a text without quotes holds letters, digits and _$/:.-
/// - a comma may stand behind the last element; a semicolon stands behind every entry; "key;"
///   alone stands for "key = key;"
/// - C and C++ comments; a file of nothing but blanks and comments is an empty dictionary;
/// - of a key that occurs twice the last one holds.
/// \param text UTF-8
/// \throws NamedError "Unreadable property list" with the reason and the line
Value readOldStylePlist(std::string_view text);

} // namespace frimbolate
