// Reads binary property lists ("bplist0?"), into which other tools convert agent files.
//
// Such a file is a table of objects that refer to each other by number. References can be shared
// and can form cycles, so a few hundred bytes can ask for endless memory: everything that is
// produced is accounted against maximumPlistMemory().
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

/// Whether a file begins like a binary property list.
bool hasBinaryPlistMagic(std::string_view bytes);

/// Why a file is no binary property list, judged by its magic, its trailer and its table of
/// offsets, which have to fill the file exactly; nothing where it is one.
std::optional<std::string> binaryPlistFault(std::string_view bytes);

/// The value of a binary property list without such a fault. Every offset, count and reference is
/// checked against the file. Dates are rounded down to whole seconds; of a key that occurs twice
/// the first one holds; a UID is read as {"CF$UID": number}. Refused are the kinds that Value
/// cannot hold: null, sets, integers outside of INT64_MIN to UINT64_MAX, texts with half a
/// surrogate pair, and dates that are no number.
/// \throws NamedError "Unreadable property list" with the reason
Value readBinaryPlist(std::string_view bytes);

} // namespace frimbolate
