// The text inside of an XML element.
#pragma once

#include "plist/text_cursor.h"

#include <string>

namespace frimbolate {

/// Reads references to characters, CDATA sections and all else up to a tag, and leaves the cursor
/// in front of it. The text is valid UTF-8, without a leading U+FEFF.
/// \throws NamedError with the reason and the line
std::string readXmlText(TextCursor& in);

} // namespace frimbolate
