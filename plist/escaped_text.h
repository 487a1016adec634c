// The escape sequences in quoted texts of old-style property lists.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// A text with each escape sequence replaced by its character:
/// - \a \b \f \n \r \t \v as in C;
/// - up to three octal digits are a byte of the NeXTSTEP encoding;
/// - \U and up to four hexadecimal digits are a unit of UTF-16; two units may form a pair;
/// - any other character after a backslash is itself.
/// \param text valid UTF-8 that does not end with a lone backslash
/// \returns nothing where a sequence is an unpaired surrogate or no character
std::optional<std::string> unescapedText(std::string_view text);

} // namespace frimbolate
