// Reals and moments as text, for the log and for property lists alike. None asks the locale.
#pragma once

#include "core/value.h"

#include <string>

namespace frimbolate {

/// The shortest decimal text that reads as the same number again; "nan", "inf" and "-inf" too.
std::string shortestReal(double number);

/// A moment in UTC: "YYYY-MM-DD", a separator, "HH:MM:SS" and a suffix; a year has at least four
/// digits.
std::string utcText(Date date, char separator, const char* suffix);

} // namespace frimbolate
