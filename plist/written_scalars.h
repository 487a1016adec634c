// The texts by which an XML property list writes its values. None asks the locale.
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// The shortest text that reads as the same number again.
std::string plistTextOf(double real);

/// "YYYY-MM-DDTHH:MM:SSZ", or nothing when the year needs more than four digits or is before 1.
std::optional<std::string> plistTextOf(Date date);

/// Base64 with its padding, in one line.
std::string plistTextOf(const Data& data);

/// Why a text cannot be written so that every reader reads it back as it is, or nothing when it
/// can: it is no valid UTF-8, holds a character that XML 1.0 knows no way to write, or begins with
/// U+FEFF, which readers drop.
std::optional<std::string> reasonUnwritable(std::string_view text);

} // namespace frimbolate
