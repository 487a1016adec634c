// What the texts of numbers, dates and data in an XML property list mean. None asks the locale.
#pragma once

#include "core/value.h"

#include <optional>
#include <string_view>

namespace frimbolate {

/// A decimal or 0x hexadecimal number from INT64_MIN to UINT64_MAX. Blanks may stand before it
/// and behind its sign, but not after it. A leading zero does not make it octal.
std::optional<Value> parsePlistInteger(std::string_view text);

/// A decimal number with an optional sign, blanks before it only, or exactly one of "nan" and
/// "inf", "infinity" with an optional sign, in any case. A number too large for a double is
/// infinite, one too small is zero.
std::optional<double> parsePlistReal(std::string_view text);

/// The same by way of a stream of the standard library, for those that lack std::from_chars for
/// reals. Always compiled, so that every platform tests it.
std::optional<double> parsePlistRealByStream(std::string_view text);

/// A date of the form "YYYY-MM-DDTHH:MM:SSZ". The year may be negative and have any number of
/// digits. Months 0 to 13 and all days and times of two digits are counted on from where they
/// would begin, so "2001-13-03" is 2002-01-03; month 0 counts as January.
/// Nothing for another form, and for more seconds than a double holds exactly.
std::optional<Date> parsePlistDate(std::string_view text);

/// The bytes of base64. What is no base64 is passed over, and so is an incomplete group of four.
Data decodePlistData(std::string_view text);

} // namespace frimbolate
