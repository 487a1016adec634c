// Reads XML property lists by the platform's own grammar, which is not that of XML.
#pragma once

#include "core/value.h"
#include "plist/text_cursor.h"

namespace frimbolate {

/// The value of an XML property list. The grammar is the platform's:
/// - a tag ends at the first ">", whatever its quotes say, and is empty where "/" precedes that;
///   its attributes are ignored;
/// - blanks, comments and processing instructions may stand before, and between elements; a
///   comment ends at the first "-->"; a document type without "[" may stand before the root;
/// - <plist> may be missing, and may stand around any value; what follows the root is not read;
/// - text has the five entities of XML, references to characters, and CDATA sections, and keeps
///   control characters and line ends; a leading U+FEFF is dropped;
/// - <integer>, <date> and <data> hold plain characters only;
/// - of a key that occurs twice the last one holds.
/// \param in at the beginning of the text; left behind the root
/// \throws NamedError "Unreadable property list" with the reason and the line
Value readXmlPlist(TextCursor& in);

} // namespace frimbolate
