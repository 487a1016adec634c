// Dates as property lists hold them: whole seconds in UTC, the years 1 to 9999.
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// The date of exactly "YYYY-MM-DDTHH:MM:SSZ"; nothing for another form, or for a day or a time
/// that does not exist. Leap seconds are not known.
std::optional<Date> dateOfText(std::string_view text);

/// The same form of a date, or nothing when its year needs more than four digits or is before 1.
std::optional<std::string> textOfDate(Date date);

} // namespace frimbolate
