// Writes XML property lists. Equal content is equal bytes, so that a diff under version control
// shows just what changed.
#pragma once

#include "core/value.h"

#include <string>

namespace frimbolate {

/// The whole file, in UTF-8 and with tabs as indentation. Keys come in the order of their bytes; a
/// carriage return is written as a reference, since XML would turn it into a line feed.
/// \throws NamedError "Unwritable content" for a text or a key that is no valid UTF-8 or holds a
///         character that XML 1.0 knows no way to write, or begins with U+FEFF, which the platform
///         drops when it reads; and for a date outside the years 1 to 9999
std::string xmlPropertyList(const Dictionary& dictionary);

} // namespace frimbolate
