// Conversions of text and values as the platform defines them.
#pragma once

#include "core/value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace frimbolate {

/// The integer at the start of a text, after optional blanks and a sign. Without digits the result
/// is 0; a number beyond 64 bits saturates at INT64_MIN or INT64_MAX.
std::int64_t leadingInteger(std::string_view text);

/// The low 32 bits of a number, as a signed number: 99999999999 gives 1215752191.
std::int32_t truncatedTo32Bits(std::int64_t number);

/// True when, after optional blanks, a sign and zeros, the next character is Y, y, T, t or 1 to 9.
bool parseBool(std::string_view text);

/// A boolean itself, whether a number is not zero, or parseBool() of a text.
/// \throws NamedError for data, dates, arrays and dictionaries
bool toBool(const Value& value);

/// The same without exceptions: false for data, dates, arrays and dictionaries.
bool toBoolOrFalse(const Value& value);

/// The integer of a boolean (0 or 1), a number (fraction cut off) or a text (leadingInteger()).
/// \throws NamedError for data, dates, arrays and dictionaries
std::int64_t toInteger(const Value& value);

/// A text unchanged, or the decimal text of a number; a boolean reads "1" or "0".
/// \throws NamedError for data, dates, arrays and dictionaries
std::string toDisplayString(const Value& value);

/// The part after the last separator, or the whole text where there is none. Like beforeFirst(),
/// a view into the argument.
std::string_view afterLast(std::string_view text, std::string_view separator);

/// The part before the first separator, or the whole text where there is none.
std::string_view beforeFirst(std::string_view text, std::string_view separator);

/// The text with every occurrence of a part replaced. The part must not be empty.
std::string replacedAll(std::string_view text, std::string_view part, std::string_view by);
/// The text without any occurrence of a part.
inline std::string removeAll(std::string_view text, std::string_view part) {
    return replacedAll(text, part, "");
}

/// The file URL of an absolute path, percent-encoded: "/a b" gives "file:///a%20b".
std::string fileUrl(std::string_view path);

} // namespace frimbolate
