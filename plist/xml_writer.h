// Writes XML property lists. Equal content gives equal bytes, so that a diff under version control
// shows only what changed.
#pragma once

#include "core/value.h"

#include <string>

namespace frimbolate {

inline constexpr const char* tooLargeContent = "Too large content";

/// The whole file, in UTF-8, indented with tabs. Keys are sorted by their bytes; a carriage return
/// is written as a character reference, since XML readers turn it into a line feed.
/// \throws NamedError tooLargeContent for a file that would be over 16 MiB, which no reader of this
///         program accepts; "Unwritable content" for a text or a key that is no valid UTF-8,
///         contains a character that XML 1.0 cannot represent, or starts with U+FEFF, which the
///         platform drops when it reads; and for a date outside the years 1 to 9999
std::string xmlPropertyList(const Dictionary& dictionary);

} // namespace frimbolate
