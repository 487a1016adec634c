// Parses the texts of numbers, dates and data in an XML property list. Independent of the locale.
#pragma once

#include "core/value.h"

#include <optional>
#include <string_view>

namespace frimbolate {

/// A decimal or 0x hexadecimal number from INT64_MIN to UINT64_MAX; nothing for any other text.
/// Blanks are allowed before the number and after its sign, not after the number. A leading zero
/// does not mean octal.
std::optional<Value> parsePlistInteger(std::string_view text);

/// A decimal number with an optional sign; blanks are allowed before it only. Or exactly "nan", or
/// "inf" or "infinity" with an optional sign, in any case. Nothing for any other text. A number too
/// large for a double becomes infinity, one too small becomes zero.
std::optional<double> parsePlistReal(std::string_view text);

/// The same with a stream of the standard library, for libraries without std::from_chars for reals.
/// Compiled everywhere, so that every platform tests it.
std::optional<double> parsePlistRealByStream(std::string_view text);

/// A date of the form "YYYY-MM-DDTHH:MM:SSZ". The year may be negative and have any number of
/// digits. Months 0 to 13 and all days and times of two digits are accepted and carried over:
/// "2001-13-03" is 2002-01-03. Month 0 counts as January.
/// Nothing for another form, and for more seconds than a double represents exactly.
std::optional<Date> parsePlistDate(std::string_view text);

/// The bytes of a base64 text. Characters outside base64 and an incomplete last group of four are
/// skipped.
Data decodePlistData(std::string_view text);

} // namespace frimbolate
