// Reads the text inside an XML element.
#pragma once

#include "plist/text_cursor.h"

#include <string>

namespace frimbolate {

/// Reads character references, CDATA sections and plain text up to a tag, and leaves the cursor
/// before the tag. The result is valid UTF-8, without a leading U+FEFF.
/// \throws NamedError with the reason and the line
std::string readXmlText(TextCursor& in);

} // namespace frimbolate
