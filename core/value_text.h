// Reals and dates as text, for the log and for property lists. Independent of the locale.
#pragma once

#include "core/value.h"

#include <string>

namespace frimbolate {

/// The shortest decimal text that parses to the same number; also "nan", "inf" and "-inf".
std::string shortestReal(double number);

/// A date in UTC: "YYYY-MM-DD", the separator, "HH:MM:SS" and the suffix. The year has at least
/// four digits.
std::string utcText(Date date, char separator, const char* suffix);

} // namespace frimbolate
