// Reads XML property lists. The grammar is the platform's, which differs from that of XML.
#pragma once

#include "core/value.h"
#include "plist/text_cursor.h"

namespace frimbolate {

/// The value of an XML property list. The grammar is the platform's:
/// - a tag ends at the first ">", even inside quotes, and is empty where "/" precedes that; its
///   attributes are ignored;
/// - blanks, comments and processing instructions are allowed before and between elements; a
///   comment ends at the first "-->"; a document type without "[" is allowed before the root;
/// - <plist> is optional, at any level; what follows the root is not read;
/// - text has the five entities of XML, character references and CDATA sections, and keeps control
///   characters and line ends; a leading U+FEFF is dropped;
/// - <integer>, <date> and <data> contain plain characters only;
/// - the last of duplicate keys wins.
/// \param in at the start of the text; afterwards past the root
/// \throws NamedError "Unreadable property list" with the reason and the line
Value readXmlPlist(TextCursor& in);

} // namespace frimbolate
