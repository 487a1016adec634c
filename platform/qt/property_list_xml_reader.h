// Reads XML property lists under a strict mapping: what is not plainly a property list is refused
// and told, never guessed at, because the value read is written back over the person's file.
#pragma once

#include "core/value.h"

#include <QByteArray>

namespace frimbolate {

/// The value of an XML property list. Beyond well-formed XML it asks for
/// - one <plist> root with one value, and nothing but blanks and comments beside it;
/// - no internal DTD subset, hence no entities of the file's own;
/// - integers in decimal or 0x hexadecimal within 64 bits (leading zeros mean nothing, and the
///   person's locale is never asked), unsigned ones up to 2^64 - 1;
/// - base64, dates and numbers without a stray character, blanks around them aside;
/// - keys in pairs with values, and each key once;
/// - no more bytes and levels than property_list_limits.h allows.
/// \throws Failure "Unreadable property list" with the reason and the line it was met in.
Value readXmlPropertyList(const QByteArray& bytes);

} // namespace frimbolate
