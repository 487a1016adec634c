// Formats the values of an XML property list as text. Independent of the locale.
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// The shortest text that parses to the same number.
std::string plistTextOf(double real);

/// "YYYY-MM-DDTHH:MM:SSZ"; nothing for a year before 1 or after 9999.
std::optional<std::string> plistTextOf(Date date);

/// Base64 with padding, on one line.
std::string plistTextOf(const Data& data);

/// Why a text cannot be written so that every reader returns it unchanged; nothing where it can.
/// Such a text is no valid UTF-8, contains a character that XML 1.0 cannot represent, or starts
/// with U+FEFF, which readers drop.
std::optional<std::string> reasonUnwritable(std::string_view text);

} // namespace frimbolate
