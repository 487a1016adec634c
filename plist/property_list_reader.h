// Reads a property list with the same verdict and the same value as the platform.
#pragma once

#include "core/value.h"

#include <string_view>

namespace frimbolate {

/// The value of a property list in XML or an older form, in UTF-8, in UTF-16 or UTF-32 behind a byte order mark, or
/// in the encoding that its header declares.
/// \throws Failure "Unreadable property list" with the reason and the line
Value readPropertyList(std::string_view bytes);

} // namespace frimbolate
