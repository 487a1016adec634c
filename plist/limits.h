// Limits of the property-list readers. A usual agent file has a few hundred bytes and three levels.
#pragma once

#include <algorithm>
#include <cstddef>

namespace frimbolate {

/// The name of the NamedError that every reader raises.
inline constexpr const char* unreadablePlist = "Unreadable property list";

/// The largest file that is read, in bytes.
inline constexpr std::size_t maximumPlistBytes = std::size_t{16} * 1024 * 1024;

/// The deepest nesting of arrays and dictionaries; the outermost one counts.
inline constexpr std::size_t maximumPlistDepth = 512;

/// The memory that reading a file may take; both sizes in bytes. The text forms stay below by
/// construction. References of a binary file can be shared, so its reader accounts each one.
inline constexpr std::size_t maximumPlistMemory(std::size_t fileSize) {
    constexpr std::size_t allowance = std::size_t{1024} * 1024;
    return std::max(fileSize * 40, allowance);
}

} // namespace frimbolate
