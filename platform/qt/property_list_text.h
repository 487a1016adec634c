// What the texts inside an XML property list mean. None of these asks the locale.
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// The text without the blanks that XML knows around it.
std::string_view trimmed(std::string_view text);

/// A decimal or 0x hexadecimal number with an optional sign, from INT64_MIN to UINT64_MAX.
std::optional<Value> integerOfText(std::string_view text);

/// A decimal number with an optional sign, "nan", "inf" or "infinity" in any case.
std::optional<double> realOfText(std::string_view text);
/// The shortest text that reads as the same number again.
std::string textOfReal(double number);

/// Base64 with its padding; blanks may stand anywhere.
std::optional<Data> dataOfText(std::string_view text);
std::string textOfData(const Data& data);

/// Why a text cannot stand in an XML 1.0 file, or nothing when it can: it is no valid UTF-8 or
/// holds a control character.
std::optional<std::string> reasonNotXml(std::string_view text);

} // namespace frimbolate
