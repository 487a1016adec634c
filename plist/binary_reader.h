// Reads binary property lists ("bplist0?"), to which other tools convert agent files.
//
// Such a file is a table of objects that refer to each other by number. References can be shared
// and can form cycles, so a few hundred bytes could demand unlimited memory. Everything produced is
// accounted against maximumPlistMemory().
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// Whether a file starts like a binary property list.
bool hasBinaryPlistMagic(std::string_view bytes);

/// Why a file is no binary property list, judged by its magic, its trailer and its table of
/// offsets, which must end where the trailer starts; nothing where it is one.
std::optional<std::string> binaryPlistFault(std::string_view bytes);

/// The value of a binary property list. Every offset, count and reference is checked against the
/// file. Dates are rounded down to whole seconds; the first of duplicate keys wins; a UID is read
/// as {"CF$UID": number}. Rejected is what Value cannot represent: null, sets, integers outside
/// INT64_MIN to UINT64_MAX, texts with an unpaired surrogate, and dates that are no number.
/// \param bytes a file for which binaryPlistFault() returns nothing
/// \throws NamedError "Unreadable property list" with the reason
Value readBinaryPlist(std::string_view bytes);

} // namespace frimbolate
