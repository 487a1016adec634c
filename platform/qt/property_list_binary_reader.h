// Reads binary property lists ("bplist00"), into which other tools convert agent files.
//
// Such a file is a table of objects that refer to each other by number. References may be shared
// and may form circles, so that a few hundred bytes are able to ask for endless work: every object
// asked for is counted, and everything produced is added up.
#pragma once

#include "core/value.h"

#include <QByteArray>

namespace frimbolate {

/// Whether the bytes say of themselves that they are a binary property list.
bool isBinaryPropertyList(const QByteArray& bytes);

/// The value of a binary property list. Every offset, count and reference is checked against the
/// file; texts are valid ASCII or UTF-16; keys are texts, and each stands once. Dates are cut down
/// to whole seconds, which is all that the XML form holds. The kinds that XML does not know (null,
/// UID, set) are refused.
/// \throws Failure "Unreadable property list" with the reason.
Value readBinaryPropertyList(const QByteArray& bytes);

} // namespace frimbolate
