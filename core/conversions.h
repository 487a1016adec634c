// The few conversions of text and values that the platform defines and the rules rely on.
#pragma once

#include "core/value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace frimbolate {

/// The integer that a text begins with: blanks are skipped, then a sign and digits are taken; no
/// digits give 0, and a number beyond 64 bits saturates at INT64_MIN or INT64_MAX.
std::int64_t leadingInteger(std::string_view text);

/// The low 32 bits of a number, as a signed number: 99999999999 gives 1215752191.
std::int32_t truncatedTo32Bits(std::int64_t number);

/// A text is true when, after blanks, a sign and zeros, it goes on with Y, y, T, t or 1 to 9.
bool parseBool(std::string_view text);

/// The truth of a boolean, a number (not zero) or a text.
/// \throws NamedError for data, dates, arrays and dictionaries, which have none.
bool toBool(const Value& value);

/// The same where it must not raise: what has no truth is not true.
bool toBoolOrFalse(const Value& value);

/// The integer of a boolean, a number (fractions cut off) or a text.
/// \throws NamedError for data, dates, arrays and dictionaries, which have none.
std::int64_t toInteger(const Value& value);

/// A text as it is, or the decimal text of a number.
/// \throws NamedError for data, dates, arrays and dictionaries.
std::string toDisplayString(const Value& value);

/// What follows the last separator, or the whole text where there is none.
std::string_view afterLast(std::string_view text, std::string_view separator);

/// What stands before the first separator, or the whole text where there is none.
std::string_view beforeFirst(std::string_view text, std::string_view separator);

/// The text without any occurrence of a part, or with each replaced.
std::string replacedAll(std::string_view text, std::string_view part, std::string_view by);
inline std::string removeAll(std::string_view text, std::string_view part) {
    return replacedAll(text, part, "");
}

/// The file URL of an absolute path, percent-encoded: "/a b" gives "file:///a%20b".
std::string fileUrl(std::string_view path);

} // namespace frimbolate
